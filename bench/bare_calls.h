// The system calls that the program's work is compared with, and how they are timed.
#pragma once

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "bench_program.h"

namespace velmora::bench {

// Takes what the bare calls find, so that no compiler leaves them out.
inline volatile std::uint64_t found = 0;

// Each entry of a listing and its status, by the fewest calls.
inline void bareScan(const std::string& path, bool withStatus) {
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    alignas(dirent64) static std::array<char, 64 * 1024> buffer;
    std::uint64_t sum = 0;
    for (;;) {
        const ssize_t size = getdents64(folder, buffer.data(), buffer.size());
        if (size <= 0) break;
        for (ssize_t at = 0; at < size;) {
            const auto& entry = *reinterpret_cast<const dirent64*>(buffer.data() + at);
            at += entry.d_reclen;
            ++sum;
            if (!withStatus) continue;
            struct statx status {};
            statx(folder, entry.d_name, AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC,
                  STATX_BASIC_STATS | STATX_BTIME, &status);
            sum += static_cast<std::uint64_t>(status.stx_mtime.tv_sec);
        }
    }
    close(folder);
    found = sum;
}

// The best of some rounds, to leave out the time that other programs take.
inline double best(int rounds, const std::function<void()>& work) {
    double least = seconds(work);
    for (int i = 1; i < rounds; ++i) least = std::min(least, seconds(work));
    return least;
}

}  // namespace velmora::bench
