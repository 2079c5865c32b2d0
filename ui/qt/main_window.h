#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>

#include "app/program.h"
#include "ui/qt/busy_indicator.h"
#include "ui/qt/control_binding.h"
#include "ui/qt/focus_link.h"
#include "ui/qt/mirror.h"
#include "ui/qt/own_documents.h"

namespace tallyo {

// The one window: it shows what the program's form says and sends the person's events there. It
// sizes itself by the screen that is shown.
class MainWindow : public QMainWindow {
 public:
  // The program outlives the window and is not started yet. The web page screen shows these
  // documents.
  MainWindow(Program& program, const OwnDocuments& documents);
  ~MainWindow() override;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  // Starts the program. False where the person has ended it meanwhile.
  bool Start();

  // Ends the program as the person's Exit does, everything saved, whatever it waits for.
  void Quit();

  // Brings the window before the others, out of the panel if it is minimized.
  void ComeForward();

  // The period of the timer starts anew.
  void RestartTimer();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MakePanels(const OwnDocuments& documents);
  void MakeStrip();
  void MakeStatusLine();
  void FollowTimer();
  void ShowPanels();
  void ShowFrame();
  void FitToFrame();
  void FocusScreen();
  [[nodiscard]] QWidget* ShownPanel() const;

  Mirror mirror_;
  FocusLink focus_;
  ControlBinding binding_;
  QTimer timer_;
  QWidget* stage_;  // holds the panels and the strip
  QWidget* strip_;
  std::array<QWidget*, screen::kCount> panels_{};
  BusyIndicator* busy_ = nullptr;
  Pointer shownPointer_ = Pointer::Normal;
  Place fittedTo_;
  WindowState fittedState_ = WindowState::Normal;
};

}  // namespace tallyo
