#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/fuzz/findings.h"
#include "tests/fuzz/input_parts.h"
#include "tests/fuzz/memory_machine.h"
#include "tests/fuzz/plain_links.h"
#include "tests/fuzz/plain_text.h"

namespace tallyo::fuzz {
namespace {

// What an import makes of an installation, by name; lists have a line for each entry. "failure" is
// what the person is told, "(list)" where the links do not hang together.
using Imported = std::map<std::string, std::string>;

std::string Joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) {
    all += text + "\n";
  }
  return all;
}

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
  PlainImport(Imported before, bool answersYes)
      : result_(std::move(before)), before_(result_), answersYes_(answersYes) {}

  Imported Run(const std::string& text, bool readable) {
    std::string failure = !readable || text.find('\0') != std::string::npos ? NotFound() : "";
    if (failure.empty()) {
      failure = Read(PlainLines(text));
    }
    if (failure.empty() && !Check()) {
      failure = "(list)";
    }
    Imported& outcome = failure.empty() ? result_ : before_;
    outcome["failure"] = failure;
    outcome["interval"] = result_["interval"];
    outcome["questions"] = result_["questions"];
    return outcome;
  }

 private:
  [[nodiscard]] std::string NotFound() {
    return "File: /a/" + before_["account"] + ".export not found";
  }

  // The failure, or "".
  std::string Read(const std::vector<std::string>& lines) {
    bool header = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::string& line = lines[i];
      if (!header && !line.empty()) {
        if (++i == lines.size()) {
          return NotFound();
        }
        records_.push_back(line);
        names_.push_back(lines[i]);
      } else if (header && line.starts_with(';')) {
        if (PlainPosition(line, "v1.1") == 0) {
          result_["questions"] += "?";
          if (!answersYes_) {
            return "Load aborted by user";
          }
        }
      } else if (header) {
        if (const std::string failure = ReadHeader(line, header); !failure.empty()) {
          return failure;
        }
      }
    }
    return "";
  }

  std::string ReadHeader(std::string line, bool& header) {
    while (!line.empty()) {
      const std::size_t e = PlainPosition(line, "=");
      if (e == 0) {
        return NotFound();
      }
      const std::size_t found = PlainPosition(line, ",");
      const std::size_t c = found == 0 ? line.size() + 1 : found;
      const std::string pair = PlainMid(line, 1, c - 1);
      line = Trimmed(PlainMid(line, c + 1));
      const std::string key = Trimmed(PlainMid(pair, 1, e - 1));
      const std::string value = Trimmed(PlainMid(pair, e + 1));
      if ((key == "usr" && value != before_["user"]) ||
          (key == "acc" && value != before_["account"])) {
        return "Wrong Account";
      }
      if (key == "upd") {
        result_["interval"] = PlainNumber(value) < 0.5 ? "0.5" : value;
      } else if (key == "dfu") {
        result_["interval"] = result_["default url"] = value;
        header = false;
      }
    }
    return "";
  }

  // The list check: every name must be found.
  bool Check() {
    const PlainLinks links(records_);
    PlainFields fields;
    for (const std::string& name : names_) {
      if (!links.Find(fields, name, 1).found) {
        return false;
      }
      result_["rows"] += fields[1] + "\n" + fields[3] + "\n";
    }
    result_["records"] = Joined(records_);
    result_["names"] = Joined(names_);
    return true;
  }

  Imported result_;
  Imported before_;
  bool answersYes_;
  std::vector<std::string> records_;
  std::vector<std::string> names_;
};

Imported Shown(MemoryMachine& machine) {
  MainForm& form = machine.program.form;
  Imported shown{{"failure", ""},
                 {"questions", ""},
                 {"user", machine.Setting(names::kUser)},
                 {"account", machine.Setting(names::kAccount)},
                 {"default url", machine.Setting(names::kDefUrl)},
                 {"interval", form.Text2.Text()},
                 {"records", Joined(StoredRecords(machine.store))},
                 {"names", Joined(form.Combo1.Items())},
                 {"rows", ""}};
  for (int row = 1; row <= form.ListView1.RowCount(); ++row) {
    shown["rows"] += form.ListView1.RowText(row) + "\n" + form.ListView1.Value(row, 3) + "\n";
  }
  for (const MessageBox& box : machine.boxes.Shown()) {
    if (box.buttons == BoxButtons::YesNo) {
      shown["questions"] += "?";
    } else {
      shown["failure"] = box.text;
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
  machine.Set(tallyo::names::kDefUrl, "before");
  machine.SetRecords({"1,old,old.zip,http://h/old", "2,older,older.zip,http://h/older"});
  machine.program.StartProgram();
  machine.boxes.NextAnswer = answersYes ? tallyo::BoxAnswer::Yes : tallyo::BoxAnswer::No;
  if (readable) {
    machine.files.contents["/a/" + account + ".export"] = text;
  }

  // An import begins with no links and no rows.
  const Imported before{{"user", company},
                        {"account", account},
                        {"default url", "before"},
                        {"questions", ""},
                        {"records", ""},
                        {"names", ""},
                        {"rows", ""},
                        {"interval", machine.program.form.Text2.Text()}};
  const Imported plain = PlainImport(before, answersYes).Run(text, readable);
  const bool loaded = machine.program.configurationImport.ImportConfiguration();
  Imported found = Shown(machine);
  if (!loaded && found["failure"].empty()) {
    found["failure"] = "(list)";
  }
  RequireSame({found.begin(), found.end()}, {plain.begin(), plain.end()});
  return 0;
}
