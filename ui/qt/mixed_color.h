#pragma once

#include <QColor>

namespace tallyo {

// The ground colour with a part, 0 to 1, of another one in it.
[[nodiscard]] inline QColor Mixed(const QColor& ground, const QColor& other, double part) {
  const auto mix = [part](float a, float b) {
    return static_cast<float>(a * (1 - part) + b * part);
  };
  return QColor::fromRgbF(mix(ground.redF(), other.redF()), mix(ground.greenF(), other.greenF()),
                          mix(ground.blueF(), other.blueF()));
}

}  // namespace tallyo
