#include <string>
#include <vector>

#include "links/stored_records.h"
#include "settings/names.h"
#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_links.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

constexpr const char* kBefore = "before";  // the default URL that is stored before an import

// What an import makes of an installation.
struct Imported {
  std::string failure;  // what the person is told; "(list)" where the links do not hang together
  long questions = 0;
  std::string user;
  std::string account;
  std::string defaultUrl = kBefore;
  std::string interval;
  std::vector<std::string> records;
  std::vector<std::string> names;
  std::vector<std::pair<std::string, std::string>> rows;

  void NoteIn(Findings& findings) const {
    findings.Note("failure", failure);
    findings.Count("questions", questions);
    findings.Note("user", user);
    findings.Note("account", account);
    findings.Note("default url", defaultUrl);
    findings.Note("interval", interval);
    for (const std::string& record : records) {
      findings.Note("record", record);
    }
    for (const std::string& name : names) {
      findings.Note("name", name);
    }
    for (const auto& [name, path] : rows) {
      findings.Note("row", name);
      findings.Note("path", path);
    }
  }
};

std::string Trimmed(std::string text) {
  while (text.starts_with(' ')) {
    text.erase(0, 1);
  }
  while (text.ends_with(' ')) {
    text.pop_back();
  }
  return text;
}

// Reads a file as the person at the boxes gets it.
class PlainImport {
 public:
  PlainImport(Imported result, bool answersYes)
      : result_(std::move(result)), before_(result_), answersYes_(answersYes) {}

  Imported Run(const std::string& text, bool readable) {
    const std::string notFound = "File: /a/" + before_.account + ".export not found";
    std::string failure = !readable || text.find('\0') != std::string::npos ? notFound : "";
    if (failure.empty()) {
      failure = Read(PlainLines(text), notFound);
    }
    if (failure.empty() && !Check()) {
      failure = "(list)";
    }
    if (!failure.empty()) {
      before_.failure = failure;
      before_.interval = result_.interval;
      before_.questions = result_.questions;
      return before_;
    }
    return result_;
  }

 private:
  // The failure, or "".
  std::string Read(const std::vector<std::string>& lines, const std::string& notFound) {
    bool header = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::string& line = lines[i];
      if (!header) {
        if (line.empty()) {
          continue;
        }
        if (++i == lines.size()) {
          return notFound;
        }
        result_.records.push_back(line);
        result_.names.push_back(lines[i]);
      } else if (line.starts_with(';')) {
        if (PlainPosition(line, "v1.1") == 0) {
          ++result_.questions;
          if (!answersYes_) {
            return "Load aborted by user";
          }
        }
      } else if (const std::string failure = ReadHeader(line, notFound, header); !failure.empty()) {
        return failure;
      }
    }
    return "";
  }

  std::string ReadHeader(std::string line, const std::string& notFound, bool& header) {
    while (!line.empty()) {
      const std::size_t e = PlainPosition(line, "=");
      if (e == 0) {
        return notFound;
      }
      const std::size_t found = PlainPosition(line, ",");
      const std::size_t c = found == 0 ? line.size() + 1 : found;
      const std::string pair = PlainMid(line, 1, c - 1);
      line = Trimmed(PlainMid(line, c + 1));
      const std::string key = Trimmed(PlainMid(pair, 1, e - 1));
      const std::string value = Trimmed(PlainMid(pair, e + 1));
      if ((key == "usr" && value != before_.user) || (key == "acc" && value != before_.account)) {
        return "Wrong Account";
      }
      if (key == "upd") {
        result_.interval = PlainNumber(value) < 0.5 ? "0.5" : value;
      } else if (key == "dfu") {
        result_.interval = value;
        result_.defaultUrl = value;
        header = false;
      }
    }
    return "";
  }

  // The list check: every name must be found.
  bool Check() {
    const PlainLinks links(result_.records);
    PlainFields fields;
    for (const std::string& name : result_.names) {
      if (!links.Find(fields, name, 1).found) {
        return false;
      }
      result_.rows.emplace_back(fields[1], fields[3]);
    }
    return true;
  }

  Imported result_;
  Imported before_;
  bool answersYes_;
};

Imported Shown(MemoryMachine& machine, bool loaded) {
  MainForm& form = machine.program.form;
  Imported shown{.failure = loaded ? "" : "(list)",
                 .questions = 0,
                 .user = machine.Setting(names::kUser),
                 .account = machine.Setting(names::kAccount),
                 .defaultUrl = machine.Setting(names::kDefUrl),
                 .interval = form.Text2.Text(),
                 .records = StoredRecords(machine.store),
                 .names = form.Combo1.Items(),
                 .rows = {}};
  for (int row = 1; row <= form.ListView1.RowCount(); ++row) {
    shown.rows.emplace_back(form.ListView1.RowText(row), form.ListView1.Value(row, 3));
  }
  for (const MessageBox& box : machine.boxes.Shown()) {
    if (box.buttons == BoxButtons::YesNo) {
      ++shown.questions;
    } else {
      shown.failure = box.text;
    }
  }
  return shown;
}

}  // namespace
}  // namespace tallyo::fuzz

// Company and account as typed, the answer to every question ("y" is Yes), and the export file.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace tallyo::fuzz;
  InputParts parts(data, size);
  const std::string company = parts.Next();
  const std::string account = parts.Next();
  const bool answersYes = parts.Next() == "y";
  const std::string text = parts.Rest();
  const bool readable = PlainIsFileName(account + ".export");

  MemoryMachine machine;
  machine.Set(tallyo::names::kUser, company);
  machine.Set(tallyo::names::kAccount, account);
  machine.Set(tallyo::names::kDefUrl, kBefore);
  machine.SetRecords({"1,old,old.zip,http://h/old", "2,older,older.zip,http://h/older"});
  machine.program.StartProgram();
  machine.boxes.NextAnswer = answersYes ? tallyo::BoxAnswer::Yes : tallyo::BoxAnswer::No;
  if (readable) {
    machine.files.contents["/a/" + account + ".export"] = text;
  }

  Imported before;
  before.user = company;
  before.account = account;
  before.interval = machine.program.form.Text2.Text();
  Findings plain;
  PlainImport(before, answersYes).Run(text, readable).NoteIn(plain);
  Findings program;
  Shown(machine, machine.program.configurationImport.ImportConfiguration()).NoteIn(program);
  RequireSame(program, plain);
  return 0;
}
