// The figures of the watch in a file, written anew after each check.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "app/core.h"

namespace velmora {

class MetricsFile {
  public:
    using Note = std::function<void(const std::string& line)>;
    /// Nothing is written without `platform.app.Options.metricsFile`. The file is replaced as a
    /// whole: a reader sees the old figures or the new ones. `note` is told when it can't be
    /// written, once until it can be again.
    MetricsFile(Core& core, const Forms& forms, Platform& platform, Note note);
    MetricsFile(const MetricsFile&) = delete;
    MetricsFile& operator=(const MetricsFile&) = delete;

  private:
    void write();
    bool replace();

    const Forms& forms_;
    Platform& platform_;
    Note note_;
    std::filesystem::path path_;
    std::filesystem::path beside_;
    bool isFailing_ = false;
    ScopedConnection checked_;
};

}  // namespace velmora
