#include "cli/csv.h"

#include <ostream>

#include "text/runtime_error.h"
#include "text/shown_text.h"

namespace tallyo {
namespace {

std::string Quoted(const std::string& field) {
  std::string text = ShownText(field);
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    return text;
  }
  for (std::size_t at = text.find('"'); at != std::string::npos; at = text.find('"', at + 2)) {
    text.insert(at, 1, '"');
  }
  return '"' + text + '"';
}

// Takes a quoted field, whose opening quote is gone, off the front of the line.
std::string TakeQuoted(std::string_view& line) {
  std::string field;
  for (;;) {
    const std::size_t quote = line.find('"');
    if (quote == std::string_view::npos) {
      throw RuntimeError("a quote is not closed");
    }
    field += line.substr(0, quote);
    line.remove_prefix(quote + 1);
    if (!line.starts_with('"')) {
      return field;
    }
    field += '"';
    line.remove_prefix(1);
  }
}

std::string TakePlain(std::string_view& line) {
  const std::string_view field = line.substr(0, line.find(','));
  if (field.find('"') != std::string_view::npos) {
    throw RuntimeError("a quote stands inside a field");
  }
  line.remove_prefix(field.size());
  return std::string(field);
}

}  // namespace

void PrintCsvRow(std::ostream& out, const std::vector<std::string>& fields) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    out << (i == 0 ? "" : ",") << Quoted(fields[i]);
  }
  out << '\n';
}

std::vector<std::string> CsvFields(std::string_view line) {
  std::vector<std::string> fields;
  for (;;) {
    if (line.starts_with('"')) {
      line.remove_prefix(1);
      fields.push_back(TakeQuoted(line));
    } else {
      fields.push_back(TakePlain(line));
    }
    if (line.empty()) {
      return fields;
    }
    if (!line.starts_with(',')) {
      throw RuntimeError("something stands behind a quoted field");
    }
    line.remove_prefix(1);
  }
}

}  // namespace tallyo
