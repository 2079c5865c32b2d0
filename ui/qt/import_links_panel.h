#pragma once

#include <QWidget>

#include "ui/qt/check_box_style.h"
#include "ui/qt/check_list_model.h"
#include "ui/qt/control_binding.h"

namespace tallyo {

// The import screen: the links found on a page, each with a box.
class ImportLinksPanel : public QWidget {
 public:
  ImportLinksPanel(ControlBinding& binding, QWidget* parent);

 private:
  CheckListModel model_;
  CheckBoxStyle style_;
};

}  // namespace tallyo
