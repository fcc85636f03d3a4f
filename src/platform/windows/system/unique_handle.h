// A handle of the system that is closed with its owner.
#pragma once

#include <windows.h>

#include <utility>

namespace velmora::windows {

class UniqueHandle {
  public:
    UniqueHandle() = default;
    /// Takes over an open handle, or the result of a call that failed: null or
    /// INVALID_HANDLE_VALUE.
    explicit UniqueHandle(HANDLE handle)
        : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    ~UniqueHandle() { reset(); }
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        reset(other.release());
        return *this;
    }

    bool isOpen() const { return handle_ != nullptr; }
    HANDLE get() const { return handle_; }
    /// Gives the handle to the caller, who closes it.
    HANDLE release() { return std::exchange(handle_, nullptr); }
    void reset(HANDLE handle = nullptr) {
        if (handle_) CloseHandle(handle_);
        handle_ = handle == INVALID_HANDLE_VALUE ? nullptr : handle;
    }

  private:
    HANDLE handle_ = nullptr;
};

}  // namespace velmora::windows
