#include "ui/preferences.h"

#include "settings/names.h"
#include "settings/value_text.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

namespace box {
constexpr std::size_t kAutoload = 0;
constexpr std::size_t kCheckForUpdates = 2;
constexpr std::size_t kStartMinimized = 3;
constexpr std::size_t kShowSlots = 4;
constexpr std::size_t kShowDueDate = 5;
}  // namespace box

constexpr double kLeastHours = 0.5;
constexpr const char* kLeastHoursText = "0.5";

}  // namespace

Preferences::Preferences(MainForm& form, const SharedState& state, Settings& settings, Shell& shell)
    : form_(form), state_(state), settings_(settings), shell_(shell) {
  for (std::size_t i = 0; i < form_.Check1.size(); ++i) {
    form_.Check1[i].OnClick = [this, i] { CheckClicked(i); };
  }
  form_.Text2.OnLostFocus = [this] { IntervalLeft(); };
  form_.Text3.OnLostFocus = [this] { DefaultUrlLeft(); };
}

void Preferences::Restore() {
  form_.Check1[box::kShowSlots].SetValue(settings_.Get(names::kShowSlotsLeft) == "True" ? 1 : 0);
  // The value is written as "True" and read as "true": this preference lasts for one session.
  form_.Check1[box::kShowDueDate].SetValue(settings_.Get(names::kDaysLeft) == "true" ? 1 : 0);
  RestoreStartPosition();
  form_.Check1[box::kCheckForUpdates].SetValue(
      LeadingNumber(settings_.Get(names::kUpdChck)) == 1 ? 1 : 0);
  const std::string command =
      QuerySettingValue(settings_.Store(), Hive::LocalMachine, names::RunKey, names::AppTitle);
  form_.Check1[box::kAutoload].SetValue(command.empty() ? 0 : 1);
  form_.Text3.SetText(settings_.Get(names::kDefUrl));
  const std::string interval = settings_.Get(names::kUpdDefTime);
  form_.Text2.SetText(LeadingNumber(interval) >= kLeastHours ? interval : kLeastHoursText);
}

void Preferences::RestoreStartPosition() {
  const double number = LeadingNumber(settings_.Get(names::kStartPos));
  try {
    const int value = ToInt16(number);
    if (value >= 0 && value <= 2) {
      form_.Check1[box::kStartMinimized].SetValue(value);
    }
  } catch (const RuntimeError&) {
    return;
  }
  if (number == 1) {
    form_.Frame.SetState(WindowState::Minimized);
  }
}

void Preferences::CheckClicked(std::size_t index) {
  switch (index) {
    case box::kAutoload:
      StoreAutoload();
      break;
    case box::kCheckForUpdates:
      settings_.Set(names::kUpdChck, std::to_string(form_.Check1[index].Value()));
      break;
    case box::kStartMinimized:
      settings_.Set(names::kStartPos, std::to_string(form_.Check1[index].Value()));
      break;
    case box::kShowSlots:
      ShowInAllScreens(index, form_.Label5[1], form_.Label4[0], names::kShowSlotsLeft);
      break;
    case box::kShowDueDate:
      ShowInAllScreens(index, form_.Label5[0], form_.Label4[1], names::kDaysLeft);
      break;
    default:
      break;
  }
}

void Preferences::StoreAutoload() {
  const bool ticked = form_.Check1[box::kAutoload].Value() == 1;
  SetSettingValue(settings_.Store(), Hive::LocalMachine, names::RunKey, names::AppTitle,
                  ticked ? state_.AppDir.string() + "/tallyo.exe" : "");
  shell_.RunAtLogon(ticked);
}

void Preferences::ShowInAllScreens(std::size_t index, Label& caption, Label& figure,
                                   std::string_view name) {
  const bool shown = form_.Check1[index].Value() == 1;
  caption.SetVisible(shown);
  figure.SetVisible(shown);
  settings_.Set(name, shown ? "True" : "False");
}

void Preferences::IntervalLeft() {
  float hours = ToSingle(LeadingNumber(form_.Text2.Text()));
  if (hours < static_cast<float>(kLeastHours)) {
    hours = static_cast<float>(kLeastHours);
    form_.Text2.SetText(kLeastHoursText);
  }
  settings_.Set(names::kUpdDefTime, SingleDecimalText(hours));
}

void Preferences::DefaultUrlLeft() { settings_.Set(names::kDefUrl, form_.Text3.Text()); }

}  // namespace tallyo
