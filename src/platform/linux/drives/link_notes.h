// The links of one folder and what each leads to, which can change while the folder doesn't. Plain
// data, since it also travels between processes.
#pragma once

#include <dirent.h>

#include <cstdint>
#include <cstring>
#include <string_view>

namespace velmora::linuxhost {

class LinkNotes {
  public:
    /// `kind` is DT_DIR, DT_REG, ..., or DT_UNKNOWN of a link that leads nowhere. Safe in a forked
    /// child.
    void add(const char* name, unsigned char kind) {
        const auto length = std::strlen(name) + 1;
        if (used_ + 1 + length > sizeof bytes_) return leaveOut();
        bytes_[used_] = static_cast<char>(kind);
        std::memcpy(bytes_ + used_ + 1, name, length);
        used_ += static_cast<std::uint32_t>(1 + length);
    }
    /// Something can't be noted.
    void leaveOut() { areAll_ = false; }

    bool areAll() const { return areAll_; }
    /// The notes as they are kept.
    std::string_view text() const { return {bytes_, used_}; }

    /// Whether `holds(name, kind)` is true of each note in a kept text.
    template <typename Holds>
    static bool all(std::string_view text, Holds&& holds) {
        while (!text.empty()) {
            const auto kind = static_cast<unsigned char>(text.front());
            const char* name = text.data() + 1;
            if (!holds(name, kind)) return false;
            text.remove_prefix(1 + std::strlen(name) + 1);
        }
        return true;
    }

  private:
    bool areAll_ = true;
    std::uint32_t used_ = 0;
    char bytes_[1500] = {};
};

}  // namespace velmora::linuxhost
