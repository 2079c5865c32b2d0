#include "tests/force/crash_loop.h"

#include <csignal>
#include <ctime>
#include <fstream>
#include <iomanip>
#include <sstream>

#include "settings/names.h"
#include "settings/sqlite_store.h"
#include "settings/value_text.h"

namespace tallyo::force {
namespace {

namespace fs = std::filesystem;

constexpr std::array kNames = {"refresh", "watch", "window", "export", "import", "add", "remove"};
constexpr std::size_t kFewestLinks = 3;
constexpr std::size_t kMostLinks = 9;

std::string PointText(const KillPoint& point) {
  const std::string count = std::to_string(point.count);
  return point.kind == KillPoint::Kind::Moment ? "at moment " + count : "after " + count + " us";
}

std::string RecordOf(int number) {
  const std::string text = std::to_string(number);
  return "1,Link " + text + " & co,f" + text + ".zip,http://files.example/f" + text + ".zip";
}

}  // namespace

CrashLoop::CrashLoop(const fs::path& folder, std::uint64_t seed)
    : seed_(seed),
      appDir_(folder / "app"),
      importDir_(folder / "import"),
      scratch_(folder / "scratch") {
  doing_ = "the beginning";
  for (const fs::path& made : {appDir_, scratch_}) fs::create_directories(made);
  service_.Answer("/Tallyo/accounts/acme.txt",
                  "opn=01/15/2014,max=1000,exp=12/31/2099,ban=no,com=Acme,acc=acme\n");
  service_.Answer("/cgi-bin/Tallyo/devstats.cgi?account=acmef.txt", "<P>ok\n");
  MustEndWell(Console({"account", "save", "Acme", "acme"}));
  SetStored(names::kCountOnce, "1");
  SetStored(names::kAppendAfterLast, "1");
  for (std::size_t i = 0; i < kMostLinks - 2; ++i) MustEndWell(Words(Add));
  MustEndWell(Console({"config", "export"}));
  VisitLinks();
  Recover(Read(appDir_));
  const std::string text = Read(appDir_).files.at("acme.export");
  exportHeader_ = text.substr(0, text.find("1,Link"));
  for (std::size_t i = 0; i < kOperations; ++i) Measure(static_cast<Operation>(i));
}

void CrashLoop::Measure(Operation operation) {
  if (operation == Window && !IsBuilt("tallyo")) return;
  const KeptData before = Read(appDir_);
  MakeRefreshDue(true);
  Kill(operation, {});
  CheckKilled(operation, before);
  Recover(before);
}

void CrashLoop::Round(std::uint64_t number) {
  random_.seed(seed_ * 1'000'003 + number);
  const Operation operation = ChooseOperation();
  const KillPoint point = ChoosePoint(operation);
  doing_ = std::string(kNames.at(operation)) + ", killed " + PointText(point);
  VisitLinks();
  MakeRefreshDue(operation != Refresh || OneIn(2));
  if (OneIn(8)) LeaveWorkFiles();
  const KeptData before = Read(appDir_);
  const KilledRun run = Kill(operation, point);
  ++(run.killed ? courses_.at(operation).killed : courses_.at(operation).finished);
  CheckKilled(operation, before);
  if (OneIn(4)) {
    const KillPoint again = ChoosePoint(Refresh);
    doing_ += ", then refresh, killed " + PointText(again);
    MakeRefreshDue(OneIn(2));
    const KeptData between = Read(appDir_);
    Kill(Refresh, again);
    CheckKilled(Refresh, between);
  }
  Recover(before);
}

std::size_t CrashLoop::Below(std::size_t limit) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
}

CrashLoop::Operation CrashLoop::ChooseOperation() {
  // A refresh writes the most files; the window is the same program and slow to start.
  constexpr std::array kTickets = {Refresh, Refresh, Refresh, Watch,  Export, Import,
                                   Add,     Add,     Remove,  Remove, Window};
  const Operation drawn = kTickets.at(Below(kTickets.size()));
  const std::size_t links = Read(appDir_).links.size();
  if (drawn == Window && courses_[Window].microseconds == 0) return Watch;
  if (drawn == Add && links >= kMostLinks) return Remove;
  if (drawn == Remove && links <= kFewestLinks) return Add;
  return drawn;
}

KillPoint CrashLoop::ChoosePoint(Operation operation) {
  const Course& course = courses_.at(operation);
  const auto below = [this](std::int64_t limit) {
    return static_cast<std::int64_t>(Below(static_cast<std::size_t>(limit)));
  };
  // Where nothing may be traced, there are no moments.
  if (course.moments == 0 || OneIn(4)) {
    return {KillPoint::Kind::Microseconds, below(course.microseconds)};
  }
  return {KillPoint::Kind::Moment, 1 + below(course.moments)};
}

std::vector<std::string> CrashLoop::Console(const std::vector<std::string>& words) const {
  std::vector<std::string> all{ProgramFile("tallyo-cli"), "--app-dir", appDir_, "--service-url",
                               service_.Url()};
  all.insert(all.end(), words.begin(), words.end());
  return all;
}

std::vector<std::string> CrashLoop::Words(Operation operation) {
  switch (operation) {
    case Refresh:
      return Console({"refresh"});
    case Watch:
      return Console({"watch"});
    case Window:
      return {ProgramFile("tallyo"), "--app-dir", appDir_, "--service-url", service_.Url()};
    case Export:
      return Console({"config", "export"});
    case Import: {
      std::vector<std::string> words = Console({"config", "import", "Acme", "acme"});
      words[2] = importDir_;
      return words;
    }
    case Add: {
      addedLink_ = RecordOf(++linksMade_);
      const std::vector<std::string> fields = test::FieldsOf(addedLink_);
      reference_ = fields[2];
      counters_[reference_] = 0;
      return Console({"links", "add", fields[3], "--name", fields[1], "--reference", fields[2],
                      "--size", fields[0]});
    }
    default: {
      const std::vector<std::string> links = Read(appDir_).links;
      const std::vector<std::string> removed = test::FieldsOf(links[Below(links.size())]);
      reference_ = removed[2];
      return Console({"links", "remove", removed[1]});
    }
  }
}

KilledRun CrashLoop::Kill(Operation operation, const KillPoint& point) {
  if (operation == Import) PrepareImport();
  AnswerCounters();
  std::function<bool()> hasRefreshed;
  if (operation == Watch || operation == Window) {
    hasRefreshed = [data = appDir_ / "Data"] {
      return fs::exists(data / "LastRead.now") && !fs::exists(data / "LastRead.dat");
    };
  }
  const std::size_t asked = service_.Requests().size();
  KilledRun run = RunAndKill(Words(operation), point, hasRefreshed);
  Require(run.killed || run.ending.Complaint().empty(), run.ending.Complaint());
  Require(!HoldsReport(run.ending.err), run.ending.err);
  Require(run.ending.err.find("[question]") == std::string::npos, run.ending.err);
  const std::vector<std::string> requests = service_.Requests();
  for (std::size_t i = asked; i < requests.size(); ++i) {
    const bool changes = requests[i].find("&fryname=") != std::string::npos;
    Require(!changes || ((operation == Add || operation == Remove) &&
                         requests[i].find("&fryname=" + reference_ + "&") != std::string::npos),
            "the service was asked for " + requests[i]);
  }
  Course& course = courses_.at(operation);
  if (!run.killed) {
    course.moments = std::max(course.moments, run.moments);
    course.microseconds = std::max(course.microseconds, run.microseconds);
  }
  return run;
}

void CrashLoop::VisitLinks() {
  for (auto& [reference, count] : counters_) count += static_cast<std::int64_t>(Below(4));
  AnswerCounters();
}

void CrashLoop::AnswerCounters() {
  std::string reply;
  for (const auto& [reference, count] : counters_) {
    reply += "<P>" + std::to_string(count) + " " + reference + "\n";
  }
  service_.Answer("/cgi-bin/Tallyo/devstats.cgi?account=acme.txt", reply);
}

// With no last check a refresh books what it finds; shortly after one it only settles the counters
// of the last session.
void CrashLoop::MakeRefreshDue(bool due) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  std::ostringstream lastCheck;
  lastCheck << std::put_time(&local, "%m-%d-%Y ")
            << (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  SetStored(names::kPrevCheck, due ? "" : lastCheck.str());
}

void CrashLoop::SetStored(std::string_view name, const std::string& text) const {
  SqliteStore store(appDir_ / "settings.db", StoreAccess::ReadWrite);
  SetSettingValue(store, Hive::LocalMachine, names::SettingsKey, name, text);
  Require(QuerySettingValue(store, Hive::LocalMachine, names::SettingsKey, name) == text,
          "the store takes no setting");
}

void CrashLoop::LeaveWorkFiles() {
  for (const char* name : {"Data/tmp", "Data/LastRead.tmp", "export.tmp"}) {
    std::ofstream(appDir_ / name) << "what a killed program has left of its work";
  }
}

void CrashLoop::PrepareImport() {
  fs::remove_all(importDir_);
  fs::create_directories(importDir_);
  fs::copy_file(appDir_ / "acme.export", importDir_ / "acme.export");
}

std::string CrashLoop::Figures() const {
  std::ostringstream text;
  for (std::size_t i = 0; i < kOperations; ++i) {
    const Course& course = courses_.at(i);
    text << kNames.at(i) << ": " << course.killed << " killed, " << course.finished
         << " finished before; of " << course.moments << " moments, " << course.microseconds / 1000
         << " ms\n";
  }
  return text.str();
}

}  // namespace tallyo::force
