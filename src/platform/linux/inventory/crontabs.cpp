#include "platform/linux/inventory/crontabs.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/job_text.h"
#include "platform/linux/inventory/plain_file.h"
#include "platform/linux/inventory/text_pieces.h"

namespace velmora::linuxhost {

namespace {

// The present offset of local time from UTC, as the end of a CIM time.
std::string offsetOfNow() {
    constexpr std::size_t size = 4;
    const std::string now = cimTime(std::time(nullptr) * std::int64_t{1'000'000});
    return now.size() < size ? std::string{} : now.substr(now.size() - size);
}

// A CIM time on any day.
std::string everyDayAt(const CronJob::Time& time) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%02d%02d00", time.hour, time.minute);
    return std::string("********") + digits + ".000000" + offsetOfNow();
}

Record cronRecord(const CronJob& job, const CrontabJobs::File& file) {
    const std::string schedule = jobText(job.schedule);
    Record record{{"Caption", schedule},
                  {"Command", jobText(job.command)},
                  {"Description", schedule},
                  {"Name", oneLine(file.path)},
                  {"Owner", oneLine(file.kind == CrontabKind::user ? file.user : job.user)},
                  {"RunRepeatedly", "True"}};
    if (job.time) record["StartTime"] = everyDayAt(*job.time);
    if (job.daysOfMonth) record["DaysOfMonth"] = std::to_string(*job.daysOfMonth);
    if (job.daysOfWeek) record["DaysOfWeek"] = std::to_string(*job.daysOfWeek);
    return record;
}

bool isCronName(const std::string& name) {
    return std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_' || c == '-';
    });
}

}  // namespace

bool CrontabJobs::openNext() {
    while (!files_.empty()) {
        file_ = std::move(files_.front());
        files_.pop_front();
        auto file = readPlainFile(file_.path);
        if (!file) continue;
        content_ = std::move(file->content);
        rest_ = content_;
        return true;
    }
    return false;
}

std::optional<Record> CrontabJobs::next() {
    do {
        while (!rest_.empty())
            if (const auto job = readCrontabLine(popLine(rest_), file_.kind))
                return cronRecord(*job, file_);
    } while (openNext());
    return std::nullopt;
}

std::deque<CrontabJobs::File> systemCrontabsIn(const std::string& folder) {
    std::deque<CrontabJobs::File> files;
    for (const std::string& name : namesInFolder(folder))
        if (isCronName(name))
            files.push_back({.path = folder + '/' + name, .kind = CrontabKind::system});
    return files;
}

std::deque<CrontabJobs::File> userCrontabsIn(const std::string& folder) {
    std::deque<CrontabJobs::File> files;
    for (const std::string& name : namesInFolder(folder))
        if (!name.starts_with('.'))
            files.push_back({.path = folder + '/' + name, .kind = CrontabKind::user, .user = name});
    return files;
}

}  // namespace velmora::linuxhost
