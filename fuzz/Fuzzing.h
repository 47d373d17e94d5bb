#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// Called by libFuzzer for every input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace norel::Fuzzing {

inline std::string toText(const std::uint8_t* data, std::size_t size) { return {data, data + size}; }

/// Reports the input to libFuzzer unless `isTrue`.
inline void require(bool isTrue, const char* claim) {
    if (isTrue)
        return;
    std::fprintf(stderr, "violated: %s\n", claim);
    std::abort();
}

} // namespace norel::Fuzzing
