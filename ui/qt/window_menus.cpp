#include "ui/qt/window_menus.h"

#include <QMenu>
#include <algorithm>

#include "ui/qt/mixed_color.h"
#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

constexpr int kRoomBesideTitle = 40;       // pixels that the style takes around it
constexpr qsizetype kLongestTitle = 1000;  // characters that are worth measuring
constexpr double kTitlePart = 0.65;        // parts of the text colour in its own

}  // namespace

WindowMenus::WindowMenus(Mirror& mirror, QWidget* parent) : QMenuBar(parent), mirror_(mirror) {
  setObjectName("MenuBar");
  setAccessibleName(tr("Menus"));
  MainForm& form = mirror_.Form();
  for (MenuItem* const menu : {&form.mnuFile, &form.mnuOpts, &form.mnuWindow, &form.mnuHelp}) {
    AddMenu(*menu);
  }
  AddTitle(form.TmnuDisTitle);
  AddShortcuts();
}

void WindowMenus::AddMenu(MenuItem& menu) {
  const QString name = Shown(menu.Name());
  QMenu* const widget = addMenu(Shown(menu.Caption()));
  widget->setObjectName(name);
  widget->setAccessibleName(SpokenCaption(menu.Caption()));
  widget->menuAction()->setObjectName(name);
  for (MenuItem* const item : menu.Items()) {
    AddItem(*widget, *item);
  }
  // Opening the menu may change what it offers; that must stand there when it appears.
  connect(widget, &QMenu::aboutToShow, this, [this, &menu] {
    mirror_.Send([&] { menu.Click(); });
    mirror_.ShowChanges();
  });
}

void WindowMenus::AddItem(QMenu& menu, MenuItem& item) {
  QAction* const action = item.IsSeparator() ? menu.addSeparator() : new QAction(&menu);
  action->setObjectName(Shown(item.Name()));
  if (item.IsSeparator()) {
    return;
  }
  menu.addAction(action);
  mirror_.Follow(item, [action, &item] {
    action->setText(Shown(item.Caption()));
    action->setEnabled(item.Enabled());
    action->setVisible(item.Visible());
  });
  connect(action, &QAction::triggered, this,
          [this, &item] { mirror_.Send([&] { item.Click(); }); });
}

void WindowMenus::AddTitle(MenuItem& title) {
  title_ = addAction(QString());
  title_->setObjectName(Shown(title.Name()));
  title_->setEnabled(false);
  QPalette legible = palette();  // it cannot be used, but it is there to be read
  const QColor quiet = Mixed(legible.color(QPalette::Active, QPalette::Window),
                             legible.color(QPalette::Active, QPalette::WindowText), kTitlePart);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    legible.setColor(QPalette::Disabled, role, quiet);
  }
  setPalette(legible);
  mirror_.Follow(title, [this] { FitTitle(); });
}

void WindowMenus::AddShortcuts() {
  MainForm& form = mirror_.Form();
  const auto give = [this](const MenuItem& item, const QKeySequence& keys) {
    parentWidget()->findChild<QAction*>(Shown(item.Name()))->setShortcut(keys);
  };
  give(form.mnuViewStats, QKeySequence(Qt::Key_F5));
  give(form.mnuWindDaily, QKeySequence(Qt::CTRL | Qt::Key_1));
  give(form.mnuWindCurrent, QKeySequence(Qt::CTRL | Qt::Key_2));
  give(form.mnuScrnImport, QKeySequence(Qt::CTRL | Qt::Key_3));
  give(form.mnuServiceInfo, QKeySequence(Qt::CTRL | Qt::Key_4));
}

// A title that is wider than the bar would hide in the bar's own menu.
void WindowMenus::FitTitle() {
  int others = kRoomBesideTitle;
  for (QAction* const action : actions()) {
    others += action == title_ ? 0 : actionGeometry(action).width();
  }
  const QString text =
      Shown(mirror_.Form().TmnuDisTitle.Caption()).left(kLongestTitle).replace('\n', ' ');
  const int room = std::max(0, width() - others);
  const QString fitting = WithoutAccessKeys(fontMetrics().elidedText(text, Qt::ElideRight, room));
  if (title_->text() != fitting) {
    title_->setText(fitting);
  }
}

void WindowMenus::resizeEvent(QResizeEvent* event) {
  QMenuBar::resizeEvent(event);
  FitTitle();
}

}  // namespace tallyo
