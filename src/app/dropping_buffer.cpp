#include "app/dropping_buffer.h"

#include <cerrno>

namespace velmora {

namespace {

constexpr std::size_t most = 16 * 1024;

}  // namespace

DroppingBuffer::~DroppingBuffer() {
    writeAll();
}

// One write for what waits, so that a reader gets whole lines.
bool DroppingBuffer::writeAll() {
    if (waiting_.empty()) return true;
    // A line that was cut stays one of its own.
    if (hasDropped_ && isLineOpen_) waiting_.insert(0, 1, '\n');
    errno = 0;
    const std::size_t written = write_(waiting_);
    const bool isWhole = written == waiting_.size();
    isReaderGone_ = !isWhole && errno == EPIPE;
    hasDropped_ = !isWhole;
    if (written > 0) isLineOpen_ = waiting_[written - 1] != '\n';
    waiting_.clear();
    return isWhole;
}

DroppingBuffer::int_type DroppingBuffer::overflow(int_type character) {
    if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(0);
    const char one = traits_type::to_char_type(character);
    return xsputn(&one, 1) == 1 ? character : traits_type::eof();
}

std::streamsize DroppingBuffer::xsputn(const char* text, std::streamsize size) {
    waiting_.append(text, static_cast<std::size_t>(size));
    return waiting_.size() < most || writeAll() ? size : 0;
}

int DroppingBuffer::sync() {
    return writeAll() ? 0 : -1;
}

}  // namespace velmora
