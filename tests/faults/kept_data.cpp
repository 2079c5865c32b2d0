#include "tests/faults/kept_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "links/stored_records.h"
#include "platform/posix_files.h"
#include "settings/names.h"
#include "settings/value_text.h"
#include "text/lines.h"

namespace tallyo::test {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::AnyOf;
using testing::Ge;
using testing::Le;
using Texts = std::map<std::string, std::string>;

std::string TextOf(const Texts& texts, const std::string& name) {
  const auto found = texts.find(name);
  return found == texts.end() ? "(none)" : found->second;
}

void ExpectHoursKept(const std::string& now, const std::string& before, const std::string& after) {
  const auto nowHours = HoursOf(now);
  auto wanted = HoursOf(after);
  auto old = HoursOf(before);
  for (const auto& [hour, hits] : nowHours) {
    EXPECT_THAT(hits, AllOf(Ge(old[hour]), Le(2 * wanted[hour] - old[hour]))) << hour;
  }
  for (const auto& [hour, hits] : old) EXPECT_TRUE(nowHours.contains(hour) || hits == 0) << hour;
}

}  // namespace

KeptData ReadKeptData(const fs::path& folder, SettingsStore& store) {
  KeptData kept;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    const bool daily = entry.path().parent_path().filename() == "2026";
    if (entry.is_regular_file() && (daily || name.ends_with(".export"))) {
      kept.files[entry.path().lexically_relative(folder).string()] =
          PosixFiles().Read(entry.path());
    }
  }
  kept.counters = "(none)";
  for (const char* name : {"Data/LastRead.dat", "Data/LastRead.now"}) {
    if (fs::exists(folder / name)) kept.counters = FirstLine(PosixFiles().Read(folder / name));
  }
  kept.links = StoredRecords(store);
  for (const StoredValue& value : store.ReadTree(Hive::LocalMachine, names::SettingsKey)) {
    if (value.key == names::SettingsKey) kept.settings[value.name] = tallyo::TextOf(value.value);
  }
  return kept;
}

std::map<std::string, int> HoursOf(const std::string& dailyFile) {
  std::map<std::string, int> hours;
  if (dailyFile == "(none)") return hours;
  Lines lines(dailyFile);
  while (const auto line = lines.Next()) {
    EXPECT_GT(line->size(), 4U) << dailyFile;
    hours[std::string(line->substr(0, 4))] = std::atoi(std::string(line->substr(4)).c_str());
  }
  return hours;
}

void ExpectOldOrNew(const KeptData& now, const KeptData& before, const KeptData& after,
                    bool linksMayBeGone) {
  Texts all = after.files;
  all.insert(before.files.begin(), before.files.end());
  all.insert(now.files.begin(), now.files.end());
  for (const auto& [file, ignored] : all) {
    SCOPED_TRACE(file);
    const auto [text, old, wanted] =
        std::tuple(TextOf(now.files, file), TextOf(before.files, file), TextOf(after.files, file));
    if (file.ends_with(".export")) {
      EXPECT_THAT(text, AnyOf(old, wanted));
    } else {
      ExpectHoursKept(text, old, wanted);
    }
  }
  EXPECT_THAT(now.counters, AnyOf(before.counters, after.counters));
  EXPECT_TRUE(now.links == before.links || now.links == after.links ||
              (linksMayBeGone && now.links.empty()))
      << testing::PrintToString(now.links);
  for (const auto& [name, text] : now.settings) {
    const auto [old, wanted] =
        std::pair(TextOf(before.settings, name), TextOf(after.settings, name));
    if (name == names::kBytesTransTotal) {
      EXPECT_THAT(std::stod(text), AllOf(Ge(std::stod(old)), Le(std::stod(wanted))));
    } else {
      EXPECT_THAT(text, AnyOf(old, wanted)) << name;
    }
  }
  for (const auto& [name, text] : before.settings) {
    EXPECT_TRUE(now.settings.contains(name)) << name;
  }
}

}  // namespace tallyo::test
