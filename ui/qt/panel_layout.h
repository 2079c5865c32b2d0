#pragma once

#include <QBoxLayout>

class QWidget;

namespace tallyo {

// The column of a panel's controls. The window leaves more room at the right of a panel than at its
// left; the margins here make both even.
[[nodiscard]] QVBoxLayout* PanelLayout(QWidget& panel);

}  // namespace tallyo
