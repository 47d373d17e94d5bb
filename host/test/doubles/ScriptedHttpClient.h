#pragma once

#include "norel/Desktop/Networking/Http/HttpClient.h"

#include <functional>
#include <vector>

namespace norel::Desktop::Test {

/// A client that returns what `answer` returns, throws what it throws, and records the requests.
struct ScriptedHttpClient : Networking::Http::HttpClient {
    Response send(const Request& request) override {
        requests.push_back(request);
        return answer();
    }

    std::function<Response()> answer = [] { return Response{200, "[]"}; };
    std::vector<Request> requests;
};

} // namespace norel::Desktop::Test
