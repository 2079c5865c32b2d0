#include <cmath>
#include <cstring>
#include <string>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/plain_text.h"
#include "text/decimal_text.h"
#include "text/integers.h"
#include "text/leading_number.h"
#include "text/runtime_error.h"

namespace tallyo::fuzz {
namespace {

constexpr const char* kError = "(error)";

template <typename Result>
std::string OrError(const Result& result) {
  try {
    return result();
  } catch (const RuntimeError&) {
    return kError;
  }
}

void NoteForms(Findings& program, Findings& plain, double value) {
  program.Note("decimal", OrError([&] { return DecimalText(value); }));
  plain.Note("decimal", PlainDecimal(value).value_or(kError));
  program.Note("16 bits", OrError([&] { return std::to_string(ToInt16(value)); }));
  const std::optional<long> whole = PlainInt16(value);
  plain.Note("16 bits", whole ? std::to_string(*whole) : kError);
  program.Note("32 bits", OrError([&] { return std::to_string(ToInt32(value)); }));
  const std::optional<long> longer = PlainWhole(value, -2147483648L, 2147483647L);
  plain.Note("32 bits", longer ? std::to_string(*longer) : kError);
  program.Note("single", OrError([&] { return SingleDecimalText(ToSingle(value)); }));
  // Outside the range of a single the conversion has no plain form but this one.
  const bool fits = std::fabs(value) < 0x1.ffffffp127;
  plain.Note("single",
             fits ? PlainDecimal(static_cast<double>(static_cast<float>(value)), 7).value_or(kError)
                  : kError);
}

}  // namespace
}  // namespace tallyo::fuzz

// A text as a number; its first eight bytes as a double.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo;
  const std::string text(data, data + size);
  fuzz::Findings program;
  fuzz::Findings plain;
  program.Note("number", LeadingNumber(text));
  plain.Note("number", fuzz::PlainNumber(text));
  fuzz::NoteForms(program, plain, LeadingNumber(text));

  const std::optional<double> strict = fuzz::PlainStrictNumber(text);
  try {
    program.Note("strict", StrictNumber(text));
  } catch (const RuntimeError&) {
    program.Note("strict", fuzz::kError);
  }
  strict ? plain.Note("strict", *strict) : plain.Note("strict", fuzz::kError);

  double raw = 0;
  if (size >= sizeof raw) {
    std::memcpy(&raw, data, sizeof raw);
    fuzz::NoteForms(program, plain, raw);
  }
  fuzz::RequireSame(program, plain);
  return 0;
}
