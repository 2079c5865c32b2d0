#pragma once

#include <optional>
#include <string>

#include "app/program.h"

namespace tallyo {

struct NewLink {
  std::string path;
  std::string name;
  std::optional<std::string> reference;  // none: the last part of the path, as the screen proposes
  std::string sizeKb;
};

// Each returns why it did not succeed, as a plain sentence without a full stop; "" where it did.

// Whether a link may be added at all, before the service is asked. The window takes without a word
// what would break the list of links; a console has no one who would notice.
[[nodiscard]] std::string WhyNotAddable(const Program& program, const NewLink& link);

// Fills the fields, chooses ADD and submits.
[[nodiscard]] std::string SubmitNewLink(Program& program, const NewLink& link);

// Chooses the link of that name and REMOVE, and submits.
[[nodiscard]] std::string SubmitRemoval(Program& program, const std::string& name);

}  // namespace tallyo
