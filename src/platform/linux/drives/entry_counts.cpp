#include "platform/linux/drives/entry_counts.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/paths/path_names.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

void count(int folder, const dirent64& entry, EntryCounts& counts) {
    if (isDots(entry.d_name)) return;
    unsigned char kind = entry.d_type;
    // Some filesystems leave the kinds out of their listings.
    if (kind == DT_LNK || kind == DT_UNKNOWN) {
        struct stat status {};
        const bool leadsSomewhere = fstatat(folder, entry.d_name, &status, 0) == 0;
        kind = leadsSomewhere ? static_cast<unsigned char>(IFTODT(status.st_mode))
                              : static_cast<unsigned char>(DT_REG);
    }
    if (kind == DT_DIR) ++counts.folders;
    if (kind == DT_REG) ++counts.files;
}

// The reading functions of the runtime allocate memory, which a forked child may not.
int countAll(int folder, EntryCounts& counts) {
    alignas(dirent64) char buffer[32 * 1024];
    while (true) {
        const ssize_t size = getdents64(folder, buffer, sizeof buffer);
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) return errno;
        if (size == 0) return 0;
        for (ssize_t at = 0; at < size;) {
            const auto& entry = *reinterpret_cast<const dirent64*>(buffer + at);
            count(folder, entry, counts);
            at += entry.d_reclen;
        }
    }
}

UniqueFd openFolder(const char* path) {
    int folder = 0;
    do {
        folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    } while (folder < 0 && errno == EINTR);
    return UniqueFd(folder);
}

}  // namespace

int countEntries(const char* path, EntryCounts& counts) {
    const UniqueFd folder = openFolder(path);
    if (!folder.isOpen()) return errno;
    counts = {};
    return countAll(folder.get(), counts);
}

int beginListing(const char* path) {
    const UniqueFd folder = openFolder(path);
    if (!folder.isOpen()) return errno;
    alignas(dirent64) char buffer[32 * 1024];
    ssize_t size = 0;
    do {
        size = getdents64(folder.get(), buffer, sizeof buffer);
    } while (size < 0 && errno == EINTR);
    return size < 0 ? errno : 0;
}

}  // namespace velmora::linuxhost
