#pragma once

#include <curl/curl.h>

namespace tallyo {

// The two functions of libcurl that take any type of argument, loaded with the first call as all
// the others are. They throw TransportFailure where libcurl cannot be loaded.
[[nodiscard]] decltype(&curl_easy_setopt) CurlSetOption();
[[nodiscard]] decltype(&curl_easy_getinfo) CurlGetInfo();

}  // namespace tallyo
