#include "platform/linux/drives/entry_counts.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/paths/path_names.h"

namespace velmora::linuxhost {

namespace {

// Of what a link leads to; DT_UNKNOWN where it leads nowhere.
unsigned char kindBehind(int folder, const char* name) {
    struct stat status {};
    const bool leadsSomewhere = fstatat(folder, name, &status, 0) == 0;
    return leadsSomewhere ? static_cast<unsigned char>(IFTODT(status.st_mode))
                          : static_cast<unsigned char>(DT_UNKNOWN);
}

void count(int folder, const dirent64& entry, CountedFolder& counted) {
    if (isDots(entry.d_name)) return;
    unsigned char kind = entry.d_type;
    if (kind == DT_LNK) {
        kind = kindBehind(folder, entry.d_name);
        counted.links.add(entry.d_name, kind);
        if (kind == DT_UNKNOWN) kind = DT_REG;
    } else if (kind == DT_UNKNOWN) {
        // Some filesystems leave the kinds out of their listings.
        kind = kindBehind(folder, entry.d_name);
        counted.links.leaveOut();
        if (kind == DT_UNKNOWN) kind = DT_REG;
    }
    if (kind == DT_DIR) ++counted.counts.folders;
    if (kind == DT_REG) ++counted.counts.files;
}

// The reading functions of the runtime allocate memory, which a forked child may not.
int countAll(int folder, CountedFolder& counted) {
    alignas(dirent64) char buffer[32 * 1024];
    while (true) {
        const ssize_t size = getdents64(folder, buffer, sizeof buffer);
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) return errno;
        if (size == 0) return 0;
        for (ssize_t at = 0; at < size;) {
            const auto& entry = *reinterpret_cast<const dirent64*>(buffer + at);
            count(folder, entry, counted);
            at += entry.d_reclen;
        }
    }
}

}  // namespace

UniqueFd openFolder(const char* path) {
    int folder = 0;
    do {
        folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    } while (folder < 0 && errno == EINTR);
    return UniqueFd(folder);
}

// The mark is the same before and after where nothing came or went meanwhile.
int countEntries(const char* path, CountedFolder& counted) {
    const UniqueFd folder = openFolder(path);
    if (!folder.isOpen()) return errno;
    counted = {};
    const bool isMarked = datesEveryChange(folder.get()) && readMark(folder.get(), counted.mark);
    const int failure = countAll(folder.get(), counted);
    FolderMark after;
    counted.standsWithMark = isMarked && counted.links.areAll() && readMark(folder.get(), after) &&
                             after == counted.mark;
    return failure;
}

}  // namespace velmora::linuxhost
