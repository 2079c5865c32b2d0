#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/raised_flag.h"
#include "settings/settings_store.h"
#include "tests/support/fault_plan.h"

namespace tallyo::test {

enum class StoreFault {
  None,
  Full,        // a statement that changes something, or the end of a change, finds no space
  Busy,        // a change cannot begin, since another program holds the store
  Unreadable,  // a read finds nothing
};

// Another store, some calls to which fail, with what SettingsStore promises of failures: a change
// is lost as a whole, and its work goes on.
class FailingStore final : public SettingsStore {
 public:
  FailingStore(SettingsStore& real, FaultPlan& plan, StoreFault fault)
      : real_(real), plan_(plan), fault_(fault) {}

  void CreateKey(Hive hive, std::string_view keyPath) override {
    if (MayChange()) real_.CreateKey(hive, keyPath);
  }
  [[nodiscard]] bool KeyExists(Hive hive, std::string_view keyPath) override {
    return MayRead() && real_.KeyExists(hive, keyPath);
  }
  [[nodiscard]] std::optional<TypedValue> Read(Hive hive, std::string_view keyPath,
                                               std::string_view valueName) override {
    return MayRead() ? real_.Read(hive, keyPath, valueName) : std::nullopt;
  }
  bool Write(Hive hive, std::string_view keyPath, std::string_view valueName,
             const TypedValue& value) override {
    return MayChange() && real_.Write(hive, keyPath, valueName, value);
  }
  void DeleteKey(Hive hive, std::string_view keyPath) override {
    if (MayChange()) real_.DeleteKey(hive, keyPath);
  }
  void DeleteValue(Hive hive, std::string_view keyPath, std::string_view valueName) override {
    if (MayChange()) real_.DeleteValue(hive, keyPath, valueName);
  }
  [[nodiscard]] std::vector<StoredValue> ReadTree(Hive hive, std::string_view keyPath) override {
    return MayRead() ? real_.ReadTree(hive, keyPath) : std::vector<StoredValue>();
  }
  [[nodiscard]] bool Readable() const override { return real_.Readable(); }
  [[nodiscard]] StoreStamp Stamp() override {
    StoreStamp stamp = real_.Stamp();
    stamp.own += failures_;
    return stamp;
  }
  [[nodiscard]] StoreStamp StampBelow(Hive hive, std::string_view keyPath) override {
    StoreStamp stamp = real_.StampBelow(hive, keyPath);
    stamp.own += failures_;
    return stamp;
  }
  void AsOneChange(const std::function<void()>& work) override {
    if (inChange_) {
      work();
      return;
    }
    const RaisedFlag inChange(inChange_);
    lost_ = Strikes(StoreFault::Busy);
    try {
      real_.AsOneChange([&] {
        work();
        if (lost_ || Strikes(StoreFault::Full)) throw Lost();
      });
    } catch (const Lost&) {
      ++failures_;
    }
    lost_ = false;
  }

 private:
  struct Lost {};

  [[nodiscard]] bool Strikes(StoreFault fault) { return fault_ == fault && plan_.Strikes(); }
  [[nodiscard]] bool MayChange() {
    if (lost_ || Strikes(StoreFault::Full))
      lost_ = inChange_;
    else
      return true;
    return false;
  }
  [[nodiscard]] bool MayRead() {
    if (!Strikes(StoreFault::Unreadable)) return true;
    lost_ = inChange_;
    ++failures_;
    return false;
  }

  SettingsStore& real_;
  FaultPlan& plan_;
  StoreFault fault_;
  bool inChange_ = false;
  bool lost_ = false;
  int failures_ = 0;
};

}  // namespace tallyo::test
