// Programs of the desktop that this program starts.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace velmora::linuxhost {

class ChildPrograms {
  public:
    enum class Result { done, failed, running, missing };

    /// A program that still runs after this time counts as started.
    explicit ChildPrograms(std::chrono::milliseconds patience = std::chrono::seconds(1))
        : patience_(patience) {}
    ~ChildPrograms() { reap(); }
    ChildPrograms(const ChildPrograms&) = delete;
    ChildPrograms& operator=(const ChildPrograms&) = delete;

    /// Starts a program by its name in PATH, without a shell, apart from this program's terminal,
    /// input and output. Done when it ended with status 0 within the patience, failed when it ended
    /// otherwise, missing when it can't be started.
    Result run(const std::vector<std::string>& command);

    /// Starts one likewise in a folder (where this program is when that is empty) and doesn't wait
    /// for it. False when it can't be started.
    bool start(const std::vector<std::string>& command, const std::string& folder = {});

    /// How many haven't ended yet.
    std::size_t running();

  private:
    void reap();

    std::chrono::milliseconds patience_;
    std::vector<pid_t> running_;
};

}  // namespace velmora::linuxhost
