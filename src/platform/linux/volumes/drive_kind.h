// What kind of drive a mount is.
#pragma once

#include <cstdint>

#include "platform/linux/drives/mount_table.h"

namespace velmora::linuxhost {

/// Kinds of drives as GetDriveTypeA numbers them.
namespace drive_kind {
inline constexpr std::uint32_t unknown = 0;
inline constexpr std::uint32_t missing = 1;
inline constexpr std::uint32_t removable = 2;
inline constexpr std::uint32_t fixed = 3;
inline constexpr std::uint32_t remote = 4;
inline constexpr std::uint32_t optical = 5;
inline constexpr std::uint32_t memory = 6;
}  // namespace drive_kind

/// By the mount's type and its device. Never waits for the drive.
std::uint32_t driveKindOf(const Mount& mount);

}  // namespace velmora::linuxhost
