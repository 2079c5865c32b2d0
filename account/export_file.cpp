#include "account/export_file.h"

#include <algorithm>
#include <utility>

#include "text/leading_number.h"
#include "text/lines.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

constexpr std::size_t kMostLinks = 32767;

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view Take(Lines& lines) {
  const std::optional<std::string_view> line = lines.Next();
  if (!line) {
    throw RuntimeError("the file ends inside a link");
  }
  return *line;
}

}  // namespace

ExportedConfiguration ExportFileReader::Read(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) {
    throw RuntimeError("the file holds NUL bytes");
  }
  read_ = {};
  inHeader_ = true;
  Lines lines(text);
  while (const std::optional<std::string_view> line = lines.Next()) {
    if (inHeader_) {
      ReadHeaderLine(*line);
    } else if (!line->empty()) {
      if (read_.links.size() == kMostLinks) {
        throw RuntimeError("the file holds too many links");
      }
      const std::string_view name = Take(lines);
      read_.links.push_back({std::string(*line), std::string(name)});
    }
  }
  return std::exchange(read_, {});
}

void ExportFileReader::ReadHeaderLine(std::string_view line) {
  if (line.starts_with(';')) {
    if (!answers_.acceptsVersion(std::string(line))) {
      throw LoadRefused("Load aborted by user");
    }
    return;
  }
  while (!line.empty()) {
    // The "=" is looked for in all that is left of the line, also behind this pair's end.
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
      throw RuntimeError("a header line without \"=\"");
    }
    const std::size_t end = std::min(line.find(','), line.size());
    const std::string_view pair = line.substr(0, end);
    const std::string_view key = Trimmed(pair.substr(0, equals));
    const std::string_view value =
        equals < pair.size() ? Trimmed(pair.substr(equals + 1)) : std::string_view();
    line = end < line.size() ? Trimmed(line.substr(end + 1)) : std::string_view();
    TakePair(key, std::string(value));
  }
}

void ExportFileReader::TakePair(std::string_view key, std::string value) {
  if (key == "usr" || key == "acc") {
    const bool isUser = key == "usr";
    if (value != (isUser ? answers_.company : answers_.account)) {
      throw LoadRefused("Wrong Account");
    }
    (isUser ? read_.user : read_.account) = std::move(value);
  } else if (key == "upd") {
    answers_.showInterval(LeadingNumber(value) < 0.5 ? "0.5" : value);
  } else if (key == "dfu") {
    // The default URL goes into the interval box too: that is what people get, and correct there.
    answers_.showInterval(value);
    read_.defaultUrl = std::move(value);
    inHeader_ = false;
  }
}

}  // namespace tallyo
