#include <array>
#include <map>
#include <regex>
#include <string>
#include <string_view>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

constexpr long kLinks = 2;

struct Typed {
  std::string company;
  std::string account;
  std::string path;
};

// What the check of an account leaves behind, by name.
using Outcome = std::map<std::string, std::string>;

// Year, month and day; nothing for no date.
std::optional<std::array<int, 3>> PlainDate(const std::string& text) {
  static const std::regex form(R"((\d\d?)/(\d\d?)/(\d{4}))");
  std::smatch part;
  if (!std::regex_match(text, part, form)) {
    return std::nullopt;
  }
  const int month = std::stoi(part[1]);
  const int day = std::stoi(part[2]);
  const int year = std::stoi(part[3]);
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  const std::array days = {0, 31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12 || day < 1 || day > days.at(static_cast<std::size_t>(month))) {
    return std::nullopt;
  }
  return std::array{year, month, day};
}

void Refuse(Outcome& outcome, const std::string& box = "") {
  outcome["accepted"] = "no";
  outcome["boxes"] += box;
}

// False where the pair ends the check with a failure.
bool ActPlainly(const std::string& key, const std::string& value, const Typed& typed,
                Outcome& outcome) {
  if (key == "opn") {
    outcome["opened"] = value;
  } else if (key == "max") {
    const std::string left = PlainDecimal(PlainNumber(value) - static_cast<double>(kLinks)).value();
    outcome["slots left"] = left;
    if (PlainNumber(left) == 0) {
      outcome["other status"] = "No slots left";
    } else if (outcome["other status"] == "No slots left") {
      outcome["other status"] = "";
    }
    const std::optional<long> quota = PlainInt16(PlainNumber(value));
    if (!quota) {
      return false;
    }
    outcome["most slots"] = std::to_string(*quota);
    if (*quota < 1) {
      Refuse(outcome);
    }
  } else if (key == "exp") {
    outcome["good through"] = value;
    const auto date = PlainDate(value);
    if (!date) {
      return false;
    }
    if (*date <= std::array{2026, 1, 15}) {
      Refuse(outcome);
    }
  } else if (key == "ban") {
    outcome["status"] = value == "no" ? "Normal" : "Account Suspended";
    if (value != "no") {
      Refuse(outcome, "This account is banned. All access is forbiden\n");
    }
  } else if (key == "com" && value != typed.company) {
    Refuse(outcome, "This account does not belong to the registration number supplied\n");
  } else if (key == "acc" && value != typed.account) {
    Refuse(outcome, "This account does not belong to the supplied company name\n");
  }
  return true;
}

bool ReadPlainly(std::string rest, const Typed& typed, Outcome& outcome) {
  while (!rest.empty()) {
    const std::size_t p = PlainPosition(rest, "=");
    if (p == 0) {
      return false;
    }
    const std::string key = PlainMid(rest, 1, p - 1);
    rest = PlainMid(rest, p + 1);
    const std::size_t c = PlainPosition(rest, ",");
    std::string value = c == 0 ? rest : PlainMid(rest, 1, c - 1);
    if (c == 0 && !value.empty()) {
      value.pop_back();
    }
    rest = c == 0 ? "" : PlainMid(rest, c + 1);
    if (!ActPlainly(key, value, typed, outcome)) {
      return false;
    }
  }
  return true;
}

void CheckPlainly(const Typed& typed, const std::string& record, Outcome& outcome) {
  if (typed.account.empty()) {
    return;
  }
  for (const char c : typed.account) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
      Refuse(outcome);  // an address that cannot be sent
      return;
    }
  }
  outcome["label 8"] = "Request Time out";
  outcome["status"] = "Unknown";
  outcome["other status"] = "Not connected";
  if (PlainPosition(record, "404") != 0 || record.empty()) {
    Refuse(outcome);
    outcome["label 8"] = "Account not found";
    outcome["can manage"] = outcome["can import"] = "no";
  } else if (ReadPlainly(record, typed, outcome)) {
    outcome["can manage"] = "yes";
    outcome["can import"] = typed.path.empty() ? outcome["can import"] : "yes";
    outcome["other status"] = "";
  } else {
    Refuse(outcome);
    return;
  }
  outcome["title"] = "        Tallyo  user: " + typed.company + ", account: " + typed.account;
}

Outcome Shown(MemoryMachine& machine, bool accepted) {
  MainForm& form = machine.program.form;
  const auto yesOrNo = [](bool is) { return is ? "yes" : "no"; };
  std::string boxes;
  for (const std::string& text : machine.boxes.Texts()) {
    boxes += text + "\n";
  }
  return {{"accepted", yesOrNo(accepted)},
          {"slots left", form.Label4[0].Caption()},
          {"good through", form.Label4[1].Caption()},
          {"opened", machine.Setting(names::kAccOpen)},
          {"most slots", std::to_string(machine.program.state.MaxSlots)},
          {"status", form.ListView3.Value(detail::kAccountStatus, 1)},
          {"other status", form.ListView3.Value(detail::kOtherStatus, 1)},
          {"label 8", form.Label8.Caption()},
          {"title", form.TmnuDisTitle.Caption()},
          {"can manage", yesOrNo(form.mnuManage.Enabled())},
          {"can import", yesOrNo(form.mnuScrnImport.Enabled())},
          {"boxes", boxes}};
}

}  // namespace
}  // namespace tallyo::fuzz

// Company, account and path as typed, and the account's record as the service answers.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  InputParts parts(data, size);
  const Typed typed{parts.Next(), parts.Next(), parts.Next()};

  MemoryMachine machine;
  machine.transfer.accountRecord = parts.Rest();
  machine.program.StartProgram();
  tallyo::MainForm& form = machine.program.form;
  form.Text1[tallyo::field::kCompany].SetText(typed.company);
  form.Text1[tallyo::field::kAccount].SetText(typed.account);
  form.Text1[tallyo::field::kLinkPath].SetText(typed.path);
  for (long link = 0; link < kLinks; ++link) {
    form.Combo1.AddItem("link");
  }
  machine.program.state.MaxSlots = 7;

  Outcome plain = Shown(machine, true);
  CheckPlainly(typed, machine.transfer.accountRecord, plain);
  const Outcome found = Shown(machine, machine.program.verification.VerifyAccount());
  RequireSame({found.begin(), found.end()}, {plain.begin(), plain.end()});
  return 0;
}
