#include "ui/qt/roomy_style.h"

#include <algorithm>

namespace tallyo {
namespace {

constexpr int kSideRoom = 7;  // pixels

}  // namespace

int RoomyStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  const bool side = metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin;
  return side ? std::max(usual, kSideRoom) : usual;
}

}  // namespace tallyo
