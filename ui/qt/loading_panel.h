#pragma once

#include <QWidget>

namespace tallyo {

// What stands in the window for the moment before the first screen.
class LoadingPanel : public QWidget {
 public:
  explicit LoadingPanel(QWidget* parent);
};

}  // namespace tallyo
