#pragma once

#include <QProxyStyle>

namespace tallyo {

// The person's style with more room at both sides of the cells and headings of a list, so that
// numbers at the right of a column keep off the texts of the next.
class RoomyStyle : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
};

}  // namespace tallyo
