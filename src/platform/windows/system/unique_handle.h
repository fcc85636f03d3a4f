// Handles of the system that are closed with their owner.
#pragma once

#include <windows.h>

#include <utility>

namespace velmora::windows {

/// `Close` closes a handle of that kind.
template <typename Close>
class Unique {
  public:
    Unique() = default;
    /// Takes over an open handle, or the result of a call that failed: null or
    /// INVALID_HANDLE_VALUE.
    explicit Unique(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    ~Unique() { reset(); }
    Unique(Unique&& other) noexcept : handle_(other.release()) {}
    Unique& operator=(Unique&& other) noexcept {
        reset(other.release());
        return *this;
    }

    bool isOpen() const { return handle_ != nullptr; }
    HANDLE get() const { return handle_; }
    /// Gives the handle to the caller, who closes it.
    HANDLE release() { return std::exchange(handle_, nullptr); }
    void reset(HANDLE handle = nullptr) {
        if (handle_) Close()(handle_);
        handle_ = handle == INVALID_HANDLE_VALUE ? nullptr : handle;
    }

  private:
    HANDLE handle_ = nullptr;
};

struct CloseObject {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = Unique<CloseObject>;

struct CloseFind {
    void operator()(HANDLE find) const { FindClose(find); }
};
/// Of FindFirstFileW.
using UniqueFind = Unique<CloseFind>;

}  // namespace velmora::windows
