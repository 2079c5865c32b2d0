#include "ui/qt/loading_panel.h"

#include <QLabel>

#include "ui/qt/panel_layout.h"

namespace tallyo {

LoadingPanel::LoadingPanel(QWidget* parent) : QWidget(parent) {
  auto* const text = new QLabel(tr("Tallyo is starting ..."), this);
  text->setAlignment(Qt::AlignCenter);
  PanelLayout(*this)->addWidget(text);
}

}  // namespace tallyo
