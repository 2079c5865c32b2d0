#include "links/registration.h"

#include <cstdint>
#include <string_view>

#include "platform/transport_failure.h"

namespace tallyo {
namespace {

std::string Query(const std::string& account, std::string_view verb, std::string_view name,
                  std::string_view link) {
  std::string query = "devstats.cgi?account=" + account + "f.txt&action=";
  query.append(verb).append("&fryname=").append(name).append("&link=").append(link);
  return query;
}

bool Holds(std::string_view reply, std::string_view marker) {
  return reply.find(marker) != std::string_view::npos;
}

}  // namespace

RegistrationAnswer LinkRegistration::RegisterLinkOnService() {
  const Request request = ReadFields();
  bool answered = false;
  const std::string reply = Ask(request, "add", answered);
  if (Holds(reply, "<P>ok")) {
    links_.AppendMonitoredLink(request.fields);
    EndLinkAction();
    return RegistrationAnswer::Done;
  }
  if (Holds(reply, "<P>F Exists")) {
    boxes_.Show({.text = "Entry already existed on the server", .title = ""});
    EndLinkAction();
    return RegistrationAnswer::EntryExists;
  }
  if (Holds(reply, "<P>L Exists")) {
    boxes_.Show({.text = "Link already existed on the server", .title = ""});
    EndLinkAction();
    return RegistrationAnswer::LinkExists;
  }
  return answered ? RegistrationAnswer::Refused : RegistrationAnswer::NoAnswer;
}

RegistrationAnswer LinkRegistration::UnregisterLinkOnService() {
  const Request request = ReadFields();
  bool answered = false;
  const std::string reply = Ask(request, "del", answered);
  const bool done = Holds(reply, "<P>ok");
  if (done) {
    if (BeforeRemoval) {
      BeforeRemoval();
    }
    links_.RemoveMonitoredLink(request.listedName);
    const int item = form_.Combo1.Find(request.listedName);
    if (item < form_.Combo1.Count()) {
      form_.Combo1.RemoveItem(item);
    }
    const std::vector<int>& rows = form_.ListView1.RowsNamed(request.listedName);
    if (!rows.empty()) {
      form_.ListView1.RemoveRow(rows.front());
    }
    links_.ShowSlotsLeft();
  }
  form_.Command1[1].SetEnabled(false);
  if (done) {
    return RegistrationAnswer::Done;
  }
  return answered ? RegistrationAnswer::Refused : RegistrationAnswer::NoAnswer;
}

void LinkRegistration::EndLinkAction() {
  form_.Command1[1].SetEnabled(false);
  form_.Label2[action::kPending].SetCaption("");
}

LinkRegistration::Request LinkRegistration::ReadFields() const {
  const auto& text = form_.Text1;
  return {.account = text[field::kAccount].Text(),
          .listedName = form_.Combo1.Text(),
          .fields = {text[field::kSizeKb].Text(), text[field::kFriendlyName].Text(),
                     text[field::kReference].Text(), text[field::kLinkPath].Text()}};
}

std::string LinkRegistration::Ask(const Request& request, const std::string& verb, bool& answered) {
  const std::string& link = request.fields[linkfield::kLinkPath];
  std::string reply;
  try {
    reply = requests_.FetchDocument(requests_.ScriptAddress(
        Query(request.account, verb, request.fields[linkfield::kReference], link)));
    answered = true;
  } catch (const TransportFailure&) {
    answered = false;
  }
  // The counted query carries the friendly name where the sent one carries the reference.
  const std::string counted =
      Query(request.account, verb, request.fields[linkfield::kFriendlyName], link);
  traffic_.AddExchange(counted, reply);
  return reply;
}

}  // namespace tallyo
