#include "ui/import_queue.h"

#include <string>

namespace tallyo {

ImportQueue::ImportQueue(MainForm& form, Screens& screens) : form_(form), screens_(screens) {
  form_.Command2.OnClick = [this] { Begin(); };
}

void ImportQueue::SubmitDone() {
  if (waiting_) {
    TakeNext();
  }
}

void ImportQueue::Begin() {
  waiting_ = false;
  next_ = 0;
  form_.Label2[action::kPending].SetCaption("");
  TakeNext();
}

void ImportQueue::TakeNext() {
  waiting_ = false;
  while (next_ < form_.List1.Lines().size()) {
    const CheckList::Line& line = form_.List1.Lines()[next_++];
    ClearFields();
    if (line.checked) {
      waiting_ = true;
      Take(line.text);
      return;
    }
  }
}

void ImportQueue::ClearFields() {
  for (std::size_t i = field::kLinkPath; i < form_.Text1.size(); ++i) {
    form_.Text1[i].SetText("");
  }
}

void ImportQueue::Take(const std::string& link) {
  form_.Text1[field::kLinkPath].SetText(link);
  form_.Text1[field::kLinkPath].LostFocus();  // proposes the reference
  screens_.ShowScreen(screen::kManageLinks);
  form_.SetFocus(form_.Text1[field::kFriendlyName]);
}

}  // namespace tallyo
