// Texts of the bytes in a sector. All numbers are little-endian.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/regional.h"

namespace velmora {

/// Upper-case hexadecimal, with "0" in front up to that width. A width below 1 adds nothing.
std::string fHexPad(std::int16_t Width, std::uint32_t Value);
/// Each byte as the character of code page 1252. Nothing is trimmed.
std::string fBytesToString(std::string_view Bytes);
/// The text up to its first NUL, or all of it.
std::string fCutAtNull(const std::string& Text);
/// A word as unsigned.
std::int32_t fWordToLong(std::int16_t Word);
/// Its first byte in memory.
std::uint8_t fLowByte(std::int16_t Word);
/// The low eight bits of the address of its second byte in memory: a number of the running process,
/// not of the word.
std::uint8_t fHighByte(const std::int16_t& Word);
/// Eight bytes as a signed number.
double fQwordToDouble(std::string_view Bytes);
/// A double as text: up to 15 digits, with an exponent from 1E+15 on.
std::string scientificText(double value, const Regional& regional);

/// The number of `size` bytes (1 to 4) at a place in a sector.
std::uint32_t unsignedAt(std::string_view sector, std::size_t offset, std::size_t size);

}  // namespace velmora
