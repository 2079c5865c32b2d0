#pragma once

#include <string>

#include "service/answer.h"
#include "service/request_target.h"

namespace tallyo::service {

// The pages that the service shows to people.
[[nodiscard]] Answer PageAnswer(Page page);

// Clients read no status. They know a missing account by the "404" in the page, and take what holds
// a "=" for an account's record: none of these pages holds a "=", and "404" stands in those that
// say that whoever asks has no account here.
[[nodiscard]] Answer NotFoundAnswer();
[[nodiscard]] Answer BadRequestAnswer();
[[nodiscard]] Answer ForbiddenAnswer();
[[nodiscard]] Answer MethodNotAllowedAnswer();
[[nodiscard]] Answer UnavailableAnswer();

}  // namespace tallyo::service
