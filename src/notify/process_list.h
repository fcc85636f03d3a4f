// The running processes, listed in the way of the system's version.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace velmora {

/// Three arrays side by side. They grow when there is no room.
struct ProcessArrays {
    std::vector<std::string> names;
    std::vector<std::string> ids;    ///< numbers; handles where processes are opened
    std::vector<std::string> sizes;  ///< size of the system's record; empty where there is none

    /// Arrays with room up to this index.
    static ProcessArrays upTo(std::size_t index);
    void store(std::size_t index, std::string name, std::string id, std::string size);
    /// Whether the three texts at an index are all empty.
    bool isEmptyAt(std::size_t index) const;
};

/// The generations of the system by their way of listing processes.
namespace version_class {
inline constexpr int other = 0;
inline constexpr int nt351 = 1;
inline constexpr int nt4 = 2;
inline constexpr int windows95 = 3;
inline constexpr int windows98 = 4;
inline constexpr int windows2000 = 5;
}  // namespace version_class

/// The class of a version; `other` for all that came later.
int versionClassOf(const OsVersionInfo& version);

class ProcessList {
  public:
    explicit ProcessList(Platform& platform) : platform_(platform) {}

    /// Fills the arrays. A snapshot fills them from index 0 on, opened processes from index 1 on;
    /// one that can't be opened or read is left out. The classes 0 and 1 list nothing.
    void prcEnumProcesses(ProcessArrays& arrays);

  private:
    void listSnapshot(ProcessArrays& arrays);
    void listOpened(ProcessArrays& arrays);
    std::vector<std::uint32_t> runningIds();
    /// The path of its executable; nothing when its modules can't be read.
    std::optional<std::string> pathOf(SystemHandle process);

    Platform& platform_;
};

/// The running processes as an object that keeps the list. Nothing in the program needs one yet.
class clsRunProc {
  public:
    explicit clsRunProc(Platform& platform) : list_(platform) {}
    /// Lists them anew.
    void prcRunningProcs() {
        running_ = {};
        list_.prcEnumProcesses(running_);
    }
    /// Those of the last listing.
    const ProcessArrays& RunningProcs() const { return running_; }

  private:
    ProcessList list_;
    ProcessArrays running_;
};

}  // namespace velmora
