#pragma once

#include <cstddef>

#include "account/account_entry.h"
#include "account/account_verification.h"
#include "form/main_form.h"
#include "form/shared_state.h"
#include "links/monitored_links.h"
#include "links/registration.h"
#include "platform/event_pump.h"
#include "platform/message_boxes.h"
#include "stats/service_requests.h"
#include "ui/import_queue.h"
#include "ui/page_import.h"
#include "ui/screens.h"

namespace tallyo {

// The manage-links screen: four labels choose an action, Submit carries it out.
class ManageLinks {
 public:
  // Connects itself to the screen's controls, which must outlive it.
  ManageLinks(MainForm& form, SharedState& state, EventPump& pump, MessageBoxes& boxes,
              const ServiceRequests& requests, Screens& screens, AccountEntry& account,
              AccountVerification& verification, MonitoredLinks& links,
              LinkRegistration& registration, PageImport& pageImport, ImportQueue& queue);

  void Open();

  // What the service said to the last Submit.
  [[nodiscard]] RegistrationAnswer LastAnswer() const { return lastAnswer_; }

 private:
  void ConnectFields();
  void ConnectActions();

  void FieldEntered(std::size_t index);
  void PathLeft();
  void PointerOverAction(std::size_t index);
  void PointerOverPanel();
  void ActionClicked(std::size_t index);
  void ResetForm();
  void PendingActionChanged();
  void LinkChosen();
  void Submit();
  void SubmitAdd();
  void SubmitRemove();

  MainForm& form_;
  SharedState& state_;
  EventPump& pump_;
  MessageBoxes& boxes_;
  const ServiceRequests& requests_;
  Screens& screens_;
  AccountEntry& account_;
  AccountVerification& verification_;
  MonitoredLinks& links_;
  LinkRegistration& registration_;
  PageImport& pageImport_;
  ImportQueue& queue_;
  RegistrationAnswer lastAnswer_ = RegistrationAnswer::NoAnswer;
};

}  // namespace tallyo
