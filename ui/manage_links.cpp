#include "ui/manage_links.h"

#include <cstdint>
#include <string>

#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

constexpr std::size_t kShortestPage = 12;  // bytes of an address that can be a page's

// Shows the hourglass for as long as it lives.
class Hourglass {
 public:
  explicit Hourglass(Window& window) : window_(window) {
    window_.SetMousePointer(Pointer::Hourglass);
  }
  ~Hourglass() { window_.SetMousePointer(Pointer::Normal); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  Window& window_;
};

}  // namespace

ManageLinks::ManageLinks(MainForm& form, SharedState& state, EventPump& pump, MessageBoxes& boxes,
                         const ServiceRequests& requests, Screens& screens, AccountEntry& account,
                         AccountVerification& verification, MonitoredLinks& links,
                         LinkRegistration& registration, PageImport& pageImport, ImportQueue& queue)
    : form_(form),
      state_(state),
      pump_(pump),
      boxes_(boxes),
      requests_(requests),
      screens_(screens),
      account_(account),
      verification_(verification),
      links_(links),
      registration_(registration),
      pageImport_(pageImport),
      queue_(queue) {
  ConnectFields();
  ConnectActions();
}

void ManageLinks::ConnectFields() {
  for (std::size_t i = 0; i < form_.Text1.size(); ++i) {
    form_.Text1[i].OnGotFocus = [this, i] { FieldEntered(i); };
    form_.Text1[i].OnKeyUp = [this] { state_.FieldTyped = true; };
  }
  form_.Text1[field::kLinkPath].OnLostFocus = [this] { PathLeft(); };
  form_.Combo1.OnClick = [this] { LinkChosen(); };
}

void ManageLinks::ConnectActions() {
  for (std::size_t i = action::kImport; i <= action::kReset; ++i) {
    form_.Label2[i].OnMouseMove = [this, i] { PointerOverAction(i); };
    form_.Label2[i].OnClick = [this, i] { ActionClicked(i); };
  }
  form_.Label2[action::kPending].OnChange = [this] { PendingActionChanged(); };
  form_.Picture1[screen::kManageLinks].OnMouseMove = [this] { PointerOverPanel(); };
  form_.Command1[0].OnClick = [this] {
    pump_.End();
    pump_.ThrowIfEnded();
  };
  form_.Command1[1].OnClick = [this] { Submit(); };
}

void ManageLinks::Open() {
  screens_.ShowScreen(screen::kManageLinks);
  verification_.VerifyAccount();
  if (!form_.Text1[field::kCompany].Text().empty()) {
    form_.SetFocus(form_.Text1[field::kLinkPath]);
  }
}

void ManageLinks::FieldEntered(std::size_t index) {
  TextBox& path = form_.Text1[field::kLinkPath];
  if (path.Text().empty()) {
    path.SetText(form_.Text3.Text());
  }
  const bool hasPath = !path.Text().empty();
  form_.mnuScrnImport.SetEnabled(hasPath);
  form_.Label2[action::kImport].SetEnabled(hasPath);
  TextBox& entered = form_.Text1[index];
  if (!entered.Text().empty()) {
    entered.SetCaret(entered.Text().size());
  }
}

// The last part of the path is proposed as the reference.
void ManageLinks::PathLeft() {
  const std::string& path = form_.Text1[field::kLinkPath].Text();
  const std::size_t slash = path.rfind('/');
  if (slash != std::string::npos) {
    form_.Text1[field::kReference].SetText(path.substr(slash + 1));
  }
}

void ManageLinks::PointerOverAction(std::size_t index) {
  std::int16_t count = 0;
  account_.CheckAccountSet(count);
  Label& label = form_.Label2[index];
  if (index == action::kImport) {
    const std::string& path = form_.Text1[field::kLinkPath].Text();
    if (path.find("http") != std::string::npos && path.size() >= kShortestPage) {
      label.SetColors(kGreen, kRed);
    } else {
      label.SetBackColor(kRed);
    }
  } else if (index == action::kReset) {
    label.SetColors(kGreen, kRed);
  } else {
    const std::string& status = form_.ListView3.Value(detail::kAccountStatus, 1);
    label.SetBackColor(status.find("Susp") != std::string::npos ? kRed : kGreen);
  }
}

void ManageLinks::PointerOverPanel() {
  for (std::size_t i = action::kImport; i <= action::kReset; ++i) {
    form_.Label2[i].SetColors(kWhite, kBlack);
  }
}

void ManageLinks::ActionClicked(std::size_t index) {
  if (form_.Label2[index].BackColor() == kRed) {
    return;
  }
  Label& pending = form_.Label2[action::kPending];
  if (index == action::kAdd) {
    pending.SetCaption("ADD");
  } else if (index == action::kRemove) {
    if (!form_.Combo1.Text().empty()) {
      pending.SetCaption("REMOVE");
    }
  } else if (index == action::kImport) {
    pending.SetCaption("IMPORT");
  } else {
    ResetForm();
  }
}

void ManageLinks::ResetForm() {
  form_.Text1[field::kReference].SetText("");
  form_.Text1[field::kFriendlyName].SetText("");
  form_.Text1[field::kSizeKb].SetText("");
  TextBox& path = form_.Text1[field::kLinkPath];
  if (path.Text().empty()) {
    path.SetText(form_.Text3.Text());
  }
  const std::size_t slash = path.Text().rfind('/');
  if (slash != std::string::npos) {
    path.SetText(path.Text().substr(0, slash + 1));
  }
  form_.Label8.SetCaption("Form reseted");
  form_.Label2[action::kPending].SetCaption("");
  form_.Combo1.SetText("");
}

void ManageLinks::PendingActionChanged() {
  const std::string pending = form_.Label2[action::kPending].Caption();
  if (pending == "ADD") {
    if (verification_.VerifyAccount() && LeadingNumber(form_.Label4[0].Caption()) != 0) {
      form_.Command1[1].SetEnabled(true);
    }
  } else if (pending == "REMOVE") {
    if (verification_.VerifyAccount()) {
      form_.Command1[1].SetEnabled(true);
    }
  } else if (pending == "IMPORT") {
    pageImport_.ImportLinksFromPage();
  }
}

void ManageLinks::LinkChosen() {
  LinkFields fields;
  try {
    if (!links_.FindMonitoredLink(fields, form_.Combo1.Text(), FindBy::FriendlyName).found) {
      return;
    }
  } catch (const RuntimeError&) {
    return;  // a record that cannot be read fills nothing
  }
  form_.Text1[field::kLinkPath].SetText(fields[linkfield::kLinkPath]);
  form_.Text1[field::kFriendlyName].SetText(fields[linkfield::kFriendlyName]);
  form_.Text1[field::kReference].SetText(fields[linkfield::kReference]);
}

void ManageLinks::Submit() {
  if (requests_.InFlight()) {
    return;
  }
  const Hourglass hourglass(form_.Frame);
  const std::string pending = form_.Label2[action::kPending].Caption();
  if (pending == "ADD") {
    SubmitAdd();
  } else if (pending == "REMOVE") {
    SubmitRemove();
  }
}

// Both say that they succeeded whatever the service answered; a refusal has spoken before.
void ManageLinks::SubmitAdd() {
  const std::string name = form_.Text1[field::kFriendlyName].Text();
  lastAnswer_ = registration_.RegisterLinkOnService();
  boxes_.Show({.text = "Operation succesful - " + name + " Added", .title = ""});
  form_.mnuExportAll.SetEnabled(true);
  const bool known = lastAnswer_ == RegistrationAnswer::Done ||
                     lastAnswer_ == RegistrationAnswer::EntryExists ||
                     lastAnswer_ == RegistrationAnswer::LinkExists;
  if (known && !name.empty()) {
    queue_.SubmitDone();
  }
}

void ManageLinks::SubmitRemove() {
  const std::string name = form_.Text1[field::kFriendlyName].Text();
  lastAnswer_ = registration_.UnregisterLinkOnService();
  boxes_.Show({.text = "Operation succesful - " + name + " Deleted", .title = ""});
  form_.Combo1.SetText("");
  if (!name.empty()) {
    queue_.SubmitDone();
  }
}

}  // namespace tallyo
