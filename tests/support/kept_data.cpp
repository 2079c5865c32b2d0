#include "tests/support/kept_data.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <string_view>

#include "settings/names.h"

namespace tallyo::test {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void ReadStore(SettingsStore& store, KeptData& kept) {
  for (const StoredValue& stored : store.ReadTree(Hive::LocalMachine, names::SettingsKey)) {
    std::string text = stored.value.data;
    if (!text.ends_with('\0')) kept.damage += "the value " + stored.name + " is not whole\n";
    text.resize(text.empty() ? 0 : text.size() - 1);
    if (stored.key == names::SettingsKey) {
      kept.settings[stored.name] = text;
    } else if (stored.key.starts_with(names::MonitorFilesKey)) {
      const std::string number = std::to_string(kept.links.size() + 1);
      const std::string expected = (number.size() < 2 ? "0" : "") + number;
      if (stored.key != std::string(names::MonitorFilesKey) + expected || stored.name != expected ||
          FieldsOf(text).size() != 4) {
        kept.damage.append("record ").append(stored.key).append(" is ").append(text).append("\n");
      }
      kept.links.push_back(text);
    }
  }
}

void ReadDailyFile(const std::string& name, const std::string& text, KeptData& kept) {
  static const std::regex form(R"((0[1-9]|[12]\d|3[01])([01]\d|2[0-3])([1-9]\d*))");
  std::map<std::string, std::int64_t>& hours = kept.hours[name];
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = text.find("\r\n", begin)) != std::string::npos;
       begin = end + 2) {
    const std::string line = text.substr(begin, end - begin);
    if (std::regex_match(line, form) && !hours.contains(line.substr(0, 4))) {
      hours[line.substr(0, 4)] = std::stoll(line.substr(4));
    } else {
      kept.damage.append(name).append(" has the line ").append(line).append("\n");
    }
  }
  if (begin != text.size()) kept.damage += name + " has no last end\n";
}

// One line of "name=counter," entries; what stands below it is the program's own.
void ReadCounters(const std::string& name, const std::string& text, KeptData& kept) {
  static const std::regex form(R"(([^=,\r\n]+=\d*,)*)");
  kept.counters = text.substr(0, text.find("\r\n"));
  if (!text.ends_with("\r\n") || !std::regex_match(kept.counters, form)) {
    kept.damage += name + " is not whole: " + text + "\n";
  }
}

}  // namespace

std::int64_t KeptData::HitsOf(const std::string& name) const {
  std::int64_t sum = 0;
  for (const auto& [file, byHour] : hours) {
    if (fs::path(file).filename().string().substr(0, file.size() - file.rfind('/') - 5) != name) {
      continue;
    }
    for (const auto& [hour, hits] : byHour) sum += hits;
  }
  return sum;
}

std::string KeptData::LostSince(const KeptData& earlier) const {
  std::string lost;
  for (const auto& [file, byHour] : earlier.hours) {
    for (const auto& [hour, hits] : byHour) {
      const bool kept =
          hours.contains(file) && hours.at(file).contains(hour) && hours.at(file).at(hour) >= hits;
      if (!kept) lost.append(file).append(" ").append(hour).append(" ");
    }
  }
  return lost;
}

std::vector<std::string> FieldsOf(const std::string& record) {
  std::vector<std::string> fields{""};
  for (const char byte : record) {
    if (byte == ',') {
      fields.emplace_back();
    } else {
      fields.back() += byte;
    }
  }
  return fields;
}

KeptData ReadKeptData(const fs::path& appDir, SettingsStore& store) {
  KeptData kept;
  ReadStore(store, kept);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(appDir)) {
    const std::string name = entry.path().lexically_relative(appDir);
    const bool isDaily = name.starts_with("Data/20") && entry.is_regular_file();
    if (isDaily || name.ends_with(".export")) kept.files[name] = BytesOf(entry.path());
    if (isDaily) ReadDailyFile(name, kept.files[name], kept);
  }
  // A killed session's own counters win over those of the session before it.
  for (const char* name : {"Data/LastRead.dat", "Data/LastRead.now"}) {
    if (fs::exists(appDir / name)) ReadCounters(name, BytesOf(appDir / name), kept);
  }
  return kept;
}

}  // namespace tallyo::test
