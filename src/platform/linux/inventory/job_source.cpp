#include <functional>
#include <memory>
#include <queue>

#include "platform/linux/inventory/at_jobs.h"
#include "platform/linux/inventory/crontabs.h"
#include "platform/linux/inventory/record_source.h"
#ifdef VELMORA_HAS_SYSTEMD
#include "platform/linux/inventory/systemd/unit_timers.h"
#endif

namespace velmora::linuxhost {

namespace {

using MakeSource = std::function<std::unique_ptr<RecordSource>()>;

// One source after the other. Each is opened when those before it have ended.
class SourceChain final : public RecordSource {
  public:
    void add(MakeSource source) { waiting_.push(std::move(source)); }

    std::optional<Record> next() override {
        while (true) {
            if (current_)
                if (auto record = current_->next()) return record;
            if (waiting_.empty()) return std::nullopt;
            current_ = waiting_.front()();
            waiting_.pop();
        }
    }

  private:
    std::queue<MakeSource> waiting_;
    std::unique_ptr<RecordSource> current_;
};

std::unique_ptr<RecordSource> mainCrontab(const std::string& path) {
    return std::make_unique<CrontabJobs>(
        std::deque{CrontabJobs::File{.path = path, .kind = CrontabKind::system}});
}

}  // namespace

std::unique_ptr<RecordSource> jobSource(const HostSources& host) {
    auto jobs = std::make_unique<SourceChain>();
    jobs->add([folder = host.atJobs] { return std::make_unique<AtJobs>(folder); });
    jobs->add([path = host.crontab] { return mainCrontab(path); });
    jobs->add([folder = host.cronFolder] {
        return std::make_unique<CrontabJobs>(systemCrontabsIn(folder));
    });
    jobs->add([folder = host.userCrontabs] {
        return std::make_unique<CrontabJobs>(userCrontabsIn(folder));
    });
#ifdef VELMORA_HAS_SYSTEMD
    jobs->add([] { return std::make_unique<UnitTimers>(); });
#endif
    return jobs;
}

}  // namespace velmora::linuxhost
