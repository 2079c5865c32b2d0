#include "links/registration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/monitored_program.h"
#include "tests/support/table.h"

namespace tallyo {
namespace {

using test::Table;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;
using Answer = RegistrationAnswer;

constexpr const char* kScript = "/cgi-bin/";
// What is counted for a request: the friendly name where the sent query carries the reference.
constexpr std::string_view kCounted =
    "devstats.cgi?account=mysitef.txt&action=add&fryname=My Setup&link=http://files/setup.exe";

class RegistrationTest : public testing::Test {
 protected:
  void StartWithLinks(std::initializer_list<std::string> names) {
    program.Store().DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    program.GiveAccount();
    program.GiveLinks(names);
    program.Start();
    Type("setup.exe", "http://files/setup.exe", "My Setup", "250");
    program.P().state.MaxSlots = 10;
  }
  void Type(const char* reference, const char* path, const char* name, const char* size) {
    auto& text = program.Form().Text1;
    text[field::kReference].SetText(reference);
    text[field::kLinkPath].SetText(path);
    text[field::kFriendlyName].SetText(name);
    text[field::kSizeKb].SetText(size);
  }
  // As the screen leaves it before Submit.
  void MakePending(const char* verb) {
    program.Form().Label2[action::kPending].OnChange = {};
    program.Form().Label2[action::kPending].SetCaption(verb);
    program.Form().Command1[1].SetEnabled(true);
  }
  Answer Register() { return program.P().registration.RegisterLinkOnService(); }
  Answer Unregister() { return program.P().registration.UnregisterLinkOnService(); }
  [[nodiscard]] std::string Pending() { return program.Form().Label2[action::kPending].Caption(); }
  [[nodiscard]] bool CanSubmit() { return program.Form().Command1[1].Enabled(); }
  [[nodiscard]] const Texts& Items() { return program.Form().Combo1.Items(); }

  test::MonitoredProgram program;
};

TEST_F(RegistrationTest, ActsOnTheMarkersOfAnAnswerToAdd) {
  const std::string entry = "Entry already existed on the server";
  const std::string link = "Link already existed on the server";
  const Table<std::string, Answer, Texts> cases = {
      {"<P>L Exists <P>F Exists x<P>okay", Answer::Done, {}},
      {"<P>L Exists<P>F Exists", Answer::EntryExists, {entry}},
      {"<html><P>L Exists\n", Answer::LinkExists, {link}},
      {"<P>OK", Answer::Refused, {}},
      {"", Answer::Refused, {}}};
  for (const auto& [reply, answer, boxes] : cases) {
    SCOPED_TRACE(reply);
    StartWithLinks({});
    program.Set(names::kBytesTransTotal, "");
    program.server.Answer(kScript, reply);
    MakePending("ADD");
    EXPECT_EQ(Register(), answer);
    const bool added = answer == Answer::Done;
    const bool stillPending = answer == Answer::Refused;
    EXPECT_EQ(program.Record("01"), added ? "250,My Setup,setup.exe,http://files/setup.exe" : "");
    EXPECT_EQ(program.Form().Combo1.Count(), added ? 1 : 0);
    EXPECT_EQ(program.Form().Label4[0].Caption(), added ? "9" : "");
    EXPECT_EQ(program.Rows(), "");  // the next refresh adds it
    EXPECT_EQ(program.Boxes().Texts(), boxes);
    EXPECT_EQ(Pending(), stillPending ? "ADD" : "");
    EXPECT_EQ(CanSubmit(), stillPending);
    EXPECT_EQ(program.Setting(names::kBytesTransTotal),
              std::to_string(kCounted.size() + reply.size()));
  }
}

TEST_F(RegistrationTest, RemovesTheFirstLinkOfANameOnOk) {
  StartWithLinks({"A", "B", "B"});
  program.Form().ListView1.SetValue(3, 1, "second B");
  program.server.Answer(kScript, "<P>ok");
  program.Form().Combo1.SetText("B");
  MakePending("REMOVE");
  EXPECT_EQ(Unregister(), Answer::Done);
  EXPECT_EQ(program.Record("02") + program.Record("03"), "1,B,B.zip,http://h/B");
  EXPECT_THAT(Items(), ElementsAre("A", "B"));
  EXPECT_EQ(program.Form().Label4[0].Caption(), "8");
  EXPECT_EQ(program.Rows({1}), "A| B|second B ");
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Pending(), "REMOVE");
  EXPECT_FALSE(CanSubmit());
}

TEST_F(RegistrationTest, UsesTheTextsThatWereAskedFor) {
  StartWithLinks({"A", "B"});
  program.server.Answer(kScript, "<P>ok");
  program.Form().Combo1.SetText("A");
  const auto typeWhileItWaits = [&](std::size_t request) {
    program.server.Hold(kScript);
    program.DuringRequest(request, [&] {
      Type("other", "http://other", "Longer Name", "9");
      program.Form().Text1[field::kAccount].SetText("other");
      program.Form().Combo1.SetText("B");
    });
  };
  typeWhileItWaits(1);
  Unregister();
  EXPECT_THAT(Items(), ElementsAre("B"));
  EXPECT_EQ(program.Record("01"), "1,B,B.zip,http://h/B");
  program.Form().Text1[field::kAccount].SetText("mysite");
  Type("setup.exe", "http://files/setup.exe", "My Setup", "7");
  program.Set(names::kBytesTransTotal, "");
  typeWhileItWaits(2);
  Register();
  EXPECT_EQ(program.Record("01"), "7,My Setup,setup.exe,http://files/setup.exe");
  EXPECT_EQ(program.Setting(names::kBytesTransTotal), std::to_string(kCounted.size() + 5));
}

TEST_F(RegistrationTest, SendsNothingForALineBreakAndTakesAFetchThatFailsForARefusal) {
  StartWithLinks({"A"});
  Type("a", "http://f\r\nHost: x", "Name", "1");
  EXPECT_EQ(Register(), Answer::NoAnswer);
  EXPECT_EQ(Unregister(), Answer::NoAnswer);
  EXPECT_EQ(program.server.Connections(), 0);
  EXPECT_EQ(program.Form().Label8.Caption(), "");
  StartWithLinks({"A"});
  program.Set(names::kBytesTransTotal, "");
  program.server.RefuseConnections();
  MakePending("ADD");
  EXPECT_EQ(Register(), Answer::NoAnswer);
  EXPECT_EQ(Pending(), "ADD");
  EXPECT_TRUE(CanSubmit());
  EXPECT_EQ(program.Setting(names::kBytesTransTotal), std::to_string(kCounted.size()));
  program.Form().Combo1.SetText("A");
  EXPECT_EQ(Unregister(), Answer::NoAnswer);
  EXPECT_FALSE(CanSubmit());
  EXPECT_THAT(Items(), ElementsAre("A"));
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
}

}  // namespace
}  // namespace tallyo
