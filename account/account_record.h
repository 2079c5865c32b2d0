#pragma once

#include <optional>
#include <string_view>

namespace tallyo {

struct AccountPair {
  std::string_view key;
  std::string_view value;
};

// Walks through an account's record: "key=value" pairs with a "," between them and one terminating
// character behind the last value. Nothing is trimmed or unescaped. The text must outlive the walk.
class AccountRecord {
 public:
  explicit AccountRecord(std::string_view text) : rest_(text) {}

  // The next pair; nothing when the text is used up. Throws RuntimeError where text is left but no
  // "=" in it; before that, a part without "=" belongs to the key that follows it.
  [[nodiscard]] std::optional<AccountPair> Next();

 private:
  std::string_view rest_;
};

}  // namespace tallyo
