#include "resources/manual/manual_printer.h"

#include <QFontMetricsF>

namespace tallyo {
namespace {

constexpr int kFirstTextPage = 3;  // behind title and contents
constexpr double kChapterLineMm = 6.2;
constexpr double kSectionLineMm = 4.7;
constexpr double kIconMm = 38;
const QColor kInk(0x1c, 0x1c, 0x1c);
const QColor kAccent(0x14, 0x56, 0x5a);
const QColor kPale(0x80, 0x80, 0x80);

QFont Sans(double points, QFont::Weight weight = QFont::Normal) {
  QFont font("DejaVu Sans");
  font.setPointSizeF(points);
  font.setWeight(weight);
  return font;
}

}  // namespace

ManualPrinter::ManualPrinter(QPdfWriter& writer, const ManualPages& pages)
    : writer_(writer), pages_(pages), contents_(pages.Headings()), width_(writer.width()) {
  for (Heading& heading : contents_) {
    heading.page += kFirstTextPage;
  }
}

void ManualPrinter::Print(const QImage& icon, const QString& version) {
  painter_.begin(&writer_);
  painter_.setRenderHint(QPainter::LosslessImageRendering);
  PrintTitle(icon, version);
  writer_.newPage();
  PrintContents();
  for (int page = 0; page < pages_.Count(); ++page) {
    writer_.newPage();
    pages_.Draw(painter_, page);
    PrintPageNumber(page + kFirstTextPage);
  }
  painter_.end();
}

void ManualPrinter::PrintTitle(const QImage& icon, const QString& version) {
  painter_.drawImage(QRectF((width_ - Mm(kIconMm)) / 2, Mm(55), Mm(kIconMm), Mm(kIconMm)), icon);
  painter_.setPen(kAccent);
  Write("Tallyo", Sans(40, QFont::DemiBold), Mm(108));
  painter_.setPen(kInk);
  Write("The manual", Sans(18), Mm(130));
  painter_.setPen(kPale);
  Write("Version " + version, Sans(11), Mm(144));
}

void ManualPrinter::PrintContents() {
  painter_.setPen(kAccent);
  painter_.setFont(Sans(18, QFont::DemiBold));
  painter_.drawText(QPointF(0, Mm(8)), "Contents");
  double top = Mm(16);
  for (const Heading& heading : contents_) {
    top += Mm(heading.level == 1 ? kChapterLineMm : kSectionLineMm);
    PrintLine(heading, top);
  }
  PrintPageNumber(kFirstTextPage - 1);
}

void ManualPrinter::PrintLine(const Heading& heading, double top) {
  const bool chapter = heading.level == 1;
  const QFont font = Sans(chapter ? 9.5 : 8.5, chapter ? QFont::DemiBold : QFont::Normal);
  const QFontMetricsF metrics(font, &writer_);
  const QString page = QString::number(heading.page);
  const double left = chapter ? 0 : Mm(6);
  const double pageLeft = width_ - metrics.horizontalAdvance(page);
  painter_.setFont(font);
  painter_.setPen(kInk);
  painter_.drawText(QPointF(left, top), heading.text);
  painter_.drawText(QPointF(pageLeft, top), page);
  painter_.setPen(QPen(kPale, Mm(0.2), Qt::DotLine));
  painter_.drawLine(QPointF(left + metrics.horizontalAdvance(heading.text) + Mm(2), top),
                    QPointF(pageLeft - Mm(2), top));
}

void ManualPrinter::PrintPageNumber(int page) {
  painter_.setPen(kPale);
  Write(QString::number(page), Sans(8.5), writer_.height() + Mm(10));
}

// One line in the middle of the page.
void ManualPrinter::Write(const QString& text, const QFont& font, double top) {
  painter_.setFont(font);
  const double textWidth = QFontMetricsF(font, &writer_).horizontalAdvance(text);
  painter_.drawText(QPointF((width_ - textWidth) / 2, top), text);
}

double ManualPrinter::Mm(double millimetres) const {
  return millimetres * writer_.resolution() / 25.4;
}

}  // namespace tallyo
