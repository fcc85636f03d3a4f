#include "platform/linux/inventory/plain_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "platform/linux/system/read_whole.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

constexpr std::size_t greatestPlainFile = 4 * 1024 * 1024;

std::int64_t microsecondsOf(const timespec& time) {
    return time.tv_sec * std::int64_t{1'000'000} + time.tv_nsec / 1000;
}

}  // namespace

std::optional<PlainFile> readPlainFile(const std::string& path) {
    // A pipe must not keep the reader waiting.
    const UniqueFd file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.isOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    PlainFile result{
        .content = {}, .owner = status.st_uid, .modified = microsecondsOf(status.st_mtim)};
    if (readWhole(file.get(), greatestPlainFile, result.content) != 0) return std::nullopt;
    return result;
}

std::vector<std::string> namesInFolder(const std::string& path) {
    std::vector<std::string> names;
    std::error_code failure;
    std::filesystem::directory_iterator entry(path, failure);
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure))
        names.push_back(entry->path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace velmora::linuxhost
