#pragma once

#include <QBoxLayout>
#include <QWidget>

#include "ui/qt/check_box_style.h"
#include "ui/qt/control_binding.h"

namespace tallyo {

// The preferences screen.
class PreferencesPanel : public QWidget {
 public:
  PreferencesPanel(ControlBinding& binding, QWidget* parent);

 private:
  void AddBoxes(ControlBinding& binding, QVBoxLayout& column);
  void AddFields(ControlBinding& binding, QVBoxLayout& column);

  CheckBoxStyle style_;
};

}  // namespace tallyo
