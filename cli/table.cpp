#include "cli/table.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <utility>

#include "cli/csv.h"
#include "cli/json_output.h"
#include "cli/safe_text.h"

namespace tallyo {
namespace {

constexpr const char* kGap = "  ";

std::string Padded(const std::string& text, std::size_t width, Align align) {
  const std::size_t used = Columns(text);
  const std::string pad(width > used ? width - used : 0, ' ');
  return align == Align::Right ? pad + text : text + pad;
}

}  // namespace

void Table::Print(const Console& console, const std::string& whenEmpty) const {
  if (console.options.json) {
    PrintJson(console.out);
  } else if (rows_.empty()) {
    console.out << whenEmpty << '\n';
  } else {
    PrintText(console.out);
  }
}

void Table::PrintCsv(std::ostream& out) const {
  std::vector<std::string> fields;
  std::ranges::transform(columns_, std::back_inserter(fields), &TableColumn::field);
  PrintCsvRow(out, fields);
  for (const std::vector<std::string>& row : rows_) {
    PrintCsvRow(out, row);
  }
}

void Table::PrintText(std::ostream& out) const {
  std::vector<std::vector<std::string>> lines(1);
  for (const TableColumn& column : columns_) {
    lines.front().push_back(column.heading);
  }
  for (const std::vector<std::string>& row : rows_) {
    std::vector<std::string>& line = lines.emplace_back();
    std::ranges::transform(row, std::back_inserter(line), OneLine);
  }
  std::vector<std::size_t> widths(columns_.size(), 0);
  for (const auto& line : lines) {
    for (std::size_t c = 0; c < widths.size(); ++c) {
      widths[c] = std::max(widths[c], Columns(line[c]));
    }
  }
  for (const auto& line : lines) {
    std::string text;
    for (std::size_t c = 0; c < widths.size(); ++c) {
      text += (c == 0 ? "" : kGap) + Padded(line[c], widths[c], columns_[c].align);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  }
}

void Table::PrintJson(std::ostream& out) const {
  Json document = Json::array();
  for (const std::vector<std::string>& row : rows_) {
    Json object = Json::object();
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      object[columns_[c].field] = JsonText(row[c]);
    }
    document.push_back(std::move(object));
  }
  PrintDocument(out, document);
}

}  // namespace tallyo
