#include "bench/table/table.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <ostream>
#include <stdexcept>

namespace tallyo::bench {
namespace {

using Json = nlohmann::ordered_json;
constexpr std::size_t kWorkWidth = 66;
constexpr std::size_t kFigureWidth = 11;

std::string Right(const std::string& text, std::size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

std::string Left(const std::string& text, std::size_t width) {
  return text + std::string(width > text.size() ? width - text.size() : 0, ' ');
}

// Four significant digits, or all before the point.
std::string Figure(std::optional<double> figure) {
  if (!figure) {
    return "-";
  }
  const double magnitude = std::abs(*figure);
  const int digits = magnitude >= 1000 ? 0 : magnitude >= 100 ? 1 : magnitude >= 10 ? 2 : 3;
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*f", digits, *figure);
  return text.data();
}

std::string Ratio(std::optional<double> ratio) {
  if (!ratio) {
    return "-";
  }
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.2f", *ratio);
  return text.data();
}

std::string Goal(const Line& line) {
  return line.goal ? (line.smaller ? "<= " : ">= ") + Ratio(line.goal) : "-";
}

Json Number(std::optional<double> figure) { return figure ? Json(*figure) : Json(nullptr); }

}  // namespace

void PrintHeading(std::ostream& out) {
  out << " #  " << Left("work", kWorkWidth) << Right("ours", kFigureWidth)
      << Right("floor", kFigureWidth) << Right("ratio", 8) << Right("goal", 9) << "  reached"
      << std::endl;
}

void PrintLine(std::ostream& out, const Line& line) {
  out << Right(std::to_string(line.number), 2) << "  " << Left(line.work, kWorkWidth);
  if (!line.failure.empty()) {
    out << "  failed: " << line.failure << std::endl;
    return;
  }
  out << Right(Figure(line.ours), kFigureWidth) << Right(Figure(line.floor), kFigureWidth)
      << Right(Ratio(line.Ratio()), 8) << Right(Goal(line), 9) << "  "
      << (!line.goal       ? "-"
          : line.Reached() ? "yes"
                           : "no")
      << std::endl;
}

void WriteJson(const std::filesystem::path& file, const std::vector<Line>& lines) {
  Json document = Json::array();
  for (const Line& line : lines) {
    document.push_back({{"work", line.work},
                        {"ours", Number(line.ours)},
                        {"floor", Number(line.floor)},
                        {"ratio", Number(line.Ratio())},
                        {"goal", Number(line.goal)},
                        {"smaller", line.smaller},
                        {"reached", line.Reached()}});
  }
  std::ofstream out(file);
  out << document.dump(2) << '\n';
  out.close();
  if (!out) {
    throw std::runtime_error(file.string() + " cannot be written");
  }
}

}  // namespace tallyo::bench
