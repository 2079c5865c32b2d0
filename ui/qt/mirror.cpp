#include "ui/qt/mirror.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace tallyo {

Mirror::~Mirror() {
  for (const auto& followed : followed_) {
    followed->control->Observe(nullptr);
  }
}

void Mirror::Follow(Control& control, std::function<void()> show) {
  followed_.push_back(std::make_unique<Followed>(Followed{&control, std::move(show)}));
  Followed& followed = *followed_.back();
  control.Observe([this, &followed] { Note(followed); });
  Note(followed);
}

void Mirror::Send(const std::function<void()>& event) {
  SendTick(event);
  if (!program_.Ended()) {
    Queue();
  }
}

void Mirror::SendTick(const std::function<void()>& event) {
  program_.Dispatch(event);
  if (program_.Ended()) {
    QCoreApplication::exit(0);
  }
}

void Mirror::ShowChanges() {
  queued_ = false;
  const bool outer = !std::exchange(showing_, true);
  for (Followed* const followed : std::exchange(changed_, {})) {
    followed->changed = false;
    followed->show();
  }
  if (outer) {
    showing_ = false;
    if (OnShown) {
      OnShown();
    }
  }
}

void Mirror::customEvent(QEvent* /*event*/) { ShowChanges(); }

void Mirror::Note(Followed& followed) {
  if (!std::exchange(followed.changed, true)) {
    changed_.push_back(&followed);
    Queue();
  }
}

void Mirror::Queue() {
  if (!std::exchange(queued_, true)) {
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }
}

}  // namespace tallyo
