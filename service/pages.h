#pragma once

#include <string>

#include "service/answer.h"
#include "service/request_target.h"

namespace tallyo::service {

// The pages that the service shows to people.
[[nodiscard]] Answer PageAnswer(Page page);

// Clients know a missing account by the "404" in the page; no other page may hold it.
[[nodiscard]] Answer NotFoundAnswer();
[[nodiscard]] Answer BadRequestAnswer();
[[nodiscard]] Answer ForbiddenAnswer();
[[nodiscard]] Answer MethodNotAllowedAnswer();
[[nodiscard]] Answer UnavailableAnswer();

}  // namespace tallyo::service
