#include "ui/service_info.h"

#include <array>
#include <string>

#include "settings/names.h"
#include "stats/byte_count.h"
#include "stats/refresh_interval.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "ui/check_age.h"

namespace tallyo {
namespace {

constexpr std::array kItems = {"Service open",
                               "Service good through",
                               "Slots left",
                               "Bytes transfered - this session",
                               "Bytes transfered - all sessions",
                               "Files monitored",
                               "Last check",
                               "Next check",
                               "Account status",
                               "Other status"};
constexpr const char* kNoSlotsLeft = "No slots left";

}  // namespace

ServiceInfo::ServiceInfo(MainForm& form, const SharedState& state, Settings& settings,
                         const Clock& clock, Screens& screens, AccountVerification& verification)
    : form_(form),
      state_(state),
      settings_(settings),
      clock_(clock),
      screens_(screens),
      verification_(verification) {
  form_.Label4[0].OnChange = [this] { SlotsLeftChanged(); };
  form_.Label4[1].OnChange = [this] { Show(detail::kGoodThrough, form_.Label4[1].Caption()); };
}

void ServiceInfo::BuildRows() {
  for (const char* item : kItems) {
    form_.ListView3.AddRow(item);
  }
}

void ServiceInfo::ShowServiceInfo() {
  screens_.ShowScreen(screen::kServiceInfo);
  verification_.VerifyAccount();
  Show(detail::kServiceOpen, settings_.Get(names::kAccOpen));
  Show(detail::kBytesTotal,
       FormatByteCount(ToInt32(LeadingNumber(settings_.Get(names::kBytesTransTotal)))));
  Show(detail::kFilesMonitored, std::to_string(form_.Combo1.Count()));
  const auto lastCheck = static_cast<double>(state_.LastCheckTime);
  Show(detail::kLastCheck,
       lastCheck <= 0 ? "Unknown" : CheckAge(ComparableNow(clock_.Now()) - lastCheck));
}

void ServiceInfo::SlotsLeftChanged() {
  const std::string& caption = form_.Label4[0].Caption();
  if (LeadingNumber(caption) == 0) {
    Show(detail::kSlotsLeft, "0");
    Show(detail::kOtherStatus, kNoSlotsLeft);
    return;
  }
  Show(detail::kSlotsLeft, caption);
  if (form_.ListView3.Value(detail::kOtherStatus, 1) == kNoSlotsLeft) {
    Show(detail::kOtherStatus, "");
  }
}

void ServiceInfo::Show(int row, std::string_view value) { form_.ListView3.SetValue(row, 1, value); }

}  // namespace tallyo
