// The least that a page scan needs: one pass for the anchors and one for their ends.
// Usage: scan-floor

#include <cstring>
#include <iostream>
#include <string_view>

#include "bench/made_page.h"
#include "bench/rounds.h"

namespace {

long Count(std::string_view page, std::string_view wanted) {
  long count = 0;
  const char* at = page.data();
  const char* const end = at + page.size();
  while (const void* found =
             ::memmem(at, static_cast<std::size_t>(end - at), wanted.data(), wanted.size())) {
    at = static_cast<const char*>(found) + wanted.size();
    ++count;
  }
  return count;
}

}  // namespace

int main() {
  const std::string page = tallyo::bench::MadePage();
  tallyo::bench::ServeRounds([&] {
    if (Count(page, "<A HREF=") != 100'000 || Count(page, ">") != 200'000) {
      std::cerr << "scan-floor: not all anchors found\n";
      std::exit(1);
    }
  });
}
