#pragma once

#include <string>
#include <string_view>

namespace tallyo::service {

inline constexpr int kMostLinksOfAnAccount = 32767;

// The terms of one account. Dates are "mm/dd/yyyy".
struct AccountRecord {
  std::string name;
  std::string company;
  int maxLinks = 0;  // 0 to kMostLinksOfAnAccount
  std::string opened;
  std::string goodThrough;
  bool banned = false;
};

// The record as clients read it: one line of pairs with its "\n".
[[nodiscard]] std::string RecordLine(const AccountRecord& record);

// Why a text cannot stand in a record or an address as an account's or a company's name; empty
// where it can.
[[nodiscard]] std::string WhyAccountNameIsRefused(std::string_view name);
[[nodiscard]] std::string WhyCompanyIsRefused(std::string_view company);

// Whether the text is a day of the calendar, exactly as "mm/dd/yyyy".
[[nodiscard]] bool IsRealDate(std::string_view text);

// Today's local date as "mm/dd/yyyy".
[[nodiscard]] std::string TodaysDate();

}  // namespace tallyo::service
