// What an errno is in the codes of the other system and in the run-time's error numbers.
#pragma once

#include <cstdint>

namespace velmora::linuxhost {

/// Codes that the interfaces in platform/ answer with.
namespace code {
inline constexpr std::uint32_t success = 0;
inline constexpr std::uint32_t fileNotFound = 2;
inline constexpr std::uint32_t pathNotFound = 3;
inline constexpr std::uint32_t accessDenied = 5;
inline constexpr std::uint32_t invalidHandle = 6;
inline constexpr std::uint32_t invalidDrive = 15;
inline constexpr std::uint32_t notSameDevice = 17;
inline constexpr std::uint32_t notReady = 21;
inline constexpr std::uint32_t generalFailure = 31;
inline constexpr std::uint32_t sharingViolation = 32;
inline constexpr std::uint32_t invalidParameter = 87;
inline constexpr std::uint32_t diskFull = 112;
inline constexpr std::uint32_t alreadyExists = 183;
inline constexpr std::uint32_t nameTooLong = 206;
inline constexpr std::uint32_t fileTooLarge = 223;
inline constexpr std::uint32_t cancelled = 1223;
}  // namespace code

/// The code for an errno: 0 for 0, 31 for one without a code of its own.
std::uint32_t codeOf(int failure);
/// The same where a loop of links has no code of its own: there it is a general failure.
std::uint32_t codeWithoutLoops(int failure);

/// The run-time error for an errno other than 0, as for opening and writing a file: 76 for a path
/// that isn't there, 70, 75 or 61 for what is denied, read-only or full, 57 for any other.
int runtimeErrorOf(int failure);

// Calls that have fewer numbers, or another one for the same errno.

/// Looking at a folder, removing one, and saving a shortcut: 76 for a path that isn't there, 70 for
/// any other.
int errorOfEntry(int failure);
/// Removing a file: 53 for a path that isn't there, 75 for what is read-only or no file, 70 for any
/// other.
int errorOfRemovingFile(int failure);

}  // namespace velmora::linuxhost
