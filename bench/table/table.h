#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

#include "bench/table/line.h"

namespace tallyo::bench {

void PrintHeading(std::ostream& out);

// A line is printed as soon as it is known.
void PrintLine(std::ostream& out, const Line& line);

// An array of objects with work, ours, floor, ratio, goal, smaller and reached; null where a line
// has no such figure. Throws std::runtime_error where the file cannot be written.
void WriteJson(const std::filesystem::path& file, const std::vector<Line>& lines);

}  // namespace tallyo::bench
