#pragma once

#include <QSizeF>
#include <QString>
#include <QTextDocument>
#include <vector>

class QPainter;
class QPaintDevice;

namespace tallyo {

struct Heading {
  int level = 1;  // 1: a chapter
  QString text;
  int page = 0;    // of the text's own pages, from 0
  double top = 0;  // within the page, in the device's units
};

// The text of the manual cut into pages.
class ManualPages {
 public:
  // Lays the document out for pages of this size on the device; both outlive the pages. A heading
  // that would stand alone at the foot of a page goes to the next.
  ManualPages(QTextDocument& document, QPaintDevice& device, const QSizeF& size);

  [[nodiscard]] int Count() const { return document_.pageCount(); }
  [[nodiscard]] std::vector<Heading> Headings() const;

  // Draws one page at the painter's origin.
  void Draw(QPainter& painter, int page) const;

 private:
  void KeepHeadingsWithText();
  void BreakBefore(const QTextBlock& block);
  [[nodiscard]] double WantedRoom(const QTextBlock& heading) const;
  [[nodiscard]] double TopOf(const QTextBlock& block) const;

  QTextDocument& document_;
  QSizeF size_;
};

}  // namespace tallyo
