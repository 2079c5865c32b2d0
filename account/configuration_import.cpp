#include "account/configuration_import.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "account/configuration_export.h"
#include "links/stored_records.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "settings/version.h"
#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo {
namespace {

constexpr std::size_t kMostBytes = std::size_t{16} << 20U;

// The settings that an import writes, as they are now, to be put back exactly.
class KeptSettings {
 public:
  explicit KeptSettings(SettingsStore& store) : store_(store) {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      values_.at(i) = store_.Read(Hive::LocalMachine, names::SettingsKey, kNames.at(i));
    }
  }

  void PutBack() {
    store_.AsOneChange([this] { WriteAll(); });
  }

 private:
  static constexpr std::array<std::string_view, 3> kNames = {names::kUser, names::kAccount,
                                                             names::kDefUrl};

  void WriteAll() {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      if (values_.at(i)) {
        store_.Write(Hive::LocalMachine, names::SettingsKey, kNames.at(i), *values_.at(i));
      } else if (store_.Read(Hive::LocalMachine, names::SettingsKey, kNames.at(i))) {
        store_.DeleteValue(Hive::LocalMachine, names::SettingsKey, kNames.at(i));
      }
    }
  }

  SettingsStore& store_;
  std::array<std::optional<TypedValue>, kNames.size()> values_;
};

void SetWhereGiven(Settings& settings, std::string_view name,
                   const std::optional<std::string>& text) {
  if (text) {
    settings.Set(name, *text);
  }
}

}  // namespace

bool ConfigurationImport::ImportConfiguration() {
  if (requests_.InFlight()) {
    return false;
  }
  savedData_.ConfirmMisconfigurationReset(Confirm::Silently);
  const bool loaded = LoadExportFile();
  if (!loaded) {
    savedData_.ConfirmMisconfigurationReset(Confirm::Silently);
  }
  return loaded;
}

bool ConfigurationImport::LoadExportFile() {
  std::string failure;
  try {
    return Store(ReadFile());
  } catch (const LoadRefused& refused) {
    failure = refused.what();
  } catch (const RuntimeError&) {
    failure = "File: " + (state_.AppDir / "").string() + form_.Text1[field::kAccount].Text() +
              ".export not found";
  }
  boxes_.Show({.text = failure, .title = "", .icon = BoxIcon::Critical});
  return false;
}

// Nothing is stored before the whole file has been read: a refusal leaves the store as it was.
ExportedConfiguration ConfigurationImport::ReadFile() {
  const std::string account = form_.Text1[field::kAccount].Text();
  ExportFileReader reader(
      {.company = form_.Text1[field::kCompany].Text(),
       .account = account,
       .acceptsVersion = [this](const std::string& line) { return CheckFileVersion(line); },
       .showInterval = [this](const std::string& hours) { form_.Text2.SetText(hours); }});
  return reader.Read(files_.Read(ExportFile(state_, account), kMostBytes));
}

bool ConfigurationImport::CheckFileVersion(const std::string& line) {
  if (line.find("v" + ShortVersion()) != std::string::npos) {
    return true;
  }
  return boxes_.Show({.text = "This data file was created for a different Tallyo's version and may "
                              "not work with this one\nConsult to Tallyo's web site for "
                              "compatibility issues\n\nPress Yes to load this file or No to cancel",
                      .title = std::string(names::AppTitle) + " - Warning:",
                      .buttons = BoxButtons::YesNo}) == BoxAnswer::Yes;
}

bool ConfigurationImport::Store(const ExportedConfiguration& configuration) {
  SettingsStore& store = settings_.Store();
  KeptSettings kept(store);
  const auto count = static_cast<int>(configuration.links.size());
  store.AsOneChange([&] {
    // Where the links of before could not be removed, they must not stay behind the new ones.
    store.DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    SetWhereGiven(settings_, names::kUser, configuration.user);
    SetWhereGiven(settings_, names::kAccount, configuration.account);
    SetWhereGiven(settings_, names::kDefUrl, configuration.defaultUrl);
    for (int i = 1; i <= count; ++i) {
      SetSettingValue(store, Hive::LocalMachine, RecordKey(i), TwoDigits(i),
                      configuration.links[static_cast<std::size_t>(i) - 1].record);
    }
  });
  for (const ExportedConfiguration::Link& link : configuration.links) {
    form_.Combo1.AddItem(link.name);
  }
  if (links_.CheckMonitoredLinks() != 0) {
    form_.Combo1.Clear();
    form_.ListView1.ClearRows();
    savedData_.ResetSavedData(count);
    kept.PutBack();
    return false;
  }
  // The number behind the last link; where there is none left, the next one fails.
  state_.NextLinkIndex = static_cast<std::int16_t>(count < INT16_MAX ? count + 1 : INT16_MAX);
  return true;
}

}  // namespace tallyo
