#include <string>

#include "links/link_scanner.h"
#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

std::string PlainBase(const std::string& address) {
  const std::size_t s = PlainPosition(address, "://");
  const std::size_t h = PlainPosition(address, "/", s + 3);
  return h != 0 ? PlainMid(address, 1, h - 1) + "/" : address + "/";
}

Findings ScanPlainly(std::string page, const std::string& base) {
  Findings plain = {{"base", base}};
  while (const std::size_t p = PlainPosition(page, "<A HREF=")) {
    page = PlainMid(page, p + 9);
    const std::size_t g = PlainPosition(page, ">");
    if (g == 0) {
      plain.emplace_back("incomplete", "");
      return plain;
    }
    std::string href = g < 2 ? "" : PlainMid(page, 1, g - 2);
    while (const std::size_t up = PlainPosition(href, "../")) {
      href = PlainMid(href, up + 3);
    }
    plain.emplace_back("link", PlainPosition(href, "://") != 0 ? href : base + href);
  }
  return plain;
}

}  // namespace
}  // namespace tallyo::fuzz

// The address of a page, and the page.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  InputParts parts(data, size);
  const std::string address = parts.Next();
  const std::string page = parts.Rest();

  const std::string base = tallyo::PageBase(address);
  const tallyo::FoundLinks found = tallyo::ScanLinks(page, base);
  Findings program = {{"base", base}};
  for (const std::string& link : found.links) {
    program.emplace_back("link", link);
  }
  if (!found.complete) {
    program.emplace_back("incomplete", "");
  }
  RequireSame(program, ScanPlainly(page, PlainBase(address)));
  return 0;
}
