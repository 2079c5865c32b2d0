#include "ui/qt/panel_layout.h"

#include <QWidget>

#include "ui/qt/twips.h"

namespace tallyo {
namespace {

constexpr int kLeftMargin = 240;  // twips

}  // namespace

QVBoxLayout* PanelLayout(QWidget& panel) {
  auto* const layout = new QVBoxLayout(&panel);
  layout->setContentsMargins(Pixels(kLeftMargin), 0, 0, 0);
  return layout;
}

}  // namespace tallyo
