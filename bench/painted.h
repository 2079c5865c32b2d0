#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace tallyo::bench {

// Waits for the paintings of a widget.
class Painted : public QObject {
 public:
  explicit Painted(QWidget& widget) { widget.installEventFilter(this); }

  // Runs the events until the widget has been painted since the last call, and whatever else was
  // waiting with it.
  void Wait() {
    while (!painted_) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::processEvents();
    painted_ = false;
  }

 protected:
  bool eventFilter(QObject* /*widget*/, QEvent* event) override {
    painted_ = painted_ || event->type() == QEvent::Paint;
    return false;
  }

 private:
  bool painted_ = false;
};

}  // namespace tallyo::bench
