#include "ui/qt/busy_indicator.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QToolButton>

namespace tallyo {
namespace {

constexpr int kMomentMilliseconds = 250;
constexpr int kBarWidth = 80;   // pixels
constexpr int kBarHeight = 10;  // pixels

}  // namespace

BusyIndicator::BusyIndicator(Mirror& mirror, QWidget* parent) : QWidget(parent), mirror_(mirror) {
  setObjectName("Busy");
  auto* const bar = new QProgressBar(this);
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  bar->setFixedSize(kBarWidth, kBarHeight);
  //: What the moving bar is called when it is read aloud
  bar->setAccessibleName(tr("Waiting for an answer"));
  auto* const stop = new QToolButton(this);
  stop->setObjectName("StopTransfer");
  stop->setText(tr("Stop"));
  stop->setAccessibleName(stop->text());
  stop->setFocusPolicy(Qt::TabFocus);
  connect(stop, &QToolButton::clicked, this,
          [this] { mirror_.Send([this] { mirror_.Of().requests.StopFetch(); }); });
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(bar);
  row->addWidget(stop);
  moment_.setInterval(kMomentMilliseconds);
  connect(&moment_, &QTimer::timeout, this, [this] { ShowOrHide(); });
  hide();
}

void BusyIndicator::Begin() {
  if (!isVisible()) {
    moment_.start();
  }
}

void BusyIndicator::Look() {
  if (!mirror_.Of().requests.InFlight()) {
    ShowOrHide();
  }
}

void BusyIndicator::ShowOrHide() {
  const bool busy = mirror_.Of().requests.InFlight();
  setVisible(busy);
  if (!busy) {
    moment_.stop();
  }
}

}  // namespace tallyo
