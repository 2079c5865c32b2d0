// Choosing another link and another month on the daily status screen of the real window, as a
// person does with the arrow keys. The months July and August of all links must be there.
// Usage: month-work APPDIR; the first line printed is the size of the table in pixels.

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QTableView>
#include <iostream>
#include <stdexcept>

#include "bench/painted.h"
#include "bench/rounds.h"
#include "bench/works/bench_program.h"
#include "ui/qt/main_window.h"

namespace {

using namespace tallyo;

template <typename Widget>
Widget& Find(const MainWindow& window, const char* name) {
  auto* const found = window.findChild<Widget*>(name);
  if (found == nullptr) {
    throw std::runtime_error(std::string("nothing is called ") + name);
  }
  return *found;
}

void Press(QWidget& widget, Qt::Key key) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 2) {
    std::cerr << "Usage: month-work APPDIR\n";
    return 2;
  }
  const std::filesystem::path appDir = arguments[1].toStdString();
  bench::BenchProgram t(appDir, "http://127.0.0.1:9/");
  MainWindow window(t.program, OwnDocuments(appDir));
  window.Start();
  t.program.form.Timer1.SetEnabled(false);
  t.program.dailyStatus.Open();
  auto& grid = Find<QTableView>(window, "ListView2");
  auto& link = Find<QComboBox>(window, "Combo2");
  auto& month = Find<QComboBox>(window, "Combo3");
  bench::Painted painted(*grid.viewport());
  painted.Wait();
  while (month.currentText() != "Jul") {
    Press(month, month.currentIndex() > 6 ? Qt::Key_Up : Qt::Key_Down);
    painted.Wait();
  }
  std::cout << grid.width() << ' ' << grid.height() << std::endl;
  bool july = true;
  bench::ServeRounds([&] {
    Press(link, Qt::Key_Down);
    painted.Wait();
    Press(month, july ? Qt::Key_Down : Qt::Key_Up);
    july = !july;
    painted.Wait();
  });
  const int hits = 1 + (link.currentIndex() + 1 + 7) % 150;  // as made_month.h has them
  if (link.currentIndex() < 1 || t.program.form.ListView2.Value(1, 1) != std::to_string(hits)) {
    std::cerr << "month-work: the link chosen is not shown\n";
    return 1;
  }
}
