#include "links/registration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace tallyo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr const char* kAdd = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=add";
constexpr const char* kDel = "/cgi-bin/Tallyo/devstats.cgi?account=mysitef.txt&action=del";

class RegistrationTest : public testing::Test {
 protected:
  RegistrationTest() { program.GiveAccount(); }

  void StartWithLinks(const Texts& names) {
    int number = 0;
    for (const std::string& name : names) {
      program.SetRecord("0" + std::to_string(++number), "1," + name + ",r" + name + ",p" + name);
    }
    program.Start();
    Type("setup.exe", "http://files/setup.exe", "My Setup", "250");
    program.P().state.MaxSlots = 10;
  }
  void Type(const std::string& reference, const std::string& path, const std::string& name,
            const std::string& size) {
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
  RegistrationAnswer Register() { return program.P().registration.RegisterLinkOnService(); }
  RegistrationAnswer Unregister() { return program.P().registration.UnregisterLinkOnService(); }
  [[nodiscard]] std::string Pending() { return program.Form().Label2[action::kPending].Caption(); }
  [[nodiscard]] bool CanSubmit() { return program.Form().Command1[1].Enabled(); }

  test::TestProgram program;
};

TEST_F(RegistrationTest, SendsTheFieldsAsTheyStand) {
  const struct {
    const char* account;
    const char* reference;
    const char* path;
    const char* rest;  // behind "account="
  } cases[] = {
      {"acme", "setup.exe", "http://files/setup.exe",
       "acmef.txt&action=ACT&fryname=setup.exe&link=http://files/setup.exe"},
      {"my site", "a&b c", "http://f/a b?x=1&y=#2",
       "my sitef.txt&action=ACT&fryname=a&b c&link="
       "http://f/a b?x=1&y=#2"},
      {"a", "../%41", "http://f/../\xC3\xA4\xFF",
       "af.txt&action=ACT&fryname=../%41&link="
       "http://f/../\xC3\xA4\xFF"},
      {"", "", "", "f.txt&action=ACT&fryname=&link="},
  };
  StartWithLinks({});
  Texts expected;
  for (const auto& c : cases) {
    program.Form().Text1[field::kAccount].SetText(c.account);
    Type(c.reference, c.path, "Never Sent", "1");
    EXPECT_EQ(Register(), RegistrationAnswer::Refused);
    EXPECT_EQ(Unregister(), RegistrationAnswer::Refused);
    for (const char* verb : {"add", "del"}) {
      std::string rest = c.rest;
      rest.replace(rest.find("ACT"), 3, verb);
      expected.push_back("GET /cgi-bin/Tallyo/devstats.cgi?account=" + rest + " HTTP/1.1");
    }
  }
  EXPECT_EQ(program.server.Requests(), expected);
}

TEST_F(RegistrationTest, CountsTheQueryWithTheFriendlyNameAndTheReply) {
  StartWithLinks({});
  const std::string counted =
      "devstats.cgi?account=mysitef.txt&action=add&fryname=My Setup&link=http://files/setup.exe";
  program.server.Answer(kAdd, "12345");
  program.server.Answer(kDel, "");
  Register();
  EXPECT_EQ(program.Setting(names::kBytesTransTotal), std::to_string(counted.size() + 5));
  Unregister();
  EXPECT_EQ(program.Setting(names::kBytesTransTotal), std::to_string(2 * counted.size() + 5));
}

TEST_F(RegistrationTest, ActsOnTheMarkersOfAnAnswerToAdd) {
  const std::string entry = "Entry already existed on the server";
  const std::string link = "Link already existed on the server";
  const struct {
    const char* reply;
    RegistrationAnswer answer;
    bool added;
    Texts boxes;
    bool pending;  // still, with Submit enabled
  } cases[] = {
      {"<P>ok", RegistrationAnswer::Done, true, {}, false},
      {"<P>L Exists <P>F Exists x<P>okay", RegistrationAnswer::Done, true, {}, false},
      {"<P>L Exists<P>F Exists", RegistrationAnswer::EntryExists, false, {entry}, false},
      {"<html><P>L Exists\n", RegistrationAnswer::LinkExists, false, {link}, false},
      {"<P>OK", RegistrationAnswer::Refused, false, {}, true},
      {"<p>ok", RegistrationAnswer::Refused, false, {}, true},
      {"ok <P>f exists", RegistrationAnswer::Refused, false, {}, true},
      {"<P>refused: no slot left", RegistrationAnswer::Refused, false, {}, true},
      {"", RegistrationAnswer::Refused, false, {}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reply);
    program.Store().DeleteKey(Hive::LocalMachine, names::MonitorFilesKey);
    StartWithLinks({});
    program.server.Answer(kAdd, c.reply);
    MakePending("ADD");
    EXPECT_EQ(Register(), c.answer);
    EXPECT_EQ(program.Record("01"), c.added ? "250,My Setup,setup.exe,http://files/setup.exe" : "");
    EXPECT_EQ(program.Form().Combo1.Count(), c.added ? 1 : 0);
    EXPECT_EQ(program.Form().Label4[0].Caption(), c.added ? "9" : "");
    EXPECT_EQ(program.Form().ListView1.RowCount(), 0);  // the next refresh adds it
    EXPECT_EQ(program.Boxes().Texts(), c.boxes);
    EXPECT_EQ(Pending(), c.pending ? "ADD" : "");
    EXPECT_EQ(CanSubmit(), c.pending);
  }
}

TEST_F(RegistrationTest, RemovesOnOkAndDisablesSubmitInEveryCase) {
  const struct {
    const char* reply;
    bool removed;
  } cases[] = {{"<P>ok", true}, {"<P>F Exists", false}, {"<P>OK", false}, {"", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reply);
    StartWithLinks({"A", "B"});
    program.server.Answer(kDel, c.reply);
    program.Form().Combo1.SetText("A");
    MakePending("REMOVE");
    EXPECT_EQ(Unregister(), c.removed ? RegistrationAnswer::Done : RegistrationAnswer::Refused);
    EXPECT_EQ(program.Record("01"), c.removed ? "1,B,rB,pB" : "1,A,rA,pA");
    EXPECT_EQ(program.Form().Combo1.Items(), c.removed ? Texts{"B"} : Texts({"A", "B"}));
    EXPECT_EQ(program.Form().Label4[0].Caption(), c.removed ? "9" : "");
    EXPECT_EQ(program.Form().ListView1.RowText(1), c.removed ? "B" : "A");
    EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
    EXPECT_EQ(Pending(), "REMOVE");
    EXPECT_FALSE(CanSubmit());
  }
}

TEST_F(RegistrationTest, RemovesTheFirstRowOfTheNameAlone) {
  StartWithLinks({"A", "B", "B", "C"});
  program.Form().ListView1.SetValue(3, 1, "second B");
  program.server.Answer(kDel, "<P>ok");
  program.Form().Combo1.SetText("B");
  Unregister();
  const ReportList& rows = program.Form().ListView1;
  ASSERT_EQ(rows.RowCount(), 3);
  EXPECT_EQ(rows.RowText(1) + rows.RowText(2) + rows.RowText(3), "ABC");
  EXPECT_EQ(rows.Value(2, 1), "second B");
  EXPECT_THAT(program.Form().Combo1.Items(), ElementsAre("A", "B", "C"));
}

TEST_F(RegistrationTest, UsesTheTextsThatWereAskedFor) {
  StartWithLinks({"A", "B"});
  program.server.Answer(kAdd, "<P>ok");
  program.server.Answer(kDel, "<P>ok");
  program.Form().Combo1.SetText("A");
  bool changed = false;
  program.Event = [&] {
    if (!changed && !program.server.Requests().empty()) {
      changed = true;
      Type("other", "http://other", "Other", "9");
      program.Form().Text1[field::kAccount].SetText("other");
      program.Form().Combo1.SetText("B");
      program.server.Release();
    }
  };
  program.server.Hold("/cgi-bin/");
  Unregister();
  ASSERT_TRUE(changed);
  EXPECT_THAT(program.Form().Combo1.Items(), ElementsAre("B"));
  EXPECT_EQ(program.Record("01"), "1,B,rB,pB");

  program.Form().Text1[field::kAccount].SetText("mysite");
  Type("ref", "http://path", "Name", "7");
  const std::size_t before = program.server.Requests().size();
  const std::string total = program.Setting(names::kBytesTransTotal);
  program.Event = [&] {
    if (program.server.Requests().size() > before) {
      Type("other", "http://other", "Longer Name", "9");
      program.server.Release();
    }
  };
  program.server.Hold("/cgi-bin/");
  Register();
  EXPECT_EQ(program.Record("01"), "7,Name,ref,http://path");
  const std::string counted =
      "devstats.cgi?account=mysitef.txt&action=add&fryname=Name&link=http://path<P>ok";
  EXPECT_EQ(program.Setting(names::kBytesTransTotal),
            std::to_string(std::stoul(total) + counted.size()));
}

TEST_F(RegistrationTest, AFetchThatFailsIsCountedAndTakenForARefusal) {
  StartWithLinks({"A"});
  program.server.RefuseConnections();
  MakePending("ADD");
  EXPECT_EQ(Register(), RegistrationAnswer::NoAnswer);
  EXPECT_EQ(Pending(), "ADD");
  EXPECT_TRUE(CanSubmit());
  const std::string counted =
      "devstats.cgi?account=mysitef.txt&action=add&fryname=My Setup&link=http://files/setup.exe";
  EXPECT_EQ(program.Setting(names::kBytesTransTotal), std::to_string(counted.size()));
  program.Form().Combo1.SetText("A");
  EXPECT_EQ(Unregister(), RegistrationAnswer::NoAnswer);
  EXPECT_FALSE(CanSubmit());
  EXPECT_EQ(program.Record("01"), "1,A,rA,pA");
  EXPECT_THAT(program.Boxes().Texts(), IsEmpty());
}

TEST_F(RegistrationTest, SendsNothingForALineBreak) {
  const struct {
    const char* reference;
    const char* path;
  } cases[] = {{"a\nb", "http://f"}, {"a", "http://f\r\nHost: x"}, {"a", "http://f\x7F"}};
  StartWithLinks({});
  for (const auto& c : cases) {
    Type(c.reference, c.path, "Name", "1");
    EXPECT_EQ(Register(), RegistrationAnswer::NoAnswer);
    EXPECT_EQ(Unregister(), RegistrationAnswer::NoAnswer);
  }
  EXPECT_EQ(program.server.Connections(), 0);
  EXPECT_EQ(program.Form().Label8.Caption(), "");
  EXPECT_EQ(program.P().requests.TransferTimeout(), 60);
}

}  // namespace
}  // namespace tallyo
