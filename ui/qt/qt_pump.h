#pragma once

#include "platform/event_pump.h"

namespace tallyo {

// The events of the window. What they fail with, and the end of the program, stops at the program's
// dispatcher, so that nothing is ever thrown through the toolkit.
class QtPump final : public EventPump {
 protected:
  void RunPending() override;
};

}  // namespace tallyo
