#pragma once

#include <QDir>
#include <QString>
#include <QTextDocument>

namespace tallyo {

// Where the manual comes from.
struct ManualSource {
  QDir chapters;   // *.html, one chapter each, in the order of their names; style.css
  QDir pictures;   // what the chapters show; need not exist
  double widthPx;  // of the text, in CSS pixels
};

// Puts all chapters into the document, one behind the other. A picture stands on a line of its own,
// <p class="picture"><img src="NAME"></p>; where there is no such file the line is left out, and a
// wide one is made to fit. Throws std::runtime_error where there is nothing to read.
void ReadManual(QTextDocument& document, const ManualSource& source);

}  // namespace tallyo
