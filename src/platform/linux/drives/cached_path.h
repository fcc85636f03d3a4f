// Paths that the kernel knows by heart.
#pragma once

#include <cstdint>
#include <string>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

/// Opens what lies at `path`, taken from the folder `at`, as a mere place in the tree (O_PATH).
/// Links are followed. Never waits: closed with errno EAGAIN where a device or a server would have
/// to be asked on the way, and where the kernel can't tell. `flags` may be O_DIRECTORY, `resolve`
/// what openat2 knows besides.
UniqueFd openCached(int at, const char* path, int flags = 0, std::uint64_t resolve = 0);

/// The same for an absolute path. One with a NUL in it leads nowhere, and is not taken for a
/// shorter one.
UniqueFd openCached(const std::string& path, int flags = 0, std::uint64_t resolve = 0);

/// The folder at an absolute path of which no component is a link. Closed likewise.
UniqueFd openCachedWithoutLinks(const std::string& path);

}  // namespace velmora::linuxhost
