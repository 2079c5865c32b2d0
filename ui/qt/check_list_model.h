#pragma once

#include <QAbstractListModel>

#include "form/check_list.h"
#include "ui/qt/mirror.h"

namespace tallyo {

// The lines of a check list with their boxes, which the person ticks.
class CheckListModel : public QAbstractListModel {
 public:
  CheckListModel(Mirror& mirror, CheckList& list) : mirror_(mirror), list_(list) {}

  void Refresh();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  Mirror& mirror_;
  CheckList& list_;
  int rows_ = 0;
};

}  // namespace tallyo
