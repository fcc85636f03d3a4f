// A process that reads management records, so that a source that doesn't answer keeps only that
// process waiting. It reads a record when it is asked for one.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/inventory/record_channel.h"
#include "platform/linux/inventory/record_messages.h"
#include "platform/linux/inventory/record_source.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

/// How long a source may make no progress.
inline constexpr std::chrono::milliseconds recordDeadline{2000};

/// Opens the source of a class; null for a class that there isn't. Runs in the reading process.
using SourceOpener = std::function<std::unique_ptr<RecordSource>(const std::string& className)>;

class RecordReader {
  public:
    explicit RecordReader(SourceOpener open, std::chrono::milliseconds deadline = recordDeadline)
        : open_(std::move(open)), deadline_(deadline) {}
    /// Ends the process; one that can't be ended at once isn't waited for.
    ~RecordReader() { stop(); }
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

    // All of them raise error 440 when the source fails. When it makes no progress within the
    // deadline or the process is gone, every later call raises it, too.

    /// Begins a query for the records of a class. Its number. The first one starts the process.
    std::uint32_t begin(const std::string& className);
    /// The next record of a query; nothing at the end.
    std::optional<Record> next(std::uint32_t query);
    /// Gives up a query. Raises nothing.
    void end(std::uint32_t query);
    /// The account at a path; nothing when there is none.
    std::optional<Record> account(const std::string& path);

  private:
    void start();
    void stop();
    RecordReply ask(const RecordRequest& request);
    [[noreturn]] void giveUp();

    SourceOpener open_;
    std::chrono::milliseconds deadline_;
    UniqueFd socket_;
    std::optional<RecordChannel> channel_;
    pid_t process_ = -1;
    std::uint32_t queries_ = 0;
    bool hasFailed_ = false;
};

}  // namespace velmora::linuxhost
