// A volume in memory behind the system's calls. It can keep its callers waiting.
#pragma once

#include <windows.h>

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "platform/windows/volumes/volume_calls.h"

namespace velmora::windows {

class ScriptedVolume final : public VolumeCalls {
    template <typename Work>
    auto locked(Work&& work) {
        const std::lock_guard lock(mutex_);
        return work();
    }

  public:
    // What the calls give; set before they are made.
    std::string bytes;
    std::wstring label;
    std::wstring fileSystem;
    DiskFreeSpace clusters;
    SpaceInBytes size;
    std::uint32_t type = DRIVE_FIXED;
    DWORD error = ERROR_SUCCESS;  ///< of each call

    /// Each call but that to close waits from now on.
    void hold() { setHeld(true); }
    void release() { setHeld(false); }

    int asked() {
        return locked([this] { return asked_; });
    }
    int opened() {
        return locked([this] { return lastHandle_; });
    }
    int closed() {
        return locked([this] { return closed_; });
    }
    /// Calls with a handle that isn't open, and handles closed under a call.
    int faults() {
        return locked([this] { return faults_; });
    }
    /// The paths and roots that were asked for, in their order.
    std::vector<std::wstring> names() {
        return locked([this] { return names_; });
    }
    /// Whether each call was made with boxes of the system turned off.
    bool isQuiet() {
        return locked([this] { return isQuiet_; });
    }

    DWORD open(const std::wstring& path, DWORD /*share*/, HANDLE& handle) override {
        return answer(path, [&] {
            if (error != ERROR_SUCCESS) return;
            handle = handleOf(++lastHandle_);
            positions_[handle] = 0;
        });
    }
    DWORD read(HANDLE handle, char* buffer, DWORD wanted, DWORD& read) override {
        const Use use(*this, handle);
        return answer({}, [&] {
            std::uint64_t& position = positions_[handle];
            const std::uint64_t from = std::min<std::uint64_t>(position, bytes.size());
            read = static_cast<DWORD>(std::min<std::uint64_t>(wanted, bytes.size() - from));
            std::memcpy(buffer, bytes.data() + from, read);
            position += read;
        });
    }
    DWORD seek(HANDLE handle, std::uint64_t position) override {
        const Use use(*this, handle);
        return answer({}, [&] { positions_[handle] = position; });
    }
    void close(HANDLE handle) override {
        locked([&] {
            if (positions_.erase(handle) == 0 || inUse_[handle] > 0) ++faults_;
            ++closed_;
        });
    }
    DWORD information(const std::wstring& root, std::wstring& itsLabel,
                      std::wstring& itsFileSystem) override {
        return answer(root, [&] {
            itsLabel = label;
            itsFileSystem = fileSystem;
        });
    }
    std::uint32_t driveType(const std::wstring& root) override {
        answer(root, [] {});
        return type;
    }
    DWORD space(const std::wstring& root, DiskFreeSpace& counts, SpaceInBytes& inBytes) override {
        return answer(root, [&] {
            counts = clusters;
            inBytes = size;
        });
    }

    /// Where the next read of the handle that was opened as the nth begins.
    std::uint64_t positionOf(int nth) {
        return locked([&] { return positions_[handleOf(nth)]; });
    }

  private:
    // A handle that a call works with.
    class Use {
      public:
        Use(ScriptedVolume& volume, HANDLE handle) : volume_(volume), handle_(handle) {
            volume_.locked([&] {
                ++volume_.inUse_[handle_];
                if (!volume_.positions_.contains(handle_)) ++volume_.faults_;
            });
        }
        ~Use() {
            volume_.locked([&] { --volume_.inUse_[handle_]; });
        }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        ScriptedVolume& volume_;
        HANDLE handle_;
    };

    // Numbers that are no handles of the system.
    static HANDLE handleOf(int nth) { return ULongToHandle(0x70000000U + static_cast<ULONG>(nth)); }

    void setHeld(bool held) {
        locked([&] { isHeld_ = held; });
        changed_.notify_all();
    }
    template <typename Work>
    DWORD answer(const std::wstring& name, Work&& work) {
        std::unique_lock lock(mutex_);
        ++asked_;
        if (!name.empty()) names_.push_back(name);
        constexpr DWORD quiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;
        isQuiet_ = isQuiet_ && (GetThreadErrorMode() & quiet) == quiet;
        changed_.wait(lock, [this] { return !isHeld_; });
        work();
        return error;
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    bool isHeld_ = false;
    bool isQuiet_ = true;
    int asked_ = 0;
    int lastHandle_ = 0;
    int closed_ = 0;
    int faults_ = 0;
    std::map<HANDLE, std::uint64_t> positions_;
    std::map<HANDLE, int> inUse_;
    std::vector<std::wstring> names_;
};

}  // namespace velmora::windows
