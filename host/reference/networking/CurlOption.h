#pragma once

#include "Address.h"

#include <curl/curl.h>

#include <string>

namespace norel::Desktop::Networking::Http {

/// Throws RequestError when libcurl refuses the option.
template <typename Value>
void setOption(CURL* connection, CURLoption option, Value value) {
    if (const CURLcode code = curl_easy_setopt(connection, option, value); code != CURLE_OK)
        throw RequestError(std::string("libcurl refuses an option: ") + curl_easy_strerror(code));
}

} // namespace norel::Desktop::Networking::Http
