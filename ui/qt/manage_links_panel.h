#pragma once

#include <QWidget>
#include <vector>

#include "ui/qt/control_binding.h"

namespace tallyo {

// The manage-links screen. Its controls stand where the form puts them; where the person's font
// needs more room, the rows below move down a little.
class ManageLinksPanel : public QWidget {
 public:
  ManageLinksPanel(ControlBinding& binding, QWidget* parent);

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // A control with the label that stands above it, if any.
  struct Placed {
    QWidget* widget;
    QWidget* caption;
    const Control* control;
  };
  using Row = std::vector<Placed>;

  Placed AddField(std::size_t field);
  void AddAccount();
  void AddActions();
  void AddLink();
  void AddChoice();

  void PlaceRows();
  void PlaceSize();
  [[nodiscard]] static QRect Room(const Row& row, const Placed& placed);

  ControlBinding& binding_;
  std::vector<Row> rows_;
  QWidget* sizeField_ = nullptr;
  QWidget* sizeCaption_ = nullptr;
  QWidget* pathField_ = nullptr;
};

}  // namespace tallyo
