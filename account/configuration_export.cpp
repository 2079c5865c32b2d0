#include "account/configuration_export.h"

#include "links/link_record.h"
#include "settings/names.h"
#include "settings/version.h"
#include "text/runtime_error.h"

namespace tallyo {
namespace {

constexpr const char* kLineEnd = "\r\n";

}  // namespace

std::filesystem::path ExportFile(const SharedState& state, const std::string& account) {
  const std::string name = account + ".export";
  if (!IsFileName(name)) {
    throw RuntimeError("no file name: " + name);
  }
  return state.AppDir / name;
}

bool ConfigurationExport::Export() {
  std::string text = Header();
  for (int item = 0; item < form_.Combo1.Count(); ++item) {
    text += LinkLines(item);
  }
  form_.Text4.SetText(text);
  std::filesystem::path file;
  try {
    file = ExportFile(state_, form_.Text1[field::kAccount].Text());
    files_.Replace(file, text, state_.AppDir / "export.tmp");
  } catch (const RuntimeError&) {
    return false;
  }
  boxes_.Show({.text = "Data exported to: \n" + file.string() + "\nYou also need to copy: \n" +
                       state_.DataFolder().string() + "/\n to the new computer",
               .title = std::string(names::AppTitle) + " - Data Export"});
  return true;
}

std::string ConfigurationExport::Header() const {
  return ";" + std::string(names::AppTitle) + " v" + ShortVersion() + kLineEnd +  //
         "usr=" + form_.Text1[field::kCompany].Text() +
         ", acc=" + form_.Text1[field::kAccount].Text() + kLineEnd + "upd=" + form_.Text2.Text() +
         ", dfu=" + form_.Text3.Text() + kLineEnd;
}

std::string ConfigurationExport::LinkLines(int item) {
  form_.Combo1.Choose(item);
  LinkFields walked;
  const LinkLookup found =
      links_.FindMonitoredLink(walked, form_.Combo1.Text(), FindBy::FriendlyName);
  if (!found.found) {
    return "";
  }
  // Choosing a link fills no size, and what its record leaves empty from the records before it; the
  // file gets the record's own fields.
  const std::string text = links_.RecordOf(found);
  if (text.empty()) {
    throw RuntimeError("a link's record cannot be read");
  }
  const LinkRecord record = SplitRecord(text);
  LinkFields own;
  for (std::size_t i = 0; i < own.size(); ++i) {
    own.at(i) = record.fields.at(i).value_or("");
  }
  form_.Text1[field::kSizeKb].SetText(own[linkfield::kSizeKb]);
  form_.Text1[field::kFriendlyName].SetText(own[linkfield::kFriendlyName]);
  form_.Text1[field::kReference].SetText(own[linkfield::kReference]);
  form_.Text1[field::kLinkPath].SetText(own[linkfield::kLinkPath]);
  return RecordText(own) + kLineEnd + own[linkfield::kFriendlyName] + kLineEnd;
}

}  // namespace tallyo
