// The least that a refresh needs: fetch the counters, walk through them once for blanks and line
// ends, look each reference up and read each number.
// Usage: refresh-floor COUNT PORT

#include <curl/curl.h>

#include <charconv>
#include <iostream>
#include <string>
#include <string_view>
#include <unordered_map>

#include "bench/made_links.h"
#include "bench/rounds.h"

namespace {

std::size_t Append(const char* bytes, std::size_t one, std::size_t count, void* body) {
  static_cast<std::string*>(body)->append(bytes, one * count);
  return one * count;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: refresh-floor COUNT PORT\n";
    return 2;
  }
  const int count = std::stoi(argv[1]);
  std::unordered_map<std::string, double> counters;
  for (int i = 1; i <= count; ++i) {
    counters["manual-" + std::to_string(i) + ".pdf"] = 0;
  }
  CURL* const easy = curl_easy_init();
  const std::string address =
      "http://127.0.0.1:" + std::string(argv[2]) + "/devstats.cgi?account=bench.txt&action=show";
  std::string body;
  curl_easy_setopt(easy, CURLOPT_URL, address.c_str());
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Append);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);

  std::string reference;
  tallyo::bench::ServeRounds([&] {
    body.clear();
    if (curl_easy_perform(easy) != CURLE_OK) {
      std::cerr << "refresh-floor: nothing fetched\n";
      std::exit(1);
    }
    const std::string_view text = body;
    std::size_t at = 0;
    for (std::size_t blank = 0; (blank = text.find(' ', at)) != std::string_view::npos;) {
      const std::size_t lineEnd = text.find('\n', blank);
      reference = text.substr(blank + 1, lineEnd - blank - 1);
      const auto found = counters.find(reference);
      if (found != counters.end()) {
        std::from_chars(text.data() + at + 3, text.data() + blank, found->second);
      }
      at = lineEnd + 1;
    }
  });
  curl_easy_cleanup(easy);
}
