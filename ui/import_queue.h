#pragma once

#include <cstddef>

#include "form/main_form.h"
#include "ui/screens.h"

namespace tallyo {

// Takes the checked lines of the import screen into the manage-links fields, one at a time: the
// next comes when what the person did with the one before has been submitted.
class ImportQueue {
 public:
  // Connects itself to the import screen's button.
  ImportQueue(MainForm& form, Screens& screens);

  // What was submitted is done: the next checked line may come.
  void SubmitDone();

  // Waits for nothing any more.
  void End() { waiting_ = false; }

  [[nodiscard]] bool Waiting() const { return waiting_; }

 private:
  void Begin();
  void TakeNext();
  void ClearFields();
  void Take(const std::string& link);

  MainForm& form_;
  Screens& screens_;
  std::size_t next_ = 0;
  bool waiting_ = false;
};

}  // namespace tallyo
