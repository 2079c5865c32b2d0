#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace tallyo::bench {

// The whole file. Throws std::runtime_error where there is none.
inline std::string FileText(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  if (!in) {
    throw std::runtime_error(file.string() + " cannot be read");
  }
  return text.str();
}

// Writes the whole file; throws std::runtime_error where that fails.
inline void WriteText(const std::filesystem::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  out.close();
  if (!out) {
    throw std::runtime_error(file.string() + " cannot be written");
  }
}

}  // namespace tallyo::bench
