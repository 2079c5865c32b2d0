#pragma once

#include <QCoreApplication>
#include <QWidget>

namespace tallyo {

// What stands in the window for the moment before the first screen.
class LoadingPanel : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(LoadingPanel)

 public:
  explicit LoadingPanel(QWidget* parent);
};

}  // namespace tallyo
