// The jobs of at.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// Win32_ScheduledJob: a file of the folder each, by name. What can't be read is passed over.
class AtJobs final : public RecordSource {
  public:
    explicit AtJobs(const std::string& folder);
    std::optional<Record> next() override;

  private:
    std::string folder_;
    std::vector<std::string> names_;
    std::size_t at_ = 0;
};

}  // namespace velmora::linuxhost
