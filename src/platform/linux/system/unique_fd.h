// A file descriptor that is closed with its owner.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace velmora::linuxhost {

class UniqueFd {
  public:
    UniqueFd() = default;
    /// Takes over an open descriptor, or the negative result of a call that failed.
    explicit UniqueFd(int fd) : fd_(fd) {}
    ~UniqueFd() { reset(); }
    UniqueFd(UniqueFd&& other) noexcept : fd_(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept {
        reset(other.release());
        return *this;
    }

    bool isOpen() const { return fd_ >= 0; }
    int get() const { return fd_; }
    /// Gives the descriptor to the caller, who closes it.
    int release() { return std::exchange(fd_, -1); }
    void reset(int fd = -1) {
        if (isOpen()) ::close(fd_);
        fd_ = fd;
    }
    /// Closes it; it is closed afterwards in any case. 0, or the errno: some filesystems report
    /// only now that a write has failed.
    int close() { return ::close(release()) == 0 || errno == EINTR ? 0 : errno; }

  private:
    int fd_ = -1;
};

}  // namespace velmora::linuxhost
