#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace tallyo {

// One line of a PDF viewer's list of chapters.
struct OutlineEntry {
  int level = 1;  // 1, or 2 for a part of the entry of level 1 before it
  QString title;
  int page = 1;
  double heightPt = 0;  // of the place above the lower edge of the page
};

// The PDF with an outline appended. It is one that Qt has written: with a plain cross-reference
// table, and all pages below one node. The first entry has level 1. Throws std::runtime_error for
// another PDF and for a page that it does not have.
[[nodiscard]] QByteArray WithOutline(const QByteArray& pdf,
                                     const std::vector<OutlineEntry>& entries);

// The PDF without the time at which it was written, so that the same text gives the same file.
[[nodiscard]] QByteArray WithoutCreationDate(const QByteArray& pdf);

}  // namespace tallyo
