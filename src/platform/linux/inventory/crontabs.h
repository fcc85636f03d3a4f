// The jobs in crontabs.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/inventory/crontab_line.h"
#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// Win32_ScheduledJob: a line each, file by file. What can't be read is passed over.
class CrontabJobs final : public RecordSource {
  public:
    struct File {
        std::string path;
        CrontabKind kind;
        std::string user = {};  ///< whose it is, if it is a user's
    };

    explicit CrontabJobs(std::deque<File> files) : files_(std::move(files)) {}
    std::optional<Record> next() override;

  private:
    bool openNext();

    std::deque<File> files_;  // those that weren't begun
    File file_{};
    std::string content_;
    std::string_view rest_;  // of the content
};

/// The files of the system's folder of crontabs. As cron does, it passes over names with other
/// characters than letters, digits, "_" and "-".
std::deque<CrontabJobs::File> systemCrontabsIn(const std::string& folder);
/// The crontabs of users, which have their names. Hidden files are no crontabs.
std::deque<CrontabJobs::File> userCrontabsIn(const std::string& folder);

}  // namespace velmora::linuxhost
