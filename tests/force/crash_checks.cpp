#include <algorithm>
#include <sstream>

#include "tests/force/crash_loop.h"
#include "tests/force/service_counts.h"

// What must hold after a program was killed, and once it has been started again.
namespace tallyo::force {
namespace {

void Require(bool holds, const std::string& otherwise) {
  if (!holds) throw Loss(otherwise);
}

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
  for (const std::string& record : links) {
    text += record + "\r\n" + FieldsOf(record)[1] + "\r\n";
  }
  return text;
}

}  // namespace

void CrashLoop::CheckKilled(Operation operation, const KeptState& before) {
  const KeptState now = Read(appDir_);
  Require(now.faults.empty(), "damaged:" + Joined(now.faults));
  const std::string lost = now.LostSince(before);
  Require(lost.empty(), "hours lost: " + lost);
  CheckLinks(operation, before, now);
  if (!exportHeader_.empty()) CheckExport(before, now);
  if (operation == Import) CheckImport();
  static_cast<void>(MakeServiceAgree(now));
  CheckHits(now, false);
}

void CrashLoop::CheckLinks(Operation operation, const KeptState& before,
                           const KeptState& now) const {
  std::vector<std::string> other = before.links;
  if (operation == Add) other.push_back(addedLink_);
  if (operation == Remove) {
    std::erase_if(
        other, [this](const std::string& record) { return FieldsOf(record)[1] == removedName_; });
  }
  RequireLinks(now.links, before.links, other);
  for (const char* name : {"User", "Account", "CountOnce"}) {
    Require(now.settings.at(name) == before.settings.at(name), std::string(name) + " has changed");
  }
}

void CrashLoop::CheckExport(const KeptState& before, const KeptState& now) const {
  const std::string& text = now.exports.at("acme.export");
  Require(text == before.exports.at("acme.export") || text == ExportText(exportHeader_, now.links),
          "the export is neither the old nor the new one: " + text);
}

// Nothing was in the folder but the export: afterwards there is nothing or all of it, and the next
// import, or refresh, makes it whole.
void CrashLoop::CheckImport() {
  KeptState imported = Read(importDir_);
  const std::vector<std::string> whole =
      ExportedLinks(imported.exports.at("acme.export"), exportHeader_);
  Require(imported.faults.empty(), "damaged:" + Joined(imported.faults));
  RequireLinks(imported.links, {}, whole);
  Require(imported.settings["User"] == (imported.links.empty() ? "" : "Acme") &&
              imported.settings["Account"] == (imported.links.empty() ? "" : "acme"),
          "half an account was imported");
  std::vector<std::string> words = Words(Import);
  if (!imported.links.empty()) words.erase(words.end() - 2, words.end());
  if (!imported.links.empty()) words.end()[-1] = "refresh", words.erase(words.end() - 2);
  MustEndWell(words);
  imported = Read(importDir_);
  RequireLinks(imported.links, whole, whole);
  Require(imported.faults.empty(), "damaged:" + Joined(imported.faults));
}

// The service answers a registration before the client stores it. A person whose client was killed
// in between has them agree again; so does this, without taking hits away. Whether the service
// lacked a link.
bool CrashLoop::MakeServiceAgree(const KeptState& kept) {
  bool lacked = false;
  counters_ = service_.Counters();
  std::map<std::string, std::string> monitored;
  for (const std::string& record : kept.links) {
    monitored[FieldsOf(record)[2]] = FieldsOf(record)[3];
  }
  for (const auto& [reference, link] : monitored) {
    if (counters_.contains(reference)) continue;
    const std::string name = FieldsOf(*std::ranges::find_if(
        kept.links, [&](const auto& record) { return FieldsOf(record)[2] == reference; }))[1];
    Require(name == removedName_, name + " is on the service no more");
    lacked = true;
    static_cast<void>(service_.Add(reference, link));
    SetServiceCount(service_.Database(), reference, lastCounters_.at(reference));
  }
  for (const auto& counter : counters_) {
    if (!monitored.contains(counter.first)) service_.Remove(counter.first);
  }
  counters_ = service_.Counters();
  lastCounters_ = counters_;
  return lacked;
}

// Never more hits than the service has counted; `all` of them where a refresh has just ended.
void CrashLoop::CheckHits(const KeptState& kept, bool all) {
  for (const std::string& record : kept.links) {
    const std::vector<std::string> fields = FieldsOf(record);
    const std::int64_t booked = kept.HitsOf(fields[1]);
    const std::int64_t counted = counters_.at(fields[2]);
    Require(booked <= counted && (!all || booked == counted),
            fields[1] + " has " + std::to_string(booked) + " hits in its daily files, and " +
                std::to_string(counted) + " on the service");
  }
}

// The next session asks nothing, ends well, and then everything is where it belongs.
void CrashLoop::Recover(const KeptState& before) {
  MakeRefreshDue(true);
  MustEndWell(Console({"refresh"}));
  // The service may carry out what a killed program asked for after it was looked at.
  if (MakeServiceAgree(Read(appDir_))) {
    MakeRefreshDue(true);
    MustEndWell(Console({"refresh"}));
  }
  const KeptState now = Read(appDir_);
  Require(now.faults.empty(), "damaged:" + Joined(now.faults));
  const std::string lost = now.LostSince(before);
  Require(lost.empty(), "hours lost: " + lost);
  CheckHits(now, true);
  Require(!std::filesystem::exists(appDir_ / "Data/LastRead.now"), "LastRead.now is left");
}

}  // namespace tallyo::force
