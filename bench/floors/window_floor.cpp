// The least window: a menu bar and nine empty panels, one of them shown. Usage: window-floor
// [MILLISECONDS], with a timer of that period which does nothing.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>
#include <array>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  for (const char* const menu : {"&File", "&Options", "&Window", "&Help"}) {
    window.menuBar()->addMenu(menu);
  }
  auto* const stage = new QWidget(&window);
  std::array<QWidget*, 9> panels{};
  for (QWidget*& panel : panels) {
    panel = new QWidget(stage);
    panel->setGeometry(0, 0, 640, 420);
    panel->setVisible(panel == panels.front());
  }
  window.setCentralWidget(stage);
  window.setFixedSize(640, 480);
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [] {});
  if (argc == 2) {
    timer.start(QString(argv[1]).toInt());
  }
  window.show();
  return QApplication::exec();
}
