#include "ui/qt/manage_links_panel.h"

#include <QEvent>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "ui/qt/action_label.h"
#include "ui/qt/shown_string.h"
#include "ui/qt/text_combo.h"
#include "ui/qt/twips.h"

namespace tallyo {
namespace {

constexpr int kBesideCaption = 6;  // pixels between a field and the label at its left

}  // namespace

// The order in which the controls are made is the order in which Tab reaches them.
ManageLinksPanel::ManageLinksPanel(ControlBinding& binding, QWidget* parent)
    : QWidget(parent), binding_(binding) {
  setMouseTracking(true);
  AddAccount();
  AddActions();
  AddLink();
  AddChoice();
  PlaceRows();
}

ManageLinksPanel::Placed ManageLinksPanel::AddField(std::size_t field) {
  TextBox& box = binding_.Form().Text1.at(field);
  auto* const caption = new QLabel(Shown(box.Caption()), this);
  auto* const edit = new QLineEdit(this);
  binding_.Bind(box, *edit, *caption, QString("Text1_%1").arg(field));
  return {edit, caption, &box};
}

void ManageLinksPanel::AddAccount() {
  rows_.push_back({AddField(field::kCompany), AddField(field::kAccount)});
}

void ManageLinksPanel::AddActions() {
  MainForm& form = binding_.Form();
  Row row;
  for (std::size_t i = 0; i < form.Label2.size(); ++i) {
    const QString name = QString("Label2_%1").arg(i);
    if (i <= action::kReset) {
      auto* const label = new ActionLabel(binding_.View(), form.Label2[i],
                                          form.Picture1[screen::kManageLinks], name, this);
      row.push_back({label, nullptr, &form.Label2[i]});
    } else {
      auto* const label = new QLabel(this);
      label->setAlignment(Qt::AlignCenter);
      binding_.Bind(form.Label2[i], *label, name);
      row.push_back({label, nullptr, &form.Label2[i]});
    }
  }
  rows_.push_back(row);
}

void ManageLinksPanel::AddLink() {
  const Placed path = AddField(field::kLinkPath);
  Placed size = AddField(field::kSizeKb);
  pathField_ = path.widget;
  sizeField_ = size.widget;
  sizeCaption_ = std::exchange(size.caption, nullptr);
  rows_.push_back({path, size});
  rows_.push_back({AddField(field::kReference), AddField(field::kFriendlyName)});
}

void ManageLinksPanel::AddChoice() {
  MainForm& form = binding_.Form();
  const QString text = Shown(form.Combo1.Caption());
  auto* const caption = new QLabel(text, this);
  auto* const combo = new TextCombo(binding_.View(), form.Combo1, "Combo1", text, this);
  caption->setBuddy(combo);
  Row row{{combo, caption, &form.Combo1}};
  for (const std::size_t i : {1U, 0U}) {  // Submit stands before Cancel
    auto* const button = new QPushButton(this);
    binding_.Bind(form.Command1.at(i), *button, QString("Command1_%1").arg(i));
    row.push_back({button, nullptr, &form.Command1.at(i)});
  }
  rows_.push_back(row);
}

// Where the form puts a control, as high as its font needs; controls of a row that the form makes
// equally high stay so.
QRect ManageLinksPanel::Room(const Row& row, const Placed& placed) {
  QRect room = PixelRect(placed.control->Where());
  for (const Placed& other : row) {
    if (other.control->Where().height == placed.control->Where().height) {
      room.setHeight(std::max(room.height(), other.widget->sizeHint().height()));
    }
  }
  return room;
}

void ManageLinksPanel::PlaceRows() {
  int bottom = 0;  // of the rows above
  int moved = 0;
  for (const Row& row : rows_) {
    for (const Placed& placed : row) {
      const int caption = placed.caption == nullptr ? 0 : placed.caption->sizeHint().height();
      moved = std::max(moved, bottom + caption - Room(row, placed).top());
    }
    for (const Placed& placed : row) {
      const QRect room = Room(row, placed).translated(0, moved);
      placed.widget->setGeometry(room);
      bottom = std::max(bottom, room.bottom() + 1);
      if (placed.caption != nullptr) {
        const QSize size = placed.caption->sizeHint();
        placed.caption->setGeometry(room.left(), room.top() - size.height(), size.width(),
                                    size.height());
      }
    }
  }
  PlaceSize();
}

// The label of this field stands at its left, behind the path; the field gives way to it.
void ManageLinksPanel::PlaceSize() {
  QRect field = sizeField_->geometry();
  const int width = sizeCaption_->sizeHint().width();
  field.setLeft(
      std::max(field.left(), pathField_->geometry().right() + width + 2 * kBesideCaption));
  sizeField_->setGeometry(field);
  sizeCaption_->setGeometry(field.left() - kBesideCaption - width, field.top(), width,
                            field.height());
}

void ManageLinksPanel::mouseMoveEvent(QMouseEvent* event) {
  binding_.View().Send([this] { binding_.Form().Picture1[screen::kManageLinks].MouseMove(); });
  QWidget::mouseMoveEvent(event);
}

void ManageLinksPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    PlaceRows();
  }
}

}  // namespace tallyo
