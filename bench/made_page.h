#pragma once

#include <string>

namespace tallyo::bench {

// A page of 10 MB with 100,000 links.
inline std::string MadePage() {
  constexpr std::size_t kBytesForEach = 100;
  constexpr int kAnchors = 100'000;
  std::string page;
  for (int i = 1; i <= kAnchors; ++i) {
    std::string link = "<A HREF=\"http://files.example/pub/manual-" + std::to_string(i) +
                       ".pdf\">Manual " + std::to_string(i) + "</A> ";
    link.resize(kBytesForEach - 1, '.');
    page += link + '\n';
  }
  return page;
}

}  // namespace tallyo::bench
