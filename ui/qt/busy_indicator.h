#pragma once

#include <QCoreApplication>
#include <QTimer>
#include <QWidget>

#include "ui/qt/mirror.h"

namespace tallyo {

// A moving bar with a Stop button, seen only while a fetch takes longer than a moment.
class BusyIndicator : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(BusyIndicator)

 public:
  BusyIndicator(Mirror& mirror, QWidget* parent);

  // A fetch has begun.
  void Begin();

  // Goes at once where no fetch is in flight any more.
  void Look();

 private:
  void ShowOrHide();

  Mirror& mirror_;
  QTimer moment_;
};

}  // namespace tallyo
