#pragma once

#include <string>

#include "platform/event_pump.h"

namespace tallyo {

enum class BoxIcon { Information, Critical };
enum class BoxButtons { Ok, YesNo };
enum class BoxAnswer { Ok = 1, Yes = 6, No = 7 };

struct MessageBox {
  std::string text;   // plain text, never markup; lines end with LF
  std::string title;  // empty: the application title
  BoxIcon icon = BoxIcon::Information;
  BoxButtons buttons = BoxButtons::Ok;
};

// Every word to the person and every question goes through here.
class MessageBoxes {
 public:
  explicit MessageBoxes(EventPump& pump) : pump_(pump) {}
  virtual ~MessageBoxes() = default;
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;

  // Shows a box and waits until the person has closed it. Throws ProgramEnded where the program
  // was quit meanwhile.
  BoxAnswer Show(const MessageBox& box);

  // Whether a box stands open now.
  [[nodiscard]] bool Open() const { return open_ > 0; }

 protected:
  virtual BoxAnswer Ask(const MessageBox& box) = 0;

 private:
  EventPump& pump_;
  int open_ = 0;
};

}  // namespace tallyo
