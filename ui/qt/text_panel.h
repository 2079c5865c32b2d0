#pragma once

#include <QCoreApplication>
#include <QWidget>

#include "ui/qt/control_binding.h"

class QPlainTextEdit;

namespace tallyo {

// The text screen: what a command wrote, to be copied or saved.
class TextPanel : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(TextPanel)

 public:
  TextPanel(ControlBinding& binding, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Copy() const;
  void SaveAs();

  const TextBox& text_;
  QPlainTextEdit* field_;
};

}  // namespace tallyo
