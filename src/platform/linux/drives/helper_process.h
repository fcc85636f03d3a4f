// A process that asks one drive about its space and its folders.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/file_system_object.h"
#include "platform/linux/drives/asked_process.h"
#include "platform/linux/drives/helper_messages.h"
#include "platform/linux/drives/listing_block.h"

namespace velmora::linuxhost {

/// What a listing goes on with.
struct ListingQuestion {
    std::string path;          ///< of the folder
    std::uint64_t number = 0;  ///< of its own among all listings
    bool hasDots = false;      ///< whether "." and ".." come first
    bool isFirst = true;       ///< whether it begins
    bool isSent = false;       ///< whether the process has got a question of it
};

class HelperProcess {
  public:
    explicit HelperProcess(std::chrono::milliseconds deadline = driveDeadline)
        : deadline_(deadline) {}

    /// Nothing when there is no answer within the deadline, an earlier question is still pending,
    /// the path is too long for the host, or no process can be had. The first question starts the
    /// process; one that has died is replaced at the next question.
    std::optional<HelperReply> ask(HelperQuestion question, const std::string& path);

    /// Whether the next entries of a listing came, by the same rules.
    bool readListing(ListingQuestion& question, ListingBlock& block);
    /// Lets the process close a listing that hasn't come to its end.
    void endListing(const ListingQuestion& question);

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
