#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/program.h"
#include "links/stored_records.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "tests/support/fake_clock.h"
#include "tests/support/recording_shell.h"
#include "tests/support/scripted_boxes.h"
#include "tests/support/test_pump.h"
#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo::fuzz {

// Files that live in memory. Every folder is there.
class MemoryFiles final : public Files {
 public:
  std::map<std::string, std::string> contents;  // by path

  using Files::Read;
  void MakeFolder(const std::filesystem::path& /*folder*/) override {}
  [[nodiscard]] bool Exists(const std::filesystem::path& file) const override {
    return contents.contains(file.string());
  }
  [[nodiscard]] std::string Read(const std::filesystem::path& file,
                                 std::size_t maxBytes) const override {
    const auto found = contents.find(file.string());
    if (found == contents.end() || found->second.size() > maxBytes) {
      throw RuntimeError("could not read " + file.string());
    }
    return found->second;
  }
  void Replace(const std::filesystem::path& file, std::string_view content,
               const std::filesystem::path& /*workFile*/) override {
    if (!IsFileName(file.filename().string())) {
      throw RuntimeError("could not write " + file.string());
    }
    contents[file.string()] = content;
  }
  void Delete(const std::filesystem::path& file) override {
    if (contents.erase(file.string()) == 0) {
      throw RuntimeError("could not delete " + file.string());
    }
  }
};

// Settings that live in memory. Every key is there, and all are spelled in one way.
class MemoryStore final : public SettingsStore {
 public:
  void CreateKey(Hive /*hive*/, std::string_view /*keyPath*/) override {}
  [[nodiscard]] bool KeyExists(Hive /*hive*/, std::string_view /*keyPath*/) override {
    return true;
  }
  [[nodiscard]] std::optional<TypedValue> Read(Hive /*hive*/, std::string_view keyPath,
                                               std::string_view valueName) override {
    const auto found = values_.find(PlaceOf(keyPath, valueName));
    return found == values_.end() ? std::nullopt : std::optional(found->second);
  }
  bool Write(Hive /*hive*/, std::string_view keyPath, std::string_view valueName,
             const TypedValue& value) override {
    values_[PlaceOf(keyPath, valueName)] = value;
    ++changes_;
    return true;
  }
  void DeleteKey(Hive /*hive*/, std::string_view keyPath) override {
    std::erase_if(values_, [&](const auto& value) { return IsUnder(value.first.first, keyPath); });
    ++changes_;
  }
  void DeleteValue(Hive /*hive*/, std::string_view keyPath, std::string_view valueName) override {
    values_.erase(PlaceOf(keyPath, valueName));
    ++changes_;
  }
  [[nodiscard]] std::vector<StoredValue> ReadTree(Hive /*hive*/,
                                                  std::string_view keyPath) override {
    std::vector<StoredValue> values;
    for (const auto& [place, value] : values_) {
      if (IsUnder(place.first, keyPath)) {
        values.push_back({place.first.substr(0, place.first.size() - 1), place.second, value});
      }
    }
    return values;
  }
  [[nodiscard]] StoreStamp Stamp() override { return {.others = 0, .own = changes_}; }
  // What changed before the work threw stays.
  void AsOneChange(const std::function<void()>& work) override { work(); }

 private:
  using Place = std::pair<std::string, std::string>;  // the key with a last
                                                      // separator, the name

  static Place PlaceOf(std::string_view keyPath, std::string_view valueName) {
    return {std::string(keyPath) + (keyPath.ends_with('\\') ? "" : "\\"), std::string(valueName)};
  }
  static bool IsUnder(const std::string& key, std::string_view top) {
    return key.starts_with(PlaceOf(top, "").first);
  }

  std::map<Place, TypedValue> values_;
  std::int64_t changes_ = 0;
};

// A service that answers every request at once with the account's record.
class MemoryTransfer final : public HttpTransfer {
 public:
  std::string accountRecord;

  [[nodiscard]] std::string Get(const TransferRequest& /*request*/, EventPump& /*pump*/) override {
    return accountRecord;
  }
  void Cancel() override {}
};

// The whole program on a machine without disk, network and person. It is not started yet.
struct MemoryMachine {
  void Set(std::string_view name, std::string_view text) {
    SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, name, text);
  }
  [[nodiscard]] std::string Setting(std::string_view name) {
    return QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, name);
  }
  void SetRecords(const std::vector<std::string>& values) {
    for (int number = 1; const std::string& value : values) {
      SetSettingValue(store, Hive::LocalMachine, RecordKey(number), TwoDigits(number), value);
      ++number;
    }
  }

  test::FakeClock clock;  // 2026-01-15 12:00:00
  MemoryFiles files;
  MemoryStore store;
  MemoryTransfer transfer;
  test::TestPump pump;
  test::ScriptedBoxes boxes{pump};
  test::RecordingShell shell;
  Program program{{.appDir = "/a", .serviceBaseUrl = "http://service/"},
                  {.clock = clock,
                   .files = files,
                   .transfer = transfer,
                   .store = store,
                   .pump = pump,
                   .boxes = boxes,
                   .shell = shell}};
};

}  // namespace tallyo::fuzz
