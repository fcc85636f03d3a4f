// A process that asks one drive about its space and its folders.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>

#include "platform/file_system_object.h"
#include "platform/linux/drives/asked_process.h"
#include "platform/linux/drives/helper_messages.h"

namespace velmora::linuxhost {

class HelperProcess {
  public:
    explicit HelperProcess(std::chrono::milliseconds deadline = driveDeadline)
        : deadline_(deadline) {}

    /// Nothing when there is no answer within the deadline, an earlier question is still pending,
    /// the path is too long for the host, or no process can be had. The first question starts the
    /// process; one that has died is replaced at the next question.
    std::optional<HelperReply> ask(HelperQuestion question, const std::string& path);

    bool isPending() const { return process_.isPending(); }
    /// The process's id, or -1.
    pid_t id() const { return process_.id(); }
    /// Gives up the process, which ends as soon as its drive has answered it.
    void stop() { process_.stop(); }

  private:
    std::chrono::milliseconds deadline_;
    AskedProcess process_{"velmora-drive", runHelper};
};

}  // namespace velmora::linuxhost
