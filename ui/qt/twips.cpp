#include "ui/qt/twips.h"

#include <QApplication>
#include <QFontMetrics>
#include <QRect>
#include <algorithm>

namespace tallyo {
namespace {

constexpr double kTwipsPerPixel = 15;
constexpr double kTallestNormalLine = 20;  // pixels of a text line that every panel has room for

}  // namespace

int Pixels(int twips) {
  const double line = QFontMetrics(QApplication::font()).height();
  return qRound(twips / kTwipsPerPixel * std::max(1.0, line / kTallestNormalLine));
}

QRect PixelRect(const Place& place) {
  return {Pixels(place.left), Pixels(place.top), Pixels(place.width), Pixels(place.height)};
}

}  // namespace tallyo
