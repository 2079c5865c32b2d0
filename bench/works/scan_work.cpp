// Scans of the page that scan_floor.cpp looks through. Usage: scan-work

#include <iostream>

#include "bench/made_page.h"
#include "bench/rounds.h"
#include "links/link_scanner.h"

int main() {
  const std::string page = tallyo::bench::MadePage();
  tallyo::FoundLinks found;
  tallyo::bench::ServeRounds([&] { found = tallyo::ScanLinks(page, "http://files.example/"); },
                             [&] {
                               if (found.links.size() != 100'000) {
                                 std::cerr << "scan-work: not all links found\n";
                                 std::exit(1);
                               }
                               found = {};
                             });
}
