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

  // Looks whether a fetch is in flight; to be called when that may have changed.
  void Look();

 private:
  Mirror& mirror_;
  QTimer moment_;
};

}  // namespace tallyo
