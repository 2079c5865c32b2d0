#include "ui/qt/import_links_panel.h"

#include <QListView>
#include <QPushButton>
#include <QStyledItemDelegate>

#include "ui/qt/panel_layout.h"
#include "ui/qt/shown_string.h"

namespace tallyo {
namespace {

// As wide as the list is, so that a long link is elided in it.
class LineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    return {0, QStyledItemDelegate::sizeHint(option, index).height()};
  }
};

}  // namespace

ImportLinksPanel::ImportLinksPanel(ControlBinding& binding, QWidget* parent)
    : QWidget(parent), model_(binding.View(), binding.Form().List1) {
  CheckList& list = binding.Form().List1;
  auto* const caption = new QLabel(Shown(list.Caption()), this);
  caption->setWordWrap(true);
  auto* const view = new QListView(this);
  view->setObjectName("List1");
  view->setAccessibleName(caption->text());
  view->setModel(&model_);
  view->setStyle(&style_);
  view->setUniformItemSizes(true);
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view->setTextElideMode(Qt::ElideMiddle);
  view->setItemDelegate(new LineDelegate(view));
  caption->setBuddy(view);
  binding.View().Follow(list, [this, view, &list] {
    ControlBinding::ShowState(list, *view);
    model_.Refresh();
  });
  auto* const use = new QPushButton(this);
  binding.Bind(binding.Form().Command2, *use, "Command2");

  QVBoxLayout* const column = PanelLayout(*this);
  column->addWidget(caption);
  column->addWidget(view, 1);
  column->addWidget(use, 0, Qt::AlignRight);
}

}  // namespace tallyo
