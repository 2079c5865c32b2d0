#include "resources/manual/manual_text.h"

#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>
#include <stdexcept>

namespace tallyo {
namespace {

// Pictures of screens are shown a little smaller than they were, so that their text is no larger
// than the manual's.
constexpr double kPictureScale = 0.68;

QString TextOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("cannot read " + path.toStdString());
  }
  return QString::fromUtf8(file.readAll());
}

// The line of a picture with its size; "" where there is none.
QString PictureLine(QTextDocument& document, const ManualSource& source, const QString& name) {
  const QImage picture(source.pictures.filePath(name));
  if (picture.isNull()) {
    return "";
  }
  document.addResource(QTextDocument::ImageResource, QUrl(name), picture);
  const double width = std::min(picture.width() * kPictureScale, source.widthPx);
  return QString("<p style=\"margin-bottom: 12px\"><img src=\"%1\" width=\"%2\"></p>\n")
      .arg(name)
      .arg(width);
}

QString WithPictures(QTextDocument& document, const ManualSource& source, const QString& chapter) {
  static const QRegularExpression line("<p class=\"picture\"><img src=\"([a-z-]+\\.png)\"></p>\\n");
  QString html = chapter;
  for (QRegularExpressionMatch found = line.match(html); found.hasMatch();
       found = line.match(html)) {
    html.replace(found.capturedStart(), found.capturedLength(),
                 PictureLine(document, source, found.captured(1)));
  }
  return html;
}

}  // namespace

void ReadManual(QTextDocument& document, const ManualSource& source) {
  const QStringList names = source.chapters.entryList({"*.html"}, QDir::Files, QDir::Name);
  if (names.isEmpty()) {
    throw std::runtime_error("no chapters in " + source.chapters.path().toStdString());
  }
  QString html;
  for (const QString& name : names) {
    html += WithPictures(document, source, TextOf(source.chapters.filePath(name)));
  }
  document.setDefaultStyleSheet(TextOf(source.chapters.filePath("style.css")));
  document.setHtml("<html><body>" + html + "</body></html>");
}

}  // namespace tallyo
