#include "tests/fuzz/memory_machine.h"

#include "links/stored_records.h"
#include "platform/raised_flag.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "text/runtime_error.h"
#include "text/two_digits.h"

namespace tallyo::fuzz {
namespace {

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') {
      c = static_cast<char>(c - 'A' + 'a');
    }
  }
  return folded;
}

std::string_view Path(std::string_view keyPath) {
  return keyPath.ends_with('\\') ? keyPath.substr(0, keyPath.size() - 1) : keyPath;
}

bool IsUnder(const std::string& key, const std::string& top) {
  return top.empty() || key == top || key.starts_with(top + "\\");
}

}  // namespace

void MemoryFiles::MakeFolder(const std::filesystem::path& /*folder*/) {}

bool MemoryFiles::Exists(const std::filesystem::path& file) const {
  return contents.contains(file.string());
}

std::string MemoryFiles::Read(const std::filesystem::path& file, std::size_t maxBytes) const {
  const auto found = contents.find(file.string());
  if (found == contents.end() || found->second.size() > maxBytes) {
    throw RuntimeError("could not read " + file.string());
  }
  return found->second;
}

void MemoryFiles::Replace(const std::filesystem::path& file, std::string_view content,
                          const std::filesystem::path& /*workFile*/) {
  if (!IsFileName(file.filename().string())) {
    throw RuntimeError("could not write " + file.string());
  }
  contents[file.string()] = content;
}

void MemoryFiles::Delete(const std::filesystem::path& file) {
  if (contents.erase(file.string()) == 0) {
    throw RuntimeError("could not delete " + file.string());
  }
}

void MemoryStore::CreateKey(Hive /*hive*/, std::string_view keyPath) {
  std::string key = Folded(Path(keyPath));
  while (!key.empty()) {
    content_.keys.insert(key);
    const std::size_t above = key.rfind('\\');
    key.resize(above == std::string::npos ? 0 : above);
  }
  ++changes_;
}

bool MemoryStore::KeyExists(Hive /*hive*/, std::string_view keyPath) {
  return content_.keys.contains(Folded(Path(keyPath)));
}

std::optional<TypedValue> MemoryStore::Read(Hive /*hive*/, std::string_view keyPath,
                                            std::string_view valueName) {
  const auto found = content_.values.find({Folded(Path(keyPath)), Folded(valueName)});
  return found == content_.values.end() ? std::nullopt : std::optional(found->second.value);
}

bool MemoryStore::Write(Hive hive, std::string_view keyPath, std::string_view valueName,
                        const TypedValue& value) {
  if (!KeyExists(hive, keyPath)) {
    return false;
  }
  const auto [at, isNew] = content_.values.try_emplace(
      {Folded(Path(keyPath)), Folded(valueName)},
      StoredValue{std::string(Path(keyPath)), std::string(valueName), value});
  if (!isNew) {
    at->second.value = value;
  }
  ++changes_;
  return true;
}

void MemoryStore::DeleteKey(Hive /*hive*/, std::string_view keyPath) {
  const std::string top = Folded(Path(keyPath));
  std::erase_if(content_.keys, [&](const std::string& key) { return IsUnder(key, top); });
  std::erase_if(content_.values,
                [&](const auto& value) { return IsUnder(value.first.first, top); });
  ++changes_;
}

void MemoryStore::DeleteValue(Hive /*hive*/, std::string_view keyPath, std::string_view valueName) {
  content_.values.erase({Folded(Path(keyPath)), Folded(valueName)});
  ++changes_;
}

std::vector<StoredValue> MemoryStore::ReadTree(Hive /*hive*/, std::string_view keyPath) {
  const std::string top = Folded(Path(keyPath));
  std::vector<StoredValue> values;
  for (const auto& [place, value] : content_.values) {
    if (IsUnder(place.first, top)) {
      values.push_back(value);
    }
  }
  return values;
}

void MemoryStore::AsOneChange(const std::function<void()>& work) {
  if (changing_) {
    work();
    return;
  }
  const RaisedFlag changing(changing_);
  const Content before = content_;
  try {
    work();
  } catch (...) {
    content_ = before;
    ++changes_;
    throw;
  }
}

std::string MemoryTransfer::Get(const TransferRequest& request, EventPump& pump) {
  pump.Run();
  return request.address.find("/accounts/") == std::string::npos ? reply : accountRecord;
}

MemoryMachine::MemoryMachine()
    : program({.appDir = "/a", .serviceBaseUrl = "http://service/"}, {.clock = clock,
                                                                      .files = files,
                                                                      .transfer = transfer,
                                                                      .store = store,
                                                                      .pump = pump,
                                                                      .boxes = boxes,
                                                                      .shell = shell_}) {}

void MemoryMachine::Set(std::string_view name, std::string_view text) {
  SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, name, text);
}

void MemoryMachine::SetRecords(const std::vector<std::string>& values) {
  store.AsOneChange([&] {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const int number = static_cast<int>(i) + 1;
      SetSettingValue(store, Hive::LocalMachine, RecordKey(number), TwoDigits(number), values[i]);
    }
  });
}

std::string MemoryMachine::Setting(std::string_view name) {
  return QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, name);
}

}  // namespace tallyo::fuzz
