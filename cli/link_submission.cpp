#include "cli/link_submission.h"

#include <algorithm>

#include "cli/refusal_text.h"

namespace tallyo {
namespace {

bool HasComma(std::string_view text) { return text.find(',') != std::string_view::npos; }

bool HasControl(std::string_view text) {
  return std::ranges::any_of(text, [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
  });
}

bool AnyField(const NewLink& link, bool (*has)(std::string_view)) {
  return has(link.path) || has(link.name) || has(link.sizeKb) || has(link.reference.value_or(""));
}

void FillFields(Program& program, const NewLink& link) {
  auto& fields = program.form.Text1;
  program.screens.ShowScreen(screen::kManageLinks);
  fields[field::kLinkPath].SetText(link.path);
  fields[field::kReference].SetText("");
  fields[field::kLinkPath].LostFocus();  // proposes the reference
  if (link.reference) {
    fields[field::kReference].SetText(*link.reference);
  }
  fields[field::kFriendlyName].SetText(link.name);
  fields[field::kSizeKb].SetText(link.sizeKb);
}

std::string WhyNotOffered(const Program& program) {
  if (program.form.Text1[field::kAccount].Text().empty()) {
    return "no account is set; see 'tallyo-cli account save'";
  }
  const std::string refused = WhyAccountRefused(program);
  return refused.empty() ? "the account has no slots left" : refused;
}

// Chooses an action label as the pointer does, and submits.
std::string Submit(Program& program, std::size_t actionLabel) {
  Label& label = program.form.Label2[actionLabel];
  label.MouseMove();
  label.Click();
  const Button& submit = program.form.Command1[1];
  if (!submit.Enabled()) {
    return WhyNotOffered(program);
  }
  submit.Click();
  return WhyNotRegistered(program, program.manageLinks.LastAnswer());
}

}  // namespace

std::string WhyNotAddable(const Program& program, const NewLink& link) {
  if (link.path.empty() || link.name.empty()) {
    return "path and name must not be empty";
  }
  if (AnyField(link, &HasComma)) {
    return "a link's path, name, reference and size must not hold a comma";
  }
  if (AnyField(link, &HasControl)) {
    return "a link's path, name, reference and size must not hold a line break or another control "
           "character";
  }
  if (link.name.find('=') != std::string::npos) {
    return "a link's name must not hold a \"=\"";  // the counters are kept as "name=counter,"
  }
  const ComboBox& listed = program.form.Combo1;
  if (listed.Find(link.name) < listed.Count()) {
    return "a link named " + link.name + " is monitored already";
  }
  return "";
}

std::string SubmitNewLink(Program& program, const NewLink& link) {
  std::string why = WhyNotAddable(program, link);
  if (!why.empty()) {
    return why;
  }
  program.form.Command1[1].SetEnabled(false);  // a link that was refused leaves it enabled
  FillFields(program, link);
  return Submit(program, action::kAdd);
}

std::string SubmitRemoval(Program& program, const std::string& name) {
  ComboBox& listed = program.form.Combo1;
  const int item = listed.Find(name);
  if (item == listed.Count()) {
    return "no link is named " + name;
  }
  program.screens.ShowScreen(screen::kManageLinks);
  listed.Choose(item);
  return Submit(program, action::kRemove);
}

}  // namespace tallyo
