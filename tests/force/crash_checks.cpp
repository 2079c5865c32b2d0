#include <algorithm>
#include <sstream>

#include "settings/sqlite_store.h"
#include "tests/force/checked_rows.h"
#include "tests/force/crash_loop.h"

// What must hold after a program was killed, and once it has been started again.
namespace tallyo::force {
namespace {

namespace fs = std::filesystem;

std::string NameOf(const std::string& record) { return test::FieldsOf(record).at(1); }

std::string Joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += "\n  " + text;
  return all;
}

void RequireLinks(const std::vector<std::string>& links, const std::vector<std::string>& either,
                  const std::vector<std::string>& other) {
  Require(links == either || links == other, "the links are" + Joined(links) + "\n neither" +
                                                 Joined(either) + "\n nor" + Joined(other));
}

void RequireWhole(const KeptData& kept) { Require(kept.damage.empty(), "damaged: " + kept.damage); }

void RequireNothingLost(const KeptData& now, const KeptData& before) {
  RequireWhole(now);
  const std::string lost = now.LostSince(before);
  Require(lost.empty(), "hours lost: " + lost);
}

// The records in the text of an export.
std::vector<std::string> ExportedLinks(const std::string& text, const std::string& header) {
  std::vector<std::string> records;
  std::istringstream stream(text.substr(header.size()));
  for (std::string record, name; std::getline(stream, record) && std::getline(stream, name);) {
    record.pop_back();
    records.push_back(record);
  }
  return records;
}

std::string ExportText(const std::string& header, const std::vector<std::string>& links) {
  std::string text = header;
  for (const std::string& record : links) text += record + "\r\n" + NameOf(record) + "\r\n";
  return text;
}

}  // namespace

void CrashLoop::CheckKilled(Operation operation, const KeptData& before) {
  const KeptData now = Read(appDir_);
  RequireNothingLost(now, before);
  CheckLinks(operation, before, now);
  if (!exportHeader_.empty()) CheckExport(before, now);
  if (operation == Import) CheckImport();
  CheckHits(now, false);
}

void CrashLoop::CheckLinks(Operation operation, const KeptData& before, const KeptData& now) const {
  std::vector<std::string> other = before.links;
  if (operation == Add) other.push_back(addedLink_);
  if (operation == Remove) {
    std::erase_if(other,
                  [this](const auto& record) { return test::FieldsOf(record)[2] == reference_; });
  }
  RequireLinks(now.links, before.links, other);
  for (const char* name : {"User", "Account", "CountOnce"}) {
    Require(now.settings.at(name) == before.settings.at(name), std::string(name) + " has changed");
  }
}

void CrashLoop::CheckExport(const KeptData& before, const KeptData& now) const {
  const std::string& text = now.files.at("acme.export");
  Require(text == before.files.at("acme.export") || text == ExportText(exportHeader_, now.links),
          "the export is neither the old nor the new one: " + text);
}

// Nothing was in the folder but the export: afterwards there is nothing or all of it, and the next
// import, or refresh, makes it whole.
void CrashLoop::CheckImport() {
  KeptData imported = Read(importDir_);
  const std::vector<std::string> whole =
      ExportedLinks(imported.files.at("acme.export"), exportHeader_);
  RequireWhole(imported);
  RequireLinks(imported.links, {}, whole);
  const bool isEmpty = imported.links.empty();
  Require(imported.settings["User"] == (isEmpty ? "" : "Acme") &&
              imported.settings["Account"] == (isEmpty ? "" : "acme"),
          "half an account was imported");
  std::vector<std::string> words = isEmpty ? Words(Import) : Console({"refresh"});
  words[2] = importDir_;
  MustEndWell(words);
  imported = Read(importDir_);
  RequireLinks(imported.links, whole, whole);
  RequireWhole(imported);
}

// Never more hits than the service has counted; `all` of them where a refresh has just ended.
void CrashLoop::CheckHits(const KeptData& kept, bool all) const {
  for (const std::string& record : kept.links) {
    const std::int64_t booked = kept.HitsOf(NameOf(record));
    const std::int64_t counted = counters_.at(test::FieldsOf(record)[2]);
    Require(booked <= counted && (!all || booked == counted),
            NameOf(record) + " has " + std::to_string(booked) + " hits in its daily files, and " +
                std::to_string(counted) + " on the service");
  }
}

// The next session asks nothing, ends well, and then everything is where it belongs.
void CrashLoop::Recover(const KeptData& before) {
  MakeRefreshDue(true);
  MustEndWell(Console({"refresh"}));
  const KeptData now = Read(appDir_);
  RequireNothingLost(now, before);
  CheckHits(now, true);
  Require(!fs::exists(appDir_ / "Data/LastRead.now"), "LastRead.now is left");
}

// The copy is opened as a database is after a power cut: the file and its log.
KeptData CrashLoop::Read(const fs::path& appDir) const {
  const fs::path copy = scratch_ / "settings.db";
  for (const char* ending : {"", "-wal", "-shm"}) {
    const fs::path from = appDir / (std::string("settings.db") + ending);
    fs::remove(copy.string() + ending);
    if (std::string_view(ending) != "-shm" && fs::exists(from)) {
      fs::copy_file(from, copy.string() + ending);
    }
  }
  if (fs::exists(copy) && fs::file_size(copy) > 0) {
    static_cast<void>(CheckedRows(copy, "SELECT 0, 0"));
  }
  SqliteStore store(copy, StoreAccess::ReadWrite);
  Require(store.Problem().empty(), store.Problem());
  return test::ReadKeptData(appDir, store);
}

void CrashLoop::MustEndWell(const std::vector<std::string>& words) const {
  const Ending ending = RunToEnd(words);
  Require(ending.Complaint().empty(), words.back() + " " + ending.Complaint());
  Require(ending.err.find("[question]") == std::string::npos, "it asks: " + ending.err);
}

}  // namespace tallyo::force
