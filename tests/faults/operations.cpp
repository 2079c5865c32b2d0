#include "tests/faults/operations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyo::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kExported =
    "Data exported to: \nFOLDER/mysite.export\nYou also need to copy: \nFOLDER/Data/\n to the new "
    "computer";
constexpr const char* kNotFound = "File: FOLDER/mysite.export not found";
constexpr const char* kQuestion =
    "A missconfiguration was found. Press Yes to reset the program. Warning This will remove all "
    "saved data";

// What runs as an event of the window does.
std::function<void(FaultyProgram&)> AsEvent(void (*work)(FaultyProgram&)) {
  return [work](FaultyProgram& program) { program.P().Dispatch([&] { work(program); }); };
}

void Submit(FaultyProgram& program, int action) {
  program.Form().Label2[static_cast<std::size_t>(action)].Click();
  program.Form().Command1[1].Click();
}

void Add(FaultyProgram& program) {
  auto& fields = program.Form().Text1;
  fields[field::kLinkPath].SetText("http://h/D");
  fields[field::kReference].SetText("D.zip");
  fields[field::kFriendlyName].SetText("D");
  fields[field::kSizeKb].SetText("4");
  Submit(program, action::kAdd);
}

void Remove(FaultyProgram& program) {
  ComboBox& listed = program.Form().Combo1;
  listed.Choose(listed.Find("B"));
  Submit(program, action::kRemove);
}

// The service's answer is all that the box waits for. Without the account's check no request can be
// submitted.
auto ExpectSubmitted(const char* box) {
  return [box](const Outcome& outcome) {
    // A link that cannot be read fills no name.
    EXPECT_THAT(outcome.boxes,
                AnyOf(IsEmpty(), ElementsAre(box), ElementsAre("Operation succesful -  Deleted")));
    EXPECT_TRUE(!outcome.boxes.empty() || outcome.now.links == outcome.before.links);
  };
}

void ExpectNone(const Outcome& outcome) { EXPECT_THAT(outcome.boxes, IsEmpty()); }

void ExpectStarted(const Outcome& outcome) {
  EXPECT_THAT(outcome.boxes, AnyOf(IsEmpty(), ElementsAre(kQuestion)));
}

void ExpectExported(const Outcome& outcome) {
  EXPECT_THAT(outcome.boxes, AnyOf(IsEmpty(), ElementsAre(kExported)));
  EXPECT_TRUE(outcome.boxes.empty() || outcome.now.files == outcome.wanted.files)
      << "it says that it was written";
}

void ExpectImported(const Outcome& outcome) {
  EXPECT_THAT(outcome.boxes, AnyOf(IsEmpty(), ElementsAre(kNotFound)));
  EXPECT_TRUE(outcome.boxes.empty() || outcome.now.links != outcome.wanted.links)
      << "it says that it failed";
}

}  // namespace

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {.name = "start",  // after a session that was killed
       .prepare =
           [](FaultyProgram& program) {
             const std::filesystem::path data = program.folder.Path() / "Data";
             std::filesystem::rename(data / "LastRead.dat", data / "LastRead.now");
           },
       .isStart = true,
       .act = [](FaultyProgram& program) { program.Start(); },
       .expectBoxes = ExpectStarted},
      {.name = "refresh",
       .act = [](FaultyProgram& program) { program.Refresh(); },
       .expectBoxes = ExpectNone},
      {.name = "export",
       .prepare =
           [](FaultyProgram& program) { program.WriteFile("mysite.export", "of last month\r\n"); },
       .act = AsEvent([](FaultyProgram& program) { program.Form().mnuExportAll.Click(); }),
       .expectBoxes = ExpectExported},
      {.name = "import",
       .prepare =
           [](FaultyProgram& program) {
             program.WriteFile("mysite.export",
                               ";Tallyo v1.1\r\nusr=Acme, acc=mysite\r\nupd=2, dfu=http://d/\r\n"
                               "1,E,E.zip,http://h/E\r\nE\r\n1,F,F.zip,http://h/F\r\nF\r\n");
           },
       .act = AsEvent([](FaultyProgram& program) { program.Form().mnuImportAll.Click(); }),
       .expectBoxes = ExpectImported,
       .linksMayBeGone = true},
      {.name = "link add",
       .act = AsEvent(Add),
       .expectBoxes = ExpectSubmitted("Operation succesful - D Added")},
      {.name = "link removal",
       .act = AsEvent(Remove),
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
