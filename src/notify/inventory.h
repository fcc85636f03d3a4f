// Reports on the machine for the mail: lines of a label and a value. A source that doesn't answer
// leaves its report short, often no more than its frame; no report fails.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "notify/process_list.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class Inventory {
  public:
    /// Both must outlive it.
    Inventory(Platform& platform, Host& host)
        : platform_(platform), host_(host), processList_(platform) {}

    /// Events of the system's log in the order in which the system gives them, at most `count`. No
    /// more of them are read.
    std::string prcWMI_NTEvt(std::int16_t count);
    /// Counters of the memory. Yields at each record.
    std::string prcWMI_RamInfo();
    /// The users that are logged on, one line a login.
    std::string prcWMI_LogOnUser();
    /// The running processes with all that the system tells of each.
    std::string prcWMI_Process();
    /// The jobs that the system runs at their times.
    std::string prcWMI_SchedJob();
    /// The connections of the machine, as the system's program lists them.
    std::string prcWMI_NetStat();

    /// Fills the arrays with the running processes, in the way of the system's version.
    void prcEnumProcesses(ProcessArrays& arrays) { processList_.prcEnumProcesses(arrays); }
    /// The running processes, two hundred at most and without the one at index 0. The number in
    /// the heading is the index after the last one.
    std::string prcProcessText();

  private:
    using Visit = std::function<void(WmiObject& record)>;

    /// Hands over the records of a query, so many at most, until the source ends or fails.
    void forEachRecord(const char* query, int most, const Visit& visit);
    void visitRecords(const char* query, int most, const Visit& visit);

    Platform& platform_;
    Host& host_;
    ProcessList processList_;
};

}  // namespace velmora
