#include <memory>

#include "platform/linux/inventory/record_source.h"
#include "platform/linux/inventory/syslog_events.h"
#ifdef VELMORA_HAS_SYSTEMD
#include "platform/linux/inventory/systemd/journal_events.h"
#endif

namespace velmora::linuxhost {

namespace {

std::unique_ptr<RecordSource> journalOf([[maybe_unused]] const HostSources& host) {
#ifdef VELMORA_HAS_SYSTEMD
    return std::make_unique<JournalEvents>(host.journal);
#else
    return nullptr;
#endif
}

// The journal, or the log file where the journal has no entry. Both are opened only when the first
// event is asked for, in the process that reads them.
class HostEvents final : public RecordSource {
  public:
    explicit HostEvents(HostSources host) : host_(std::move(host)) {}

    std::optional<Record> next() override {
        if (!events_) return first();
        return events_->next();
    }

  private:
    std::optional<Record> first() {
        events_ = journalOf(host_);
        if (events_)
            if (auto event = events_->next()) return event;
        events_ = std::make_unique<SyslogEvents>(host_.syslog);
        return events_->next();
    }

    HostSources host_;
    std::unique_ptr<RecordSource> events_;
};

}  // namespace

std::unique_ptr<RecordSource> eventSource(const HostSources& host) {
    return std::make_unique<HostEvents>(host);
}

}  // namespace velmora::linuxhost
