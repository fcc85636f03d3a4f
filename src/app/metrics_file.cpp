#include "app/metrics_file.h"

#include <fstream>
#include <string>
#include <system_error>

#include "monitor/metrics.h"

namespace velmora {

namespace {

// From UTF-8; whole, since the working folder can change.
std::filesystem::path pathOf(const std::string& typed) {
    const std::filesystem::path path{std::u8string(typed.begin(), typed.end())};
    std::error_code failure;
    return path.empty() ? path : std::filesystem::absolute(path, failure);
}

// Collectors take files of one ending only, so that they pass over a half-written one.
std::filesystem::path partOf(std::filesystem::path path) {
    return path += ".part";
}

// In units of 100 ns since 1601-01-01 UTC, as the host counts.
std::int64_t secondsSince1970(std::uint64_t fileTime) {
    constexpr std::uint64_t unitsInSecond = 10'000'000;
    constexpr std::int64_t from1601To1970 = 11'644'473'600;
    return static_cast<std::int64_t>(fileTime / unitsInSecond) - from1601To1970;
}

bool writeTo(const std::filesystem::path& path, const std::string& text) {
    // Not through a link that somebody has put there.
    std::error_code missing;
    if (!std::filesystem::is_directory(path, missing)) std::filesystem::remove(path, missing);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    return !file.fail();
}

}  // namespace

MetricsFile::MetricsFile(Core& core, Forms& forms, Platform& platform)
    : forms_(forms),
      platform_(platform),
      path_(pathOf(platform.app.Options.metricsFile)),
      beside_(partOf(path_)) {
    if (path_.empty()) return;
    checked_ = core.checkCycle().Checked.connect([this] { write(); });
}

void MetricsFile::write() {
    if (replace()) return;
    forms_.hints.say({.field = "--metrics-file",
                      .text = "The metrics can't be written: " + platform_.app.Options.metricsFile,
                      .about = HintAbout::working});
}

bool MetricsFile::replace() {
    const std::int64_t checkedAt = secondsSince1970(platform_.clock.GetSystemTimeAsFileTime());
    std::error_code failure;
    if (writeTo(beside_, metricsText(forms_, platform_.regional, checkedAt))) {
        std::filesystem::rename(beside_, path_, failure);
        if (!failure) return true;
    }
    std::filesystem::remove(beside_, failure);
    return false;
}

}  // namespace velmora
