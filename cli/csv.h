#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace tallyo {

// One row of comma-separated values: fields that hold a comma, a quote or a line end are quoted,
// quotes inside them doubled. Bytes that are no UTF-8 are written as what they show. The line ends
// with a line feed.
void PrintCsvRow(std::ostream& out, const std::vector<std::string>& fields);

// The fields of one line (without its end), with the same quoting; blanks around a field stay.
// Throws RuntimeError for a quote that is not closed or stands inside an unquoted field.
[[nodiscard]] std::vector<std::string> CsvFields(std::string_view line);

}  // namespace tallyo
