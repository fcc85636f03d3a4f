#include "platform/linux/inventory/lines_from_end.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace velmora::linuxhost {

namespace {

constexpr off_t blockSize = 64 * 1024;
constexpr std::size_t longestLine = 64 * 1024;
constexpr off_t farthestLineEnd = 16 * 1024 * 1024;

// Whole or up to the file's end. False when it can't be read.
bool readAt(const UniqueFd& file, off_t place, std::string& bytes) {
    std::size_t size = 0;
    while (size < bytes.size()) {
        const ssize_t got = pread(file.get(), bytes.data() + size, bytes.size() - size,
                                  place + static_cast<off_t>(size));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
    }
    bytes.resize(size);
    return true;
}

// The last line, which begins there.
std::string lineFrom(const std::string& text, std::size_t begin) {
    std::string line = text.substr(begin, longestLine);
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

}  // namespace

LinesFromEnd::LinesFromEnd(const std::string& path)
    : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    struct stat status {};
    if (file_.isOpen() && fstat(file_.get(), &status) == 0 && S_ISREG(status.st_mode))
        begin_ = status.st_size;
}

std::optional<std::string> LinesFromEnd::next() {
    while (true) {
        const auto end = text_.rfind('\n');
        if (end == std::string::npos) {
            if (readBlock()) continue;
            const std::string line = lineFrom(std::exchange(text_, {}), 0);
            return line.empty() ? std::nullopt : std::optional(line);
        }
        std::string line = lineFrom(text_, end + 1);
        text_.resize(end);
        inLine_ = 0;
        if (!line.empty()) return line;
    }
}

// Puts the block in front of `text_`, in which there is no line end. False when there is nothing
// more to read.
bool LinesFromEnd::readBlock() {
    const off_t from = std::max<off_t>(0, begin_ - blockSize);
    const auto size = static_cast<std::size_t>(begin_ - from);
    if (size == 0) return false;
    std::string block(size, '\0');
    if (inLine_ > farthestLineEnd || !readAt(file_, from, block)) {
        begin_ = 0;
        text_.clear();
        return false;
    }
    begin_ = from;
    if (block.size() < size) {
        forgetCutOff(std::move(block));
        return true;
    }
    inLine_ += static_cast<off_t>(size);
    text_.resize(std::min(text_.size(), longestLine));
    text_.insert(0, block);
    return true;
}

// The file became shorter: it ends with this block, or before it.
void LinesFromEnd::forgetCutOff(std::string block) {
    struct stat status {};
    if (block.empty() && fstat(file_.get(), &status) == 0)
        begin_ = std::min(begin_, status.st_size);
    text_ = std::move(block);
    inLine_ = 0;
}

}  // namespace velmora::linuxhost
