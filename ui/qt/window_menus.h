#pragma once

#include <QCoreApplication>
#include <QMenuBar>

#include "form/menu_item.h"
#include "ui/qt/mirror.h"

namespace tallyo {

// The menu bar: its menus with their items, and at its end the title that only displays.
class WindowMenus : public QMenuBar {
  Q_DECLARE_TR_FUNCTIONS(WindowMenus)

 public:
  WindowMenus(Mirror& mirror, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddMenu(MenuItem& menu);
  void AddItem(QMenu& menu, MenuItem& item);
  void AddTitle(MenuItem& title);
  void AddShortcuts();
  void FitTitle();

  Mirror& mirror_;
  QAction* title_ = nullptr;
};

}  // namespace tallyo
