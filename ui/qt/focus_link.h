#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <unordered_map>

#include "form/text_box.h"
#include "ui/qt/mirror.h"

namespace tallyo {

// Keeps the focus of the window's widgets and that of the program's fields together: where the
// person moves it the program hears of it, and where the program asks for it the widget gets it.
// Menus, message boxes and other programs take no focus away.
class FocusLink : public QObject {
 public:
  FocusLink(Mirror& mirror, QWidget& window);
  ~FocusLink() override = default;
  FocusLink(const FocusLink&) = delete;
  FocusLink& operator=(const FocusLink&) = delete;

  // Both outlive the link, which outlives all events. `entered` runs when the program has heard
  // that the field got the focus.
  void Join(TextBox& box, QWidget& field, std::function<void()> entered);

  // Brings both sides together after a pass.
  void Settle();

 private:
  struct Field {
    TextBox* box;
    std::function<void()> entered;
  };

  [[nodiscard]] bool IsOwn(const QWidget* widget) const;
  [[nodiscard]] TextBox* BoxOf(const QWidget* widget) const;
  void FocusMoved(QWidget* now);
  void Report(QWidget* now);
  bool GiveProgramsChoice();

  Mirror& mirror_;
  QWidget& window_;
  std::unordered_map<const QWidget*, Field> fields_;
  std::unordered_map<const TextBox*, QWidget*> widgets_;
  const TextBox* known_ = nullptr;  // the field that both sides last agreed on
};

}  // namespace tallyo
