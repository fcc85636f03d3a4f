// What every fuzz target is made of: the entry point that the fuzzer and the replay program call,
// and checks that end the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace velmora {

/// Ends the program with a message about the failed check, so that the fuzzer keeps the input.
inline void require(bool kept, const char* promise) {
    if (kept) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

inline std::string_view asText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace velmora
