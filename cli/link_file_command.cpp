#include "cli/link_file_command.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <set>
#include <vector>

#include "cli/csv.h"
#include "cli/link_submission.h"
#include "cli/sessions.h"
#include "cli/table.h"
#include "platform/posix_files.h"
#include "text/lines.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

// One line of the file: the link, or why it is none.
struct LinkLine {
  int number = 0;
  NewLink link;
  std::string fault;
};

LinkLine ReadLine(int number, std::string_view text) {
  LinkLine line{.number = number, .link = {}, .fault = ""};
  try {
    const std::vector<std::string> fields = CsvFields(text);
    if (fields.size() < 2 || fields.size() > 4) {
      line.fault = "a line is path,name[,reference[,size_kb]]";
      return line;
    }
    line.link.path = fields[0];
    line.link.name = fields[1];
    if (fields.size() > 2 && !fields[2].empty()) {
      line.link.reference = fields[2];
    }
    line.link.sizeKb = fields.size() > 3 ? fields[3] : "";
  } catch (const RuntimeError& error) {
    line.fault = error.what();
  }
  return line;
}

bool IsHeading(const LinkLine& line) {
  return line.number == 1 && line.link.path == "path" && line.link.name == "name";
}

std::vector<LinkLine> ReadLines(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) {  // the mark that some programs put before UTF-8
    text.remove_prefix(3);
  }
  std::vector<LinkLine> read;
  Lines lines(text);
  int number = 0;
  while (const std::optional<std::string_view> line = lines.Next()) {
    ++number;
    if (line->empty()) {
      continue;
    }
    LinkLine parsed = ReadLine(number, *line);
    if (!IsHeading(parsed)) {
      read.push_back(std::move(parsed));
    }
  }
  return read;
}

// The outcome of every line; `done` is what a line without a fault or a refusal is said to be.
class Outcomes {
 public:
  explicit Outcomes(std::string done) : done_(std::move(done)) {}

  void Add(const LinkLine& line, const std::string& why) {
    table_.AddRow({std::to_string(line.number), line.link.name, why.empty() ? done_ : why});
    refused_ = refused_ || !why.empty();
  }

  void Print(const Console& console) const { table_.Print(console, "The file holds no links."); }

  [[nodiscard]] ExitStatus Status() const {
    return refused_ ? ExitStatus::Refused : ExitStatus::Done;
  }

 private:
  std::string done_;
  Table table_{{{"Line", "line", Align::Right}, {"Name", "name"}, {"Outcome", "outcome"}}};
  bool refused_ = false;
};

ExitStatus AddLines(Console& console, const std::vector<LinkLine>& lines) {
  Outcomes outcomes("added");
  return RunChanging(
      console,
      [&](Program& program) {
        for (const LinkLine& line : lines) {
          std::string why = line.fault;
          // A link whose handler fails must not take the others along.
          if (why.empty() && !program.Dispatch([&] { why = SubmitNewLink(program, line.link); })) {
            why = "failed";
          }
          if (program.Ended()) {
            break;
          }
          outcomes.Add(line, why);
        }
        return outcomes.Status();
      },
      [&](Program& /*program*/) { outcomes.Print(console); });
}

ExitStatus TryLines(Console& console, const std::vector<LinkLine>& lines) {
  return RunReading(console, [&](Program& program) {
    Outcomes outcomes("would be added");
    std::set<std::string> names;
    for (const LinkLine& line : lines) {
      std::string why = line.fault.empty() ? WhyNotAddable(program, line.link) : line.fault;
      if (why.empty() && !names.insert(line.link.name).second) {
        why = "a line before has this name";
      }
      outcomes.Add(line, why);
    }
    outcomes.Print(console);
    return outcomes.Status();
  });
}

std::string ReadText(const std::string& file) {
  if (file == "-") {
    return {std::istreambuf_iterator<char>(std::cin), {}};
  }
  return PosixFiles().Read(file);
}

}  // namespace

ExitStatus LinksAddFrom(Console& console, const std::string& file, DryRun dryRun) {
  std::vector<LinkLine> lines;
  try {
    lines = ReadLines(ReadText(file));
  } catch (const RuntimeError& error) {
    return Refuse(console, error.what());
  }
  return dryRun == DryRun::Yes ? TryLines(console, lines) : AddLines(console, lines);
}

}  // namespace tallyo
