// A journal that a test makes.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>

namespace velmora::linuxhost {

/// Empty when journals can be made and read here, otherwise the reason why not.
inline std::string whyNoJournal() {
#ifndef VELMORA_HAS_SYSTEMD
    return "built without libsystemd";
#endif
    if (access("/lib/systemd/systemd-journal-remote", X_OK) != 0)
        return "no systemd-journal-remote here";
    return {};
}

/// Entries in the journal's export format: a line a field, an empty line behind each entry.
class MadeJournal {
  public:
    explicit MadeJournal(const std::string& path) : path_(path), text_(path + ".export") {}

    /// `time`: microseconds since 1970. A value with line ends is preceded by its length, 8 bytes
    /// of which the lowest comes first.
    void add(std::uint64_t time, const std::map<std::string, std::string>& fields) {
        text_ << "__REALTIME_TIMESTAMP=" << time << "\n__MONOTONIC_TIMESTAMP=" << ++count_
              << "\n_BOOT_ID=0123456789abcdef0123456789abcdef"
                 "\n_MACHINE_ID=fedcba9876543210fedcba9876543210\n";
        for (const auto& [name, value] : fields) {
            if (value.find('\n') == std::string::npos) {
                text_ << name << '=' << value << '\n';
                continue;
            }
            text_ << name << '\n';
            for (int byte = 0; byte < 8; ++byte)
                text_ << static_cast<char>(value.size() >> (8 * byte) & 0xFF);
            text_ << value << '\n';
        }
        text_ << '\n';
    }

    /// Whether the journal was made.
    bool write() {
        text_.close();
        const std::string command = "/lib/systemd/systemd-journal-remote -o '" + path_ + "' '" +
                                    path_ + ".export' >/dev/null 2>&1";
        return std::system(command.c_str()) == 0 && access(path_.c_str(), R_OK) == 0;
    }

    const std::string& path() const { return path_; }

  private:
    std::string path_;
    std::ofstream text_;
    std::uint64_t count_ = 0;
};

}  // namespace velmora::linuxhost
