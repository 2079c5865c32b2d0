#include "service/account_commands.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "service/account_store.h"
#include "service/schema.h"

namespace tallyo::service {

namespace {

using Row = std::array<std::string, 7>;

Row RowOf(const ListedAccount& account) {
  const AccountRecord& record = account.record;
  return {record.name,
          record.company,
          std::to_string(account.links),
          std::to_string(record.maxLinks),
          record.opened,
          record.goodThrough,
          record.banned ? "yes" : "no"};
}

// The number of characters of UTF-8 text: the bytes that do not continue another one.
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char letter) {
    return (static_cast<unsigned char>(letter) & 0xC0U) != 0x80U;
  }));
}

std::string TableText(const std::vector<Row>& rows) {
  std::array<std::size_t, std::tuple_size_v<Row>> widths{};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      widths.at(i) = std::max(widths.at(i), Width(row.at(i)));
  }
  std::string text;
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row.at(i) + std::string(widths.at(i) - Width(row.at(i)) + 2, ' ');
    }
    text += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
  }
  return text;
}

// A client takes a record that holds "404" anywhere for a missing account.
void WarnOfUnreadableRecord(const AccountRecord& record, std::ostream& err) {
  if (RecordLine(record).find("404") == std::string::npos) return;
  err << "tallyo-service: warning: the record of " << record.name
      << " holds \"404\", which clients take for \"not found\"\n";
}

}  // namespace

int Run(const std::filesystem::path& file, const AddAccount& command, std::ostream& err) {
  Database database = OpenDatabase(file, Database::WhenMissing::Create);
  if (!AccountStore(database).Add(command.record)) {
    err << "tallyo-service: the account " << command.record.name << " exists already\n";
    return 1;
  }
  WarnOfUnreadableRecord(command.record, err);
  return 0;
}

std::string AccountTable(const std::filesystem::path& file) {
  Database database = OpenDatabase(file, Database::WhenMissing::Fail);
  std::vector<Row> rows{{"account", "company", "links", "max", "opened", "good through", "banned"}};
  for (const ListedAccount& account : AccountStore(database).List()) rows.push_back(RowOf(account));
  return TableText(rows);
}

int Run(const std::filesystem::path& file, const SetAccount& command, std::ostream& err) {
  Database database = OpenDatabase(file, Database::WhenMissing::Fail);
  AccountStore accounts(database);
  if (!accounts.Change(command.name, command.change)) {
    err << "tallyo-service: there is no account " << command.name << "\n";
    return 1;
  }
  if (const auto record = accounts.Find(command.name)) WarnOfUnreadableRecord(*record, err);
  return 0;
}

}  // namespace tallyo::service
