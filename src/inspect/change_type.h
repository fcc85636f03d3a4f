// Kinds of changes in a folder, as a set of bits.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

namespace change {
inline constexpr std::int32_t name = 1;
inline constexpr std::int32_t size = 2;
inline constexpr std::int32_t lastWrite = 4;
inline constexpr std::int32_t dirName = 8;
}  // namespace change

/// The words of the bits in `ChangeType`, in the order of their values, with " & " between them;
/// empty for none.
std::string fChangeTypeText(std::int32_t ChangeType);

}  // namespace velmora
