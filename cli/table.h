#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

#include "cli/console_options.h"

namespace tallyo {

enum class Align { Left, Right };

// One column of a result: how a person reads it, and its field name in JSON.
struct TableColumn {
  std::string heading;
  std::string field;
  Align align = Align::Left;
};

// A result of rows, as an aligned table or as a JSON array of objects.
class Table {
 public:
  explicit Table(std::vector<TableColumn> columns) : columns_(std::move(columns)) {}

  // As many cells as columns, raw texts.
  void AddRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

  // As the console's options want it; an empty table is said to be so in words.
  void Print(const Console& console, const std::string& whenEmpty) const;

  // As comma-separated values with a heading line of the field names.
  void PrintCsv(std::ostream& out) const;

 private:
  void PrintText(std::ostream& out) const;
  void PrintJson(std::ostream& out) const;

  std::vector<TableColumn> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace tallyo
