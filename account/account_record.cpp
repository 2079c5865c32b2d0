#include "account/account_record.h"

#include "text/runtime_error.h"

namespace tallyo {

std::optional<AccountPair> AccountRecord::Next() {
  if (rest_.empty()) {
    return std::nullopt;
  }
  const std::size_t equals = rest_.find('=');
  if (equals == std::string_view::npos) {
    throw RuntimeError("the account record has a part without \"=\"");
  }
  AccountPair pair{.key = rest_.substr(0, equals), .value = {}};
  rest_.remove_prefix(equals + 1);
  const std::size_t comma = rest_.find(',');
  if (comma == std::string_view::npos) {
    pair.value = rest_.substr(0, rest_.empty() ? 0 : rest_.size() - 1);
    rest_ = {};
  } else {
    pair.value = rest_.substr(0, comma);
    rest_.remove_prefix(comma + 1);
  }
  return pair;
}

}  // namespace tallyo
