#include "ui/qt/main_window.h"
#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QStatusBar>
#include <algorithm>

#include "ui/qt/current_status_panel.h"
#include "ui/qt/daily_status_panel.h"
#include "ui/qt/elided_label.h"
#include "ui/qt/import_links_panel.h"
#include "ui/qt/loading_panel.h"
#include "ui/qt/manage_links_panel.h"
#include "ui/qt/preferences_panel.h"
#include "ui/qt/service_info_panel.h"
#include "ui/qt/shown_string.h"
#include "ui/qt/stay_on_screen.h"
#include "ui/qt/text_panel.h"
#include "ui/qt/twips.h"
#include "ui/qt/web_page_panel.h"
#include "ui/qt/window_menus.h"

namespace tallyo {
namespace {

constexpr int kStripGap = 60;         // twips between a panel and the strip below it
constexpr int kStripMargin = 420;     // twips at the left and right of the strip
constexpr int kWidestInStrip = 2100;  // twips that one text may take there
constexpr int kStatusIndent = 2;      // pixels that a status bar puts before its first text

}  // namespace

MainWindow::MainWindow(Program& program, const OwnDocuments& documents)
    : mirror_(program),
      focus_(mirror_, *this),
      binding_(mirror_, focus_),
      stage_(new QWidget(this)),
      strip_(new QWidget(stage_)) {
  setObjectName("frmCtrl");
  setMenuBar(new WindowMenus(mirror_, this));
  setCentralWidget(stage_);
  MakePanels(documents);
  MakeStrip();
  MakeStatusLine();
  FollowTimer();
  mirror_.Follow(mirror_.Form().Frame, [this] { ShowFrame(); });
  mirror_.OnShown = [this] {
    focus_.Settle();
    FocusScreen();
    busy_->Look();
  };
  mirror_.Of().requests.OnBegun = [this] { busy_->Begin(); };
  connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { Quit(); });
  connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { Quit(); });
}

MainWindow::~MainWindow() {
  mirror_.OnShown = nullptr;
  mirror_.Of().requests.OnBegun = nullptr;
}

bool MainWindow::Start() {
  mirror_.Send([this] { mirror_.Of().StartProgram(); });
  if (!mirror_.Of().Ended()) {
    mirror_.ShowChanges();
  }
  return !mirror_.Of().Ended();
}

void MainWindow::Quit() {
  mirror_.Send([this] { mirror_.Form().LeaveFocus(); });  // what was typed is taken
  mirror_.Send([this] { mirror_.Of().Quit(); });
}

void MainWindow::ComeForward() {
  if (isMinimized()) {
    showNormal();
  }
  raise();
  activateWindow();
}

void MainWindow::RestartTimer() {
  if (timer_.isActive()) {
    timer_.start();
  }
}

void MainWindow::MakePanels(const OwnDocuments& documents) {
  panels_ = {new ManageLinksPanel(binding_, stage_),
             new CurrentStatusPanel(binding_, stage_),
             new PreferencesPanel(binding_, stage_),
             new DailyStatusPanel(binding_, stage_),
             new ImportLinksPanel(binding_, stage_),
             new ServiceInfoPanel(binding_, stage_),
             new LoadingPanel(stage_),
             new WebPagePanel(binding_, documents, stage_),
             new TextPanel(binding_, stage_)};
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i]->setObjectName(QString("Picture1_%1").arg(i));
    panels_[i]->hide();
    mirror_.Follow(mirror_.Form().Picture1[i], [this] { ShowPanels(); });
  }
}

void MainWindow::MakeStrip() {
  MainForm& form = mirror_.Form();
  auto* const row = new QHBoxLayout(strip_);
  row->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](Label& control, const QString& name) {
    auto* const label = new ElidedLabel(strip_);
    label->setMaximumWidth(Pixels(kWidestInStrip));  // none pushes the others out
    binding_.Bind(control, *label, name);
    row->addWidget(label);
    return label;
  };
  const auto addPair = [&](std::size_t caption, std::size_t figure) {
    ElidedLabel* const shown = add(form.Label5[caption], QString("Label5_%1").arg(caption));
    shown->setBuddy(add(form.Label4[figure], QString("Label4_%1").arg(figure)));
  };
  addPair(1, 0);
  row->addSpacing(2 * row->spacing());
  addPair(0, 1);
  row->addStretch(1);
}

void MainWindow::MakeStatusLine() {
  auto* const status = new ElidedLabel(this);
  binding_.Bind(mirror_.Form().Label8, *status, "Label8");
  busy_ = new BusyIndicator(mirror_, this);
  statusBar()->setSizeGripEnabled(false);
  const int margin = Pixels(kStripMargin);
  statusBar()->setContentsMargins(margin - kStatusIndent, 0, margin, 0);
  statusBar()->addWidget(status, 1);
  statusBar()->addPermanentWidget(busy_);
  statusBar()->setMinimumHeight(busy_->sizeHint().height());  // also while it is not seen
}

void MainWindow::FollowTimer() {
  Timer& timer = mirror_.Form().Timer1;
  connect(&timer_, &QTimer::timeout, this,
          [this, &timer] { mirror_.SendTick([&] { timer.Tick(); }); });
  mirror_.Follow(timer, [this, &timer] {
    if (!timer.Enabled()) {
      timer_.stop();
    } else if (!timer_.isActive() || timer_.interval() != timer.IntervalMilliseconds()) {
      timer_.start(timer.IntervalMilliseconds());
    }
  });
}

void MainWindow::ShowPanels() {
  const auto& panels = mirror_.Form().Picture1;
  for (const bool shown : {true, false}) {  // the focus finds its new place before the old one goes
    for (std::size_t i = 0; i < panels_.size(); ++i) {
      if (panels[i].Visible() == shown) {
        panels_[i]->setGeometry(PixelRect(panels[i].Where()));
        panels_[i]->setVisible(shown);
      }
    }
  }
  mirror_.Send([this] { mirror_.Of().screens.FormResize(); });
  FitToFrame();
}

void MainWindow::ShowFrame() {
  const Window& frame = mirror_.Form().Frame;
  setWindowTitle(Shown(frame.Caption()));
  // The caption changes with every second, the rest hardly ever.
  if (frame.MousePointer() != shownPointer_) {
    shownPointer_ = frame.MousePointer();
    shownPointer_ == Pointer::Hourglass ? setCursor(Qt::WaitCursor) : unsetCursor();
  }
  if (frame.Where() != fittedTo_ || frame.State() != fittedState_) {
    FitToFrame();
  }
  const bool minimized = frame.State() == WindowState::Minimized;
  if (frame.Visible() && (!isVisible() || minimized != isMinimized())) {
    show();  // first of all: a window that was never there may not appear minimized
    minimized ? showMinimized() : showNormal();
  }
}

// The frame's place is the size of the window's inside. With a large font the menus and the
// lines at the bottom may need a little more.
void MainWindow::FitToFrame() {
  const Place& frame = mirror_.Form().Frame.Where();
  if (frame.width <= 0 || mirror_.Form().Frame.State() == WindowState::Minimized) {
    return;
  }
  fittedTo_ = frame;
  fittedState_ = mirror_.Form().Frame.State();
  const QWidget* const panel = ShownPanel();
  const int bars = menuBar()->sizeHint().height() + statusBar()->sizeHint().height();
  const int strip = fontMetrics().height();  // also while its labels are hidden
  const int bottom = panel == nullptr ? 0 : panel->geometry().bottom() + 1 + Pixels(kStripGap);
  const QSize size(Pixels(frame.width), std::max(Pixels(frame.height), bars + bottom + strip));
  strip_->setGeometry(Pixels(kStripMargin), bottom, size.width() - 2 * Pixels(kStripMargin), strip);
  setFixedSize(size);
  StayOnScreen(*this);
}

// A screen that the program asks no field of is entered at its first control.
void MainWindow::FocusScreen() {
  QWidget* const panel = ShownPanel();
  if (panel == nullptr || panel->isAncestorOf(focusWidget())) {
    return;
  }
  for (QWidget* next = panel->nextInFocusChain(); panel->isAncestorOf(next);
       next = next->nextInFocusChain()) {
    if ((next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && next->isEnabled() &&
        next->isVisibleTo(this)) {
      next->setFocus(Qt::OtherFocusReason);
      return;
    }
  }
}

QWidget* MainWindow::ShownPanel() const {
  const auto& panels = mirror_.Form().Picture1;
  const auto shown = std::ranges::find_if(panels, &Panel::Visible);
  return shown == panels.end() ? nullptr
                               : panels_.at(static_cast<std::size_t>(shown - panels.begin()));
}

void MainWindow::closeEvent(QCloseEvent* /*event*/) { Quit(); }

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  mirror_.Send([this] { mirror_.Of().screens.FormResize(); });
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    FitToFrame();
  }
  if (event->type() == QEvent::WindowStateChange && isVisible()) {
    const WindowState state = isMinimized() ? WindowState::Minimized : WindowState::Normal;
    mirror_.Send([&] {
      mirror_.Form().Frame.SetState(state);
      mirror_.Of().screens.FormResize();
    });
  }
}

}  // namespace tallyo
