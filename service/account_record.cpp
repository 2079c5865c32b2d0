#include "service/account_record.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <ctime>

#include "service/plain_text.h"

namespace tallyo::service {

namespace {

int NumberAt(std::string_view text, std::size_t begin, std::size_t length) {
  int number = 0;
  std::from_chars(text.data() + begin, text.data() + begin + length, number);
  return number;
}

std::string WhyNameIsRefused(std::string_view name) {
  if (name.empty()) return "is empty";
  if (HoldsControlBytes(name)) return "holds a control byte";
  if (name.find(',') != std::string_view::npos) return "holds a comma";
  return "";
}

}  // namespace

std::string RecordLine(const AccountRecord& record) {
  std::string line = "opn=" + record.opened;
  line += ",max=" + std::to_string(record.maxLinks);
  line += ",exp=" + record.goodThrough;
  line += record.banned ? ",ban=yes" : ",ban=no";
  line += ",com=" + record.company;
  line += ",acc=" + record.name;
  return line + "\n";
}

std::string WhyAccountNameIsRefused(std::string_view name) {
  if (name.find_first_of("/\\") != std::string_view::npos) return "holds a slash";
  // An address could not say where such a name ends.
  if (name.find("&action=") != std::string_view::npos) return "holds \"&action=\"";
  if (name.find("&flnk=") != std::string_view::npos) return "holds \"&flnk=\"";
  return WhyNameIsRefused(name);
}

std::string WhyCompanyIsRefused(std::string_view company) { return WhyNameIsRefused(company); }

bool IsRealDate(std::string_view text) {
  constexpr std::string_view kForm = "mm/dd/yyyy";
  if (text.size() != kForm.size()) return false;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '/' ? text[i] != '/' : !digit) return false;
  }
  const std::chrono::year_month_day day{
      std::chrono::year(NumberAt(text, 6, 4)),
      std::chrono::month(static_cast<unsigned>(NumberAt(text, 0, 2))),
      std::chrono::day(static_cast<unsigned>(NumberAt(text, 3, 2)))};
  return day.ok() && day.year() > std::chrono::year(0);
}

std::string TodaysDate() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 16> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%m/%d/%Y", &local);
  return {text.data(), length};
}

}  // namespace tallyo::service
