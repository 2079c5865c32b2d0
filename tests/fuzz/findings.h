#pragma once

#include <string>
#include <string_view>

namespace tallyo::fuzz {

// What one reading of an input found, fact by fact, in a form that two readings can be compared in.
class Findings {
 public:
  void Note(std::string_view what, std::string_view value);
  void Note(std::string_view what, double value);
  void Count(std::string_view what, long value);

  // A line for each fact. Every byte but plain ASCII is escaped.
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// Prints both and aborts where the program found something else than the plain reading did.
void RequireSame(const Findings& program, const Findings& plain);

}  // namespace tallyo::fuzz
