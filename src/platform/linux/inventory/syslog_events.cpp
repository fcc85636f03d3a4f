#include "platform/linux/inventory/syslog_events.h"

#include <ctime>

#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/record_text.h"
#include "platform/linux/inventory/syslog_line.h"

namespace velmora::linuxhost {

namespace {

Record syslogRecord(std::string_view text) {
    const SyslogLine line = readSyslogLine(text, std::time(nullptr));
    Record record{{"Message", severalLines(line.message)}};
    if (!line.time) return record;
    record["ComputerName"] = oneLine(line.host);
    record["SourceName"] = oneLine(line.tag);
    record["Logfile"] = "syslog";
    const std::string time = cimTime(*line.time);
    if (!time.empty()) record["TimeGenerated"] = record["TimeWritten"] = time;
    return record;
}

}  // namespace

std::optional<Record> SyslogEvents::next() {
    const auto line = lines_.next();
    if (!line) return std::nullopt;
    return syslogRecord(*line);
}

}  // namespace velmora::linuxhost
