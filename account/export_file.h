#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyo {

// What an export file holds for the program.
struct ExportedConfiguration {
  std::optional<std::string> user;  // where a header line named it, and so for the others
  std::optional<std::string> account;
  std::optional<std::string> defaultUrl;

  struct Link {
    std::string record;
    std::string name;
  };
  std::vector<Link> links;
};

// Why a file is not loaded, as the text that the person is told.
class LoadRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads the text of an export file: header lines up to and including the one that holds "dfu", then
// two lines for each link.
class ExportFileReader {
 public:
  struct Answers {
    std::string company;                                          // what the file's "usr" must be
    std::string account;                                          // what its "acc" must be
    std::function<bool(const std::string& line)> acceptsVersion;  // asked for every ";" line
    std::function<void(const std::string& hours)> showInterval;   // told every "upd" and "dfu"
  };

  explicit ExportFileReader(Answers answers) : answers_(std::move(answers)) {}

  // Throws LoadRefused with "Wrong Account" or "Load aborted by user", and RuntimeError for a text
  // that is no export file: a header line without "=", an end after a link's first line, NUL bytes,
  // more than 32,767 links.
  [[nodiscard]] ExportedConfiguration Read(std::string_view text);

 private:
  void ReadHeaderLine(std::string_view line);
  void TakePair(std::string_view key, std::string value);

  Answers answers_;
  ExportedConfiguration read_;
  bool inHeader_ = true;
};

}  // namespace tallyo
