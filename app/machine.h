#pragma once

#include "platform/clock.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "platform/http_transfer.h"
#include "platform/message_boxes.h"
#include "platform/shell.h"
#include "settings/settings_store.h"

namespace tallyo {

// What a program needs of the machine it runs on. All of it is borrowed and outlives the program.
struct Machine {
  const Clock& clock;
  Files& files;
  HttpTransfer& transfer;
  SettingsStore& store;
  EventPump& pump;
  MessageBoxes& boxes;
  Shell& shell;
};

}  // namespace tallyo
