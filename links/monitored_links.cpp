#include "links/monitored_links.h"

#include <limits>
#include <optional>

#include "links/stored_records.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "text/integers.h"
#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

constexpr std::uint16_t kMismatch = 65535;

// NextLinkIndex after a step. Throws RuntimeError past 16 bits.
std::int16_t Stepped(std::int16_t index, int step) {
  return ToInt16(static_cast<double>(index) + step);
}

}  // namespace

void MonitoredLinks::LoadMonitoredLinks() {
  state_.NextLinkIndex = 1;
  for (const std::string& text : Index().Texts()) {
    const std::optional<std::string_view> name = ListedName(text);
    if (!name) {
      break;
    }
    form_.Combo1.AddItem(std::string(*name));
    form_.mnuExportAll.SetEnabled(true);
    form_.mnuImportAll.SetEnabled(true);
    state_.NextLinkIndex = Stepped(state_.NextLinkIndex, 1);
  }
  if (!settings_.IsOn(names::kAppendAfterLast, appendAfterLast_)) {
    state_.NextLinkIndex = Stepped(state_.NextLinkIndex, -1);
  }
}

LinkLookup MonitoredLinks::FindMonitoredLink(LinkFields& fields, std::string_view key, FindBy by) {
  return Index().Find(fields, key, by);
}

std::string MonitoredLinks::RecordOf(const LinkLookup& found) {
  return QuerySettingValue(settings_.Store(), Hive::LocalMachine,
                           std::string(names::MonitorFilesKey) + found.Number(), found.Number());
}

std::uint16_t MonitoredLinks::CheckMonitoredLinks() {
  const LinkIndex& index = Index();
  LinkFields fields;
  for (int i = 0; i < form_.Combo1.Count(); ++i) {
    try {
      const std::string& name = form_.Combo1.Items()[static_cast<std::size_t>(i)];
      if (!index.Find(fields, name, FindBy::FriendlyName).found) {
        return kMismatch;
      }
    } catch (const RuntimeError&) {
      return kMismatch;
    }
    form_.ListView1.InsertRow(i + 1, fields[linkfield::kFriendlyName]);
    form_.ListView1.SetValue(i + 1, 3, fields[linkfield::kLinkPath]);
  }
  return 0;
}

void MonitoredLinks::AppendMonitoredLink(const LinkFields& fields) {
  form_.Combo1.AddItem(fields[linkfield::kFriendlyName]);
  if (state_.NextLinkIndex == 0) {
    state_.NextLinkIndex = 1;
  }
  SetSettingValue(settings_.Store(), Hive::LocalMachine, RecordKey(state_.NextLinkIndex),
                  TwoDigits(state_.NextLinkIndex), RecordText(fields));
  state_.NextLinkIndex = Stepped(state_.NextLinkIndex, 1);
  ShowSlotsLeft();
}

void MonitoredLinks::RemoveMonitoredLink(std::string_view name) {
  const int i = form_.Combo1.Find(name);
  const int count = form_.Combo1.Count();
  settings_.Store().AsOneChange([&] {
    if (i < count - 1) {
      for (int number = i + 1; number < count; ++number) {
        MoveRecord(number + 1, number);
      }
    } else {
      settings_.Store().DeleteKey(Hive::LocalMachine, RecordKey(i + 1));
    }
  });
  state_.NextLinkIndex = Stepped(state_.NextLinkIndex, -1);
  ShowSlotsLeft();
}

void MonitoredLinks::ShowSlotsLeft() {
  form_.Label4[0].SetCaption(std::to_string(state_.MaxSlots - form_.Combo1.Count()));
}

const LinkIndex& MonitoredLinks::Index() {
  const StoreStamp stamp = settings_.Store().StampBelow(Hive::LocalMachine, names::MonitorFilesKey);
  if (!indexBuilt_ || stamp != indexStamp_) {
    index_ = LinkIndex(StoredRecords(settings_.Store()));
    indexStamp_ = stamp;
    indexBuilt_ = true;
  }
  return index_;
}

void MonitoredLinks::MoveRecord(int from, int to) {
  SettingsStore& store = settings_.Store();
  const std::string text =
      QuerySettingValue(store, Hive::LocalMachine, RecordKey(from), TwoDigits(from));
  SetSettingValue(store, Hive::LocalMachine, RecordKey(to), TwoDigits(to), text);
  store.DeleteKey(Hive::LocalMachine, RecordKey(from));
}

}  // namespace tallyo
