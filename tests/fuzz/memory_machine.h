#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/program.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_boxes.h"
#include "tests/support/test_pump.h"

namespace tallyo::fuzz {

// Files that live in memory. Every folder is there.
class MemoryFiles final : public Files {
 public:
  std::map<std::string, std::string> contents;  // by path

  using Files::Read;
  void MakeFolder(const std::filesystem::path& folder) override;
  [[nodiscard]] bool Exists(const std::filesystem::path& file) const override;
  [[nodiscard]] std::string Read(const std::filesystem::path& file,
                                 std::size_t maxBytes) const override;
  void Replace(const std::filesystem::path& file, std::string_view content,
               const std::filesystem::path& workFile) override;
  void Delete(const std::filesystem::path& file) override;
};

// Settings that live in memory.
class MemoryStore final : public SettingsStore {
 public:
  void CreateKey(Hive hive, std::string_view keyPath) override;
  [[nodiscard]] bool KeyExists(Hive hive, std::string_view keyPath) override;
  [[nodiscard]] std::optional<TypedValue> Read(Hive hive, std::string_view keyPath,
                                               std::string_view valueName) override;
  bool Write(Hive hive, std::string_view keyPath, std::string_view valueName,
             const TypedValue& value) override;
  void DeleteKey(Hive hive, std::string_view keyPath) override;
  void DeleteValue(Hive hive, std::string_view keyPath, std::string_view valueName) override;
  [[nodiscard]] std::vector<StoredValue> ReadTree(Hive hive, std::string_view keyPath) override;
  [[nodiscard]] StoreStamp Stamp() override { return {.others = 0, .own = changes_}; }
  void AsOneChange(const std::function<void()>& work) override;

 private:
  struct Content {
    std::set<std::string> keys;
    std::map<std::pair<std::string, std::string>, StoredValue> values;  // by key and name
  };

  Content content_;
  std::int64_t changes_ = 0;
  bool changing_ = false;
};

// A service that answers at once: with the account's record, and with the reply to everything else.
class MemoryTransfer final : public HttpTransfer {
 public:
  std::string accountRecord;
  std::string reply;

  [[nodiscard]] std::string Get(const TransferRequest& request, EventPump& pump) override;
  void Cancel() override {}
};

// The whole program on a machine without disk, network and person. It is not started yet.
class MemoryMachine {
 public:
  MemoryMachine();

  // Puts texts into the settings store before the program starts.
  void Set(std::string_view name, std::string_view text);
  void SetRecords(const std::vector<std::string>& values);
  [[nodiscard]] std::string Setting(std::string_view name);

  test::FakeClock clock;  // 2026-01-15 12:00:00
  MemoryFiles files;
  MemoryStore store;
  MemoryTransfer transfer;
  test::TestPump pump;
  test::ScriptedBoxes boxes{pump};

 private:
  struct NoShell final : Shell {
    void Open(const std::filesystem::path& /*document*/) override {}
    void RunAtLogon(bool /*run*/) override {}
  };
  NoShell shell_;

 public:
  Program program;
};

}  // namespace tallyo::fuzz
