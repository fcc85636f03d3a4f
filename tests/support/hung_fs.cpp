// A filesystem that doesn't answer. Its root is an empty folder whose attributes are reported at
// once. The question about its space, the one about a name "stuck", the listing of the folder
// "endless" and reading the file "disk" get no answer; the attributes of "endless" and "disk" do.
// The folder "halting" lists the names "0" to "1999"; from "1000" on no attributes are told.
//
//   hung_fs MOUNTPOINT [CONTROL LOG [disk]]
//
// CONTROL is the number of an inherited pipe end to read from. When a byte comes in, the waiting
// questions and all later ones are answered; when the other end is closed, also because its
// process ended, the filesystem is unmounted as well. LOG is a file that gets one byte for each
// question about the space. Without them it never answers until it is killed. With the word
// "disk" the question about the space is answered at once: who lays a loop device over the file
// asks it.
#define FUSE_USE_VERSION 31

#include <fcntl.h>
#include <fuse.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

namespace {

int controlEnd = -1;  // polling no descriptor waits for ever
int logFile = -1;
bool isDisk = false;
constexpr off_t diskSize = 1 << 20;

void waitForRelease() {
    pollfd control{controlEnd, POLLIN, 0};
    while (poll(&control, 1, -1) < 0 && errno == EINTR) continue;
}

// Polls for the hang-up alone, which is reported without being asked for.
void endWithOwner() {
    pollfd control{controlEnd, 0, 0};
    while (poll(&control, 1, -1) < 0 && errno == EINTR) continue;
    kill(getpid(), SIGTERM);
}

constexpr char halting[] = "/halting";
constexpr int haltingEntries = 2000;
constexpr int haltingFrom = 1000;

bool isInHalting(const char* path) {
    constexpr std::size_t length = sizeof halting - 1;
    return std::strncmp(path, halting, length) == 0 && path[length] == '/';
}

int reportFile(struct stat* status, off_t size) {
    *status = {};
    status->st_mode = S_IFREG | 0600;
    status->st_nlink = 1;
    status->st_size = size;
    return 0;
}

int reportAttributes(const char* path, struct stat* status, fuse_file_info*) {
    if (std::strcmp(path, "/stuck") == 0) waitForRelease();
    if (isInHalting(path)) {
        if (std::atoi(path + sizeof halting) >= haltingFrom) waitForRelease();
        return reportFile(status, 1);
    }
    if (std::strcmp(path, "/disk") == 0) return reportFile(status, diskSize);
    if (std::strcmp(path, "/") != 0 && std::strcmp(path, "/endless") != 0 &&
        std::strcmp(path, halting) != 0)
        return -ENOENT;
    *status = {};
    status->st_mode = S_IFDIR | 0755;
    status->st_nlink = 2;
    return 0;
}

int reportSpace(const char*, struct statvfs* space) {
    if (logFile >= 0 && write(logFile, "?", 1) != 1) return -EIO;
    if (!isDisk) waitForRelease();
    *space = {};
    space->f_bsize = 4096;
    space->f_frsize = 1024;
    space->f_blocks = 5000;
    space->f_bfree = 3000;
    space->f_bavail = 2000;
    return 0;
}

int listEntries(const char* path, void* names, fuse_fill_dir_t fill, off_t, fuse_file_info*,
                fuse_readdir_flags) {
    if (std::strcmp(path, "/endless") == 0) waitForRelease();
    if (std::strcmp(path, halting) != 0) return 0;
    for (int i = 0; i < haltingEntries; ++i)
        fill(names, std::to_string(i).c_str(), nullptr, 0, fuse_fill_dir_flags(0));
    return 0;
}

int readZeros(const char*, char* content, size_t size, off_t, fuse_file_info*) {
    waitForRelease();
    std::memset(content, 0, size);
    return static_cast<int>(size);
}

void* begin(fuse_conn_info*, fuse_config* config) {
    config->attr_timeout = 0;
    config->entry_timeout = 0;
    if (controlEnd >= 0) std::thread(endWithOwner).detach();
    return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4 && argc != 5) return 2;
    isDisk = argc == 5 && std::strcmp(argv[4], "disk") == 0;
    if (argc >= 4) {
        controlEnd = std::atoi(argv[2]);
        logFile = open(argv[3], O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
        if (logFile < 0) return 2;
    }

    fuse_operations operations{};
    operations.getattr = reportAttributes;
    operations.statfs = reportSpace;
    operations.readdir = listEntries;
    operations.read = readZeros;
    operations.init = begin;
    std::string name = argv[0];
    std::string foreground = "-f";
    char* arguments[] = {name.data(), foreground.data(), argv[1], nullptr};
    return fuse_main(3, arguments, &operations, nullptr);
}
