// Loaded by Qt into a window program that knows nothing of it (QT_QPA_GENERIC_PLUGINS), so that
// every such program is measured alike. Prints the monotonic time in seconds at which a window has
// first been painted; each line on standard input is the object name of a menu item to choose.

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QSocketNotifier>
#include <QWidget>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <string>

namespace tallyo::bench {

class WindowProbe : public QObject {
 public:
  WindowProbe() { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const widget = qobject_cast<const QWidget*>(watched);
    if (event->type() == QEvent::Paint && widget != nullptr && widget->window()->isVisible()) {
      qApp->removeEventFilter(this);
      // Comes as soon as this painting, of which the event is the beginning, is done.
      QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
    }
    return false;
  }

  void customEvent(QEvent* /*event*/) override {
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    std::cout << std::fixed << std::setprecision(6) << now.count() << std::endl;
    constexpr int kInput = 0;
    auto* const input = new QSocketNotifier(kInput, QSocketNotifier::Read, this);
    connect(input, &QSocketNotifier::activated, this, [input] {
      std::string name;
      if (std::getline(std::cin, name)) {
        Choose(QString::fromStdString(name));
      } else {
        input->setEnabled(false);
      }
    });
  }

 private:
  static void Choose(const QString& name) {
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
      if (auto* const action = window->findChild<QAction*>(name)) {
        action->trigger();
        return;
      }
    }
  }
};

class WindowProbePlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "window_probe.json")

 public:
  QObject* create(const QString& /*key*/, const QString& /*words*/) override {
    return new WindowProbe;
  }
};

}  // namespace tallyo::bench

#include "window_probe.moc"
