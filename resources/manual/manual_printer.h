#pragma once

#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <vector>

#include "resources/manual/manual_pages.h"

namespace tallyo {

// Prints the manual: a title page, the contents, then the text with page numbers.
class ManualPrinter {
 public:
  // The writer is ready to print; it and the pages outlive the printer.
  ManualPrinter(QPdfWriter& writer, const ManualPages& pages);

  void Print(const QImage& icon, const QString& version);

  // The headings with the page of the document each stands on, from 1.
  [[nodiscard]] const std::vector<Heading>& Contents() const { return contents_; }

 private:
  void PrintTitle(const QImage& icon, const QString& version);
  void PrintContents();
  void PrintLine(const Heading& heading, double top);
  void PrintPageNumber(int page);
  void Write(const QString& text, const QFont& font, double top);
  [[nodiscard]] double Mm(double millimetres) const;

  QPdfWriter& writer_;
  const ManualPages& pages_;
  QPainter painter_;
  std::vector<Heading> contents_;
  double width_;
};

}  // namespace tallyo
