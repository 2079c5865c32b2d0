#pragma once

#include "form/control.h"

class QRect;

namespace tallyo {

// Logical pixels for a length in twips: one for every 15 twips, more where the person's font is so
// large that the texts would not fit.
[[nodiscard]] int Pixels(int twips);

[[nodiscard]] QRect PixelRect(const Place& place);

}  // namespace tallyo
