// make_manual CHAPTERS PICTURES ICON VERSION OUTPUT: prints the manual as a PDF.

#include <QBuffer>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "resources/manual/manual_pages.h"
#include "resources/manual/manual_printer.h"
#include "resources/manual/manual_text.h"
#include "resources/manual/pdf_outline.h"

namespace {

constexpr int kDotsPerInch = 1200;
constexpr double kPointsPerInch = 72;
constexpr double kCssPixelsPerInch = 96;

struct Words {
  QString chapters;
  QString pictures;
  QString icon;
  QString version;
  QString output;
};

void PreparePages(QPdfWriter& writer) {
  writer.setResolution(kDotsPerInch);
  writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                   QMarginsF(22, 20, 22, 22), QPageLayout::Millimeter));
  writer.setTitle("Tallyo: the manual");
  writer.setCreator("Tallyo");
}

std::vector<tallyo::OutlineEntry> OutlineOf(const std::vector<tallyo::Heading>& contents,
                                            const QPageLayout& layout) {
  const double textTopPt =
      layout.fullRectPoints().height() - layout.margins(QPageLayout::Point).top();
  std::vector<tallyo::OutlineEntry> outline;
  outline.reserve(contents.size());
  for (const tallyo::Heading& heading : contents) {
    outline.push_back({.level = heading.level,
                       .title = heading.text,
                       .page = heading.page,
                       .heightPt = textTopPt - heading.top * kPointsPerInch / kDotsPerInch});
  }
  return outline;
}

QByteArray PrintManual(const Words& words) {
  const QImage icon(words.icon);
  if (icon.isNull()) {
    throw std::runtime_error("cannot read " + words.icon.toStdString());
  }
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  std::vector<tallyo::OutlineEntry> outline;
  {
    QPdfWriter writer(&pdf);
    PreparePages(writer);
    QTextDocument text;
    tallyo::ReadManual(text, {.chapters = QDir(words.chapters),
                              .pictures = QDir(words.pictures),
                              .widthPx = writer.width() * kCssPixelsPerInch / kDotsPerInch});
    const tallyo::ManualPages pages(text, writer, QSizeF(writer.width(), writer.height()));
    tallyo::ManualPrinter printer(writer, pages);
    printer.Print(icon, words.version);
    outline = OutlineOf(printer.Contents(), writer.pageLayout());
  }
  return tallyo::WithOutline(tallyo::WithoutCreationDate(pdf.data()), outline);
}

void MakeManual(const Words& words) {
  const QByteArray pdf = PrintManual(words);
  QSaveFile file(words.output);
  if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size() || !file.commit()) {
    throw std::runtime_error("cannot write " + words.output.toStdString());
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList given = QGuiApplication::arguments();
  if (given.size() != 6) {
    std::cerr << "usage: make_manual CHAPTERS PICTURES ICON VERSION OUTPUT\n";
    return 2;
  }
  try {
    MakeManual({given[1], given[2], given[3], given[4], given[5]});
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "make_manual: " << failure.what() << '\n';
    return 1;
  }
}
