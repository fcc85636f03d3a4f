#include "platform/linux/moving/left_copies.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/entries/open_folder.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/entries/private_folder.h"
#include "platform/linux/paths/user_folders.h"
#include "platform/linux/system/read_whole.h"
#include "platform/linux/system/write_all.h"

namespace velmora::linuxhost {

namespace {

constexpr std::string_view noteNameStart = "moving-";
constexpr std::time_t longestMemory = 30L * 24 * 3600;
// A note without a path may be one that another process is just beginning to write.
constexpr std::time_t timeToWrite = 60;

std::string notesFolder() {
    return stateFolder() + "/velmora";
}

// Of an open folder; empty where it isn't known.
std::string pathOf(int folder) {
    std::array<char, PATH_MAX> path{};
    const std::string self = "/proc/self/fd/" + std::to_string(folder);
    const ssize_t size = readlink(self.c_str(), path.data(), path.size());
    return size > 0 && path[0] == '/' ? std::string(path.data(), static_cast<std::size_t>(size))
                                      : std::string{};
}

// Whether no living process holds it.
bool lockNote(const UniqueFd& file) {
    return flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

// A start that looks at all notes holds it for a moment.
bool lockOwnNote(const UniqueFd& file) {
    while (flock(file.get(), LOCK_EX) != 0) {
        if (errno != EINTR) return false;
    }
    return true;
}

std::uint64_t anyNumber() {
    std::uint64_t number = 0;
    if (getrandom(&number, sizeof number, 0) == sizeof number) return number;
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000 +
           static_cast<std::uint64_t>(now.tv_nsec);
}

UniqueFd makeNote(int folder, std::string& name) {
    UniqueFd note;
    for (int number = 1; !note.isOpen() && number <= 100; ++number) {
        name = std::string(noteNameStart) + std::to_string(getpid()) + '-' + std::to_string(number);
        constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        note = UniqueFd(openat(folder, name.c_str(), flags, S_IRUSR | S_IWUSR));
        if (!note.isOpen() && errno != EEXIST) return note;
    }
    return note;
}

bool isRegularFile(int file, struct stat& status) {
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

// Whether nothing is left at the path that a later start could remove.
bool isRemoved(Volumes& volumes, const std::string& path) {
    const OpenedParent parent(volumes, path);
    struct stat status {};
    if (!parent.isOpen() || parent.readStatus(status) != 0) return false;
    const bool isCopy =
        S_ISREG(status.st_mode) && status.st_nlink <= 2 && parent.name().starts_with(temporaryCopy);
    return !isCopy || unlinkat(parent.fd(), parent.name().c_str(), 0) == 0;
}

void follow(Volumes& volumes, int folder, const std::string& name) {
    const UniqueFd note(openat(folder, name.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    // Its process lives.
    if (!note.isOpen() || !isRegularFile(note.get(), status) || !lockNote(note)) return;
    std::string path;
    if (readWhole(note.get(), PATH_MAX, path) != 0) return;
    const std::time_t age = std::time(nullptr) - status.st_mtime;
    const bool isOver =
        path.empty() ? age > timeToWrite : isRemoved(volumes, path) || age > longestMemory;
    if (isOver) unlinkat(folder, name.c_str(), 0);
}

}  // namespace

std::string temporaryCopyName() {
    static const std::string own =
        temporaryCopy + std::to_string(getpid()) + '-' + std::to_string(anyNumber()) + '-';
    static unsigned number = 0;
    return own + std::to_string(++number);
}

CopyNote::CopyNote(int folder, std::string name) : folder_(folder), name_(std::move(name)) {
    const std::string place = pathOf(folder);
    if (place.empty() || makePrivateFolder(notesFolder(), state_) != 0) return;
    note_ = makeNote(state_.get(), file_);
    const std::string path = (place == "/" ? place : place + '/') + name_;
    std::string_view rest = path;
    if (note_.isOpen() && lockOwnNote(note_) && writeAll(note_.get(), rest) == 0) return;
    if (note_.isOpen()) forget();
    file_.clear();
}

CopyNote::~CopyNote() {
    struct stat status {};
    if (fstatat(folder_, name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) forget();
}

void CopyNote::forget() {
    if (!file_.empty()) unlinkat(state_.get(), file_.c_str(), 0);
    file_.clear();
}

void removeLeftCopies(Volumes& volumes) {
    UniqueFd state;
    if (openPrivateFolder(notesFolder(), state) != 0) return;
    std::vector<std::string> names;
    static_cast<void>(namesIn(OpenFolder(state.get(), "."), names));
    for (const std::string& name : names) {
        if (name.starts_with(noteNameStart)) follow(volumes, state.get(), name);
    }
}

}  // namespace velmora::linuxhost
