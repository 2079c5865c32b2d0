// The least that a console command needs which only reads: open the settings store, read all its
// values, read the file that the command reads, and print what the command prints.
// Usage: console-floor STORE FILE EXPECTED

#include <sqlite3.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

namespace {

// Whether every value could be read.
bool ReadStore(const std::string& file) {
  sqlite3* store = nullptr;
  sqlite3_stmt* select = nullptr;
  int result = sqlite3_open_v2(("file:" + file + "?immutable=1").c_str(), &store,
                               SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  if (result == SQLITE_OK) {
    result = sqlite3_prepare_v2(store,
                                R"(SELECT path, name, type, data FROM keys JOIN "values" ON key = id
                                   ORDER BY path, name)",
                                -1, &select, nullptr);
  }
  std::string value;
  while (result == SQLITE_OK && sqlite3_step(select) == SQLITE_ROW) {
    value.assign(static_cast<const char*>(sqlite3_column_blob(select, 3)),
                 static_cast<std::size_t>(sqlite3_column_bytes(select, 3)));
  }
  const bool read = result == SQLITE_OK && !value.empty();
  sqlite3_finalize(select);
  sqlite3_close(store);
  return read;
}

std::string ReadAll(const char* file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "Usage: console-floor STORE FILE EXPECTED\n";
    return 2;
  }
  if (!ReadStore(argv[1]) || ReadAll(argv[2]).empty()) {
    std::cerr << "console-floor: nothing to read\n";
    return 1;
  }
  std::cout << ReadAll(argv[3]);
}
