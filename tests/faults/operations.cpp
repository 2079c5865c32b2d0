#include "tests/faults/operations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace tallyo::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using Boxes = std::vector<std::string>;

constexpr const char* kExported =
    "Data exported to: \nFOLDER/mysite.export\nYou also need to copy: \nFOLDER/Data/\n to the new "
    "computer";
constexpr const char* kNotFound = "File: FOLDER/mysite.export not found";
constexpr const char* kQuestion =
    "A missconfiguration was found. Press Yes to reset the program. Warning This will remove all "
    "saved data";

void Write(const std::filesystem::path& file, std::string_view text) {
  std::ofstream(file, std::ios::binary) << text;
}

void Choose(FaultyProgram& program, const char* name) {
  ComboBox& listed = program.Form().Combo1;
  listed.Choose(listed.Find(name));
}

void Add(FaultyProgram& program) {
  auto& fields = program.Form().Text1;
  fields[field::kLinkPath].SetText("http://h/D");
  fields[field::kReference].SetText("D.zip");
  fields[field::kFriendlyName].SetText("D");
  fields[field::kSizeKb].SetText("4");
  program.Form().Label2[action::kAdd].Click();
  program.Form().Command1[1].Click();
}

void Remove(FaultyProgram& program) {
  Choose(program, "B");
  program.Form().Label2[action::kRemove].Click();
  program.Form().Command1[1].Click();
}

void ExpectNone(const Boxes& boxes, const KeptData& /*now*/, const KeptData& /*before*/,
                const KeptData& /*after*/) {
  EXPECT_THAT(boxes, IsEmpty());
}

// The service's answer is all that the box waits for. Without the account's check no request can be
// submitted.
auto ExpectSubmitted(const char* box) {
  return [box](const Boxes& boxes, const KeptData& now, const KeptData& before,
               const KeptData& /*after*/) {
    // A link that cannot be read fills no name.
    EXPECT_THAT(boxes,
                AnyOf(IsEmpty(), ElementsAre(box), ElementsAre("Operation succesful -  Deleted")));
    EXPECT_TRUE(!boxes.empty() || now.links == before.links);
  };
}

void ExpectStarted(const Boxes& boxes, const KeptData& /*now*/, const KeptData& /*before*/,
                   const KeptData& /*after*/) {
  EXPECT_THAT(boxes, AnyOf(IsEmpty(), ElementsAre(kQuestion)));
}

void ExpectExported(const Boxes& boxes, const KeptData& now, const KeptData& /*before*/,
                    const KeptData& after) {
  EXPECT_THAT(boxes, AnyOf(IsEmpty(), ElementsAre(kExported)));
  EXPECT_TRUE(boxes.empty() || now.files == after.files) << "it says that it was written";
}

void ExpectImported(const Boxes& boxes, const KeptData& now, const KeptData& /*before*/,
                    const KeptData& after) {
  EXPECT_THAT(boxes, AnyOf(IsEmpty(), ElementsAre(kNotFound)));
  EXPECT_TRUE(boxes.empty() || now.links != after.links) << "it says that it failed";
}

}  // namespace

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {.name = "start",  // after a session that was killed
       .prepare =
           [](const std::filesystem::path& folder) {
             std::filesystem::rename(folder / "Data/LastRead.dat", folder / "Data/LastRead.now");
           },
       .isStart = true,
       .act = [](FaultyProgram& program) { program.Start(); },
       .expectBoxes = ExpectStarted},
      {.name = "refresh",
       .act = [](FaultyProgram& program) { program.Refresh(); },
       .expectBoxes = ExpectNone},
      {.name = "export",
       .prepare = [](const auto& folder) { Write(folder / "mysite.export", "of last month\r\n"); },
       .act =
           [](FaultyProgram& program) {
             program.P().Dispatch([&] { program.Form().mnuExportAll.Click(); });
           },
       .expectBoxes = ExpectExported},
      {.name = "import",
       .prepare =
           [](const auto& folder) {
             Write(folder / "mysite.export",
                   ";Tallyo v1.1\r\nusr=Acme, acc=mysite\r\nupd=2, dfu=http://d/\r\n"
                   "1,E,E.zip,http://h/E\r\nE\r\n1,F,F.zip,http://h/F\r\nF\r\n");
           },
       .act =
           [](FaultyProgram& program) {
             program.P().Dispatch([&] { program.Form().mnuImportAll.Click(); });
           },
       .expectBoxes = ExpectImported,
       .linksMayBeGone = true},
      {.name = "link add",
       .act = [](FaultyProgram& program) { program.P().Dispatch([&] { Add(program); }); },
       .expectBoxes = ExpectSubmitted("Operation succesful - D Added")},
      {.name = "link removal",
       .act = [](FaultyProgram& program) { program.P().Dispatch([&] { Remove(program); }); },
       .expectBoxes = ExpectSubmitted("Operation succesful - B Deleted")},
      {.name = "quit",
       .act =
           [](FaultyProgram& program) {
             program.Form().ListView1.SetValue(1, 1, "12");
             program.P().state.LastCheckTime = 36000;
             program.P().Quit();
           },
       .expectBoxes = ExpectNone}};
  return operations;
}

}  // namespace tallyo::test
