#include "platform/linux/inventory/at_jobs.h"

#include "platform/linux/inventory/at_job.h"
#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/job_text.h"
#include "platform/linux/inventory/plain_file.h"
#include "platform/linux/system/user_name.h"

namespace velmora::linuxhost {

namespace {

std::optional<Record> atRecord(const std::string& folder, const std::string& name) {
    const auto job = readAtJobName(name);
    if (!job) return std::nullopt;
    const auto file = readPlainFile(folder + '/' + name);
    if (!file) return std::nullopt;
    return Record{{"Command", jobText(atCommands(file->content))},
                  {"JobId", std::to_string(job->number)},
                  {"Name", oneLine(name)},
                  {"Owner", oneLine(userName(file->owner))},
                  {"RunRepeatedly", "False"},
                  {"StartTime", cimTime(job->start)},
                  {"TimeSubmitted", cimTime(file->modified)}};
}

}  // namespace

AtJobs::AtJobs(const std::string& folder) : folder_(folder), names_(namesInFolder(folder)) {}

std::optional<Record> AtJobs::next() {
    while (at_ < names_.size())
        if (auto record = atRecord(folder_, names_[at_++])) return record;
    return std::nullopt;
}

}  // namespace velmora::linuxhost
