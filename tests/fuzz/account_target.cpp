#include <string>
#include <vector>

#include "settings/names.h"
#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

constexpr long kLinks = 2;

// What the check of an account leaves behind. The clock stands at 2026-01-15.
struct Outcome {
  bool accepted = true;
  std::string slotsLeft;
  std::string goodThrough;
  std::string opened;
  long maxSlots = 0;
  std::string status;
  std::string otherStatus;
  std::string label8;
  std::string title;
  bool canManage = false;
  bool canImport = false;
  std::vector<std::string> boxes;

  void NoteIn(Findings& findings) const {
    findings.Count("accepted", accepted ? 1 : 0);
    findings.Note("slots left", slotsLeft);
    findings.Note("good through", goodThrough);
    findings.Note("opened", opened);
    findings.Count("most slots", maxSlots);
    findings.Note("account status", status);
    findings.Note("other status", otherStatus);
    findings.Note("label 8", label8);
    findings.Note("title", title);
    findings.Count("can manage", canManage ? 1 : 0);
    findings.Count("can import", canImport ? 1 : 0);
    for (const std::string& box : boxes) {
      findings.Note("box", box);
    }
  }
};

struct Typed {
  std::string company;
  std::string account;
  std::string path;
};

// Days from the first of January of the year 0, counted year by year; nothing for no date.
std::optional<long> PlainDay(const std::string& text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == '/') {
      parts.emplace_back();
    } else if (c < '0' || c > '9') {
      return std::nullopt;
    } else {
      parts.back() += c;
    }
  }
  if (parts.size() != 3 || parts[0].empty() || parts[0].size() > 2 || parts[1].empty() ||
      parts[1].size() > 2 || parts[2].size() != 4) {
    return std::nullopt;
  }
  const int month = std::stoi(parts[0]);
  const int day = std::stoi(parts[1]);
  const int year = std::stoi(parts[2]);
  const auto leap = [](int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; };
  std::vector<int> days = {31, leap(year) ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12 || day < 1 || day > days.at(static_cast<std::size_t>(month) - 1)) {
    return std::nullopt;
  }
  long count = day;
  for (int y = 0; y < year; ++y) {
    count += leap(y) ? 366 : 365;
  }
  for (int m = 1; m < month; ++m) {
    count += days.at(static_cast<std::size_t>(m) - 1);
  }
  return count;
}

// False where the pair ends the check with a failure.
bool ActPlainly(const std::string& key, const std::string& value, const Typed& typed,
                Outcome& outcome) {
  const auto refuse = [&](const char* text) {
    outcome.boxes.emplace_back(text);
    outcome.accepted = false;
  };
  if (key == "opn") {
    outcome.opened = value;
  } else if (key == "max") {
    outcome.slotsLeft = PlainDecimal(PlainNumber(value) - static_cast<double>(kLinks)).value();
    if (PlainNumber(outcome.slotsLeft) == 0) {
      outcome.otherStatus = "No slots left";
    } else if (outcome.otherStatus == "No slots left") {
      outcome.otherStatus = "";
    }
    const std::optional<long> quota = PlainInt16(PlainNumber(value));
    if (!quota) {
      return false;
    }
    outcome.maxSlots = *quota;
    outcome.accepted = outcome.accepted && *quota >= 1;
  } else if (key == "exp") {
    outcome.goodThrough = value;
    const std::optional<long> day = PlainDay(value);
    if (!day) {
      return false;
    }
    outcome.accepted = outcome.accepted && *day - PlainDay("01/15/2026").value() >= 1;
  } else if (key == "ban") {
    outcome.status = value == "no" ? "Normal" : "Account Suspended";
    if (value != "no") {
      refuse("This account is banned. All access is forbiden");
    }
  } else if (key == "com" && value != typed.company) {
    refuse("This account does not belong to the registration number supplied");
  } else if (key == "acc" && value != typed.account) {
    refuse("This account does not belong to the supplied company name");
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

Outcome CheckPlainly(const Typed& typed, const std::string& record, Outcome outcome) {
  if (typed.account.empty()) {
    return outcome;
  }
  for (const char c : typed.account) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
      outcome.accepted = false;  // an address that cannot be sent
      return outcome;
    }
  }
  outcome.label8 = "Request Time out";
  outcome.status = "Unknown";
  outcome.otherStatus = "Not connected";
  if (PlainPosition(record, "404") != 0 || record.empty()) {
    outcome.label8 = "Account not found";
    outcome.accepted = outcome.canManage = outcome.canImport = false;
  } else if (ReadPlainly(record, typed, outcome)) {
    outcome.canManage = true;
    outcome.canImport = outcome.canImport || !typed.path.empty();
    outcome.otherStatus = "";
  } else {
    outcome.accepted = false;
    return outcome;
  }
  outcome.title = "        Tallyo  user: " + typed.company + ", account: " + typed.account;
  return outcome;
}

Outcome Shown(MemoryMachine& machine, bool accepted) {
  MainForm& form = machine.program.form;
  return {.accepted = accepted,
          .slotsLeft = form.Label4[0].Caption(),
          .goodThrough = form.Label4[1].Caption(),
          .opened = machine.Setting(names::kAccOpen),
          .maxSlots = machine.program.state.MaxSlots,
          .status = form.ListView3.Value(detail::kAccountStatus, 1),
          .otherStatus = form.ListView3.Value(detail::kOtherStatus, 1),
          .label8 = form.Label8.Caption(),
          .title = form.TmnuDisTitle.Caption(),
          .canManage = form.mnuManage.Enabled(),
          .canImport = form.mnuScrnImport.Enabled(),
          .boxes = machine.boxes.Texts()};
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

  const Outcome plain = CheckPlainly(typed, machine.transfer.accountRecord, Shown(machine, true));
  const bool accepted = machine.program.verification.VerifyAccount();
  Findings found;
  Findings expected;
  Shown(machine, accepted).NoteIn(found);
  plain.NoteIn(expected);
  RequireSame(found, expected);
  return 0;
}
