#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyo {

// The root of a key path. All of the program's settings are the machine's.
enum class Hive : std::uint32_t { LocalMachine = 0x80000002U };

// The types of value that the program understands; a store may hold others.
inline constexpr std::uint32_t kStringType = 1;
inline constexpr std::uint32_t kNumberType = 4;

struct TypedValue {
  std::uint32_t type = kStringType;
  std::string data;  // raw bytes

  bool operator==(const TypedValue&) const = default;
};

struct StoredValue {
  std::string key;  // full path in the spelling it was created with
  std::string name;
  TypedValue value;
};

// Equal stamps mean that nobody, this program or another, has changed the store in between.
struct StoreStamp {
  std::int64_t others = 0;  // moves with every commit of another connection
  std::int64_t own = 0;     // moves with every change through this store

  bool operator==(const StoreStamp&) const = default;
};

// Typed values under key paths, "\" between the keys; one trailing "\" of a path is ignored. Key
// paths and value names are compared without regard to ASCII case and keep the spelling they were
// first written with. A value name is no path, whatever it holds. No operation throws: where the
// store cannot be opened or read, nothing is found, and where it cannot be written, changes are
// lost.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // Creates the key and all missing keys above it.
  virtual void CreateKey(Hive hive, std::string_view keyPath) = 0;
  [[nodiscard]] virtual bool KeyExists(Hive hive, std::string_view keyPath) = 0;

  [[nodiscard]] virtual std::optional<TypedValue> Read(Hive hive, std::string_view keyPath,
                                                       std::string_view valueName) = 0;

  // Writes into an existing key; false where the key is missing or the write is lost.
  virtual bool Write(Hive hive, std::string_view keyPath, std::string_view valueName,
                     const TypedValue& value) = 0;

  // Deletes the key with its values and all keys below it.
  virtual void DeleteKey(Hive hive, std::string_view keyPath) = 0;
  virtual void DeleteValue(Hive hive, std::string_view keyPath, std::string_view valueName) = 0;

  // All values of the key and of the keys below it, in one read, ordered by key and name. The empty
  // path stands for the whole hive.
  [[nodiscard]] virtual std::vector<StoredValue> ReadTree(Hive hive, std::string_view keyPath) = 0;

  // False where there is a store that cannot be opened: that nothing is found then says nothing.
  [[nodiscard]] virtual bool Readable() const { return true; }

  [[nodiscard]] virtual StoreStamp Stamp() = 0;

  // A stamp that may also stay equal where only keys outside of keyPath, and above it, have
  // changed.
  [[nodiscard]] virtual StoreStamp StampBelow(Hive /*hive*/, std::string_view /*keyPath*/) {
    return Stamp();
  }

  // Runs the work as one change: another program sees all of it or nothing, and what the work reads
  // cannot change under it. Called inside another one it joins that. What the work throws passes
  // through, and the change is undone.
  virtual void AsOneChange(const std::function<void()>& work) = 0;
};

}  // namespace tallyo
