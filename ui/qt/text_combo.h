#pragma once

#include <QAbstractListModel>
#include <QComboBox>
#include <QProxyStyle>
#include <string>
#include <vector>

#include "form/combo_box.h"
#include "ui/qt/mirror.h"

namespace tallyo {

// The items of a combo box, as they were when they were last shown.
class ComboItems : public QAbstractListModel {
 public:
  explicit ComboItems(const ComboBox& combo) : combo_(combo) {}

  void Refresh();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  const ComboBox& combo_;
  std::vector<std::string> items_;
};

// A combo box of any number of items that shows the control's own text, whether or not that is one
// of them.
class TextCombo : public QComboBox {
 public:
  TextCombo(Mirror& mirror, ComboBox& combo, const QString& name, const QString& accessibleName,
            QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // Items in a list that scrolls: a menu of some thousand items would have to be laid out whole.
  class ListStyle : public QProxyStyle {
   public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
  };

  void Show();

  Mirror& mirror_;
  ComboBox& combo_;
  ComboItems items_;
  ListStyle style_;
  QString text_;
};

}  // namespace tallyo
