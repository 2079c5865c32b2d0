#include "resources/manual/manual_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>
#include <algorithm>
#include <cmath>

namespace tallyo {
namespace {

// How much of a page a heading wants to have below its upper edge.
constexpr double kRoomForChapter = 0.2;
constexpr double kRoomForSection = 0.14;

}  // namespace

ManualPages::ManualPages(QTextDocument& document, QPaintDevice& device, const QSizeF& size)
    : document_(document), size_(size) {
  document_.documentLayout()->setPaintDevice(&device);
  document_.setDocumentMargin(0);
  document_.setPageSize(size_);
  KeepHeadingsWithText();
}

void ManualPages::KeepHeadingsWithText() {
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level == 0) {
      continue;
    }
    const double left = size_.height() - std::fmod(TopOf(block), size_.height());
    const double least = (level == 1 ? kRoomForChapter : kRoomForSection) * size_.height();
    if (left < std::max(least, WantedRoom(block))) {
      BreakBefore(block);
    }
  }
}

// From the upper edge of a heading to the end of what follows it directly, and to the end of the
// first table of its section; no more than a page.
double ManualPages::WantedRoom(const QTextBlock& heading) const {
  double bottom = 0;
  for (QTextBlock block = heading.next(); block.isValid(); block = block.next()) {
    const bool isHeading = block.blockFormat().headingLevel() > 0;
    if (isHeading && bottom > 0) {
      break;
    }
    QTextTable* const table = QTextCursor(block).currentTable();
    const QRectF rect = table != nullptr ? document_.documentLayout()->frameBoundingRect(table)
                                         : document_.documentLayout()->blockBoundingRect(block);
    if (!isHeading && (table != nullptr || bottom == 0)) {
      bottom = rect.bottom();
    }
    if (table != nullptr) {
      break;
    }
  }
  const double room = bottom - TopOf(heading);
  return room <= size_.height() ? room : 0;
}

void ManualPages::BreakBefore(const QTextBlock& block) {
  QTextBlockFormat format;
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  QTextCursor(block).mergeBlockFormat(format);
  // Else what stands behind it keeps its place in part.
  document_.markContentsDirty(0, document_.characterCount());
}

std::vector<Heading> ManualPages::Headings() const {
  std::vector<Heading> headings;
  for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level > 0) {
      const double top = TopOf(block);
      const double page = std::floor(top / size_.height());
      headings.push_back({.level = level,
                          .text = block.text(),
                          .page = static_cast<int>(page),
                          .top = top - page * size_.height()});
    }
  }
  return headings;
}

void ManualPages::Draw(QPainter& painter, int page) const {
  const QRectF shown(QPointF(0, page * size_.height()), size_);
  painter.save();
  painter.translate(0, -shown.top());
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = shown;
  context.palette.setColor(QPalette::Text, Qt::black);
  painter.setClipRect(shown);
  document_.documentLayout()->draw(&painter, context);
  painter.restore();
}

double ManualPages::TopOf(const QTextBlock& block) const {
  return document_.documentLayout()->blockBoundingRect(block).top();
}

}  // namespace tallyo
