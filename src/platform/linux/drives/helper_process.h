// A process that asks one drive, so that a drive that doesn't answer keeps only that process
// waiting. A thread would not do: one that waits for a FUSE server can't be ended, and neither can
// its process, so the program could not end.
//
// At most one question is pending. While it is, further ones cost nothing and get no answer; its
// late answer is thrown away, since it belongs to a moment long past.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/linux/drives/helper_messages.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class HelperProcess {
  public:
    explicit HelperProcess(std::chrono::milliseconds deadline = driveDeadline)
        : deadline_(deadline) {}
    ~HelperProcess() { stop(); }
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;

    /// Nothing when there is no answer within the deadline, an earlier question is still pending,
    /// the path is too long for the host, or no process can be had. The first question starts the
    /// process; one that has died is replaced at the next question.
    std::optional<HelperReply> ask(HelperQuestion question, const std::string& path);

    bool isPending() const { return pending_; }
    /// The process's id, or -1.
    pid_t id() const { return process_; }
    /// Gives up the process, which ends as soon as its drive has answered it.
    void stop();

  private:
    bool start();
    bool send(HelperQuestion question, const std::string& path);
    enum class Received { answer, nothing, end };
    Received receive(HelperReply& reply) const;
    bool waitForAnswer() const;
    bool waitForEnd() const;
    bool waitFor(short events, std::chrono::milliseconds deadline) const;
    void reapStopped();

    std::chrono::milliseconds deadline_;
    UniqueFd socket_;
    pid_t process_ = -1;
    bool pending_ = false;
    std::vector<pid_t> stopped_;  // that may not have ended yet
};

}  // namespace velmora::linuxhost
