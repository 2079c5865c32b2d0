#pragma once

#include <string>

#include "app/program.h"

namespace tallyo {

// Why the last check of the account refused it, as a plain sentence without a full stop.
[[nodiscard]] std::string WhyAccountRefused(const Program& program);

// Why a refresh did not come to its end; "" where it did.
[[nodiscard]] std::string WhyNotRefreshed(const Program& program, RefreshOutcome outcome);

// Why the service did not do what was submitted; "" where it did.
[[nodiscard]] std::string WhyNotRegistered(const Program& program, RegistrationAnswer answer);

}  // namespace tallyo
