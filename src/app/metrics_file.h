// The figures of the watch in a file, written anew after each check.
#pragma once

#include <filesystem>

#include "app/core.h"

namespace velmora {

class MetricsFile {
  public:
    /// Nothing is written without `platform.app.Options.metricsFile`. The file is replaced as a
    /// whole: a reader sees the old figures or the new ones. A hint tells when it can't be written.
    MetricsFile(Core& core, Forms& forms, Platform& platform);
    MetricsFile(const MetricsFile&) = delete;
    MetricsFile& operator=(const MetricsFile&) = delete;

  private:
    void write();
    bool replace();

    Forms& forms_;
    Platform& platform_;
    std::filesystem::path path_;
    std::filesystem::path beside_;
    ScopedConnection checked_;
};

}  // namespace velmora
