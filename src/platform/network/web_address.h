// The rules by which both backends fetch a page.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace velmora::network {

inline constexpr std::size_t greatestPage = 1 << 20;  ///< bytes; what follows isn't read
inline constexpr std::chrono::milliseconds pageLimit{10'000};
inline constexpr long mostRedirections = 10;
inline constexpr const char* userAgent = "Velmora";

/// Whether it begins with the scheme http or https and has no character that would end it early.
bool isWebAddress(const std::string& url);

}  // namespace velmora::network
