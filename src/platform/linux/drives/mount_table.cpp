#include "platform/linux/drives/mount_table.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <unordered_map>

namespace velmora::linuxhost {

namespace {

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    while (true) {
        const auto blank = line.find(' ');
        fields.push_back(line.substr(0, blank));
        if (blank == std::string_view::npos) return fields;
        line.remove_prefix(blank + 1);
    }
}

bool isOctal(char c) {
    return c >= '0' && c <= '7';
}

// Blanks, tabs, line ends and back-slashes are written as "\040" and the like.
std::string unescaped(std::string_view field) {
    std::string text;
    text.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        const bool isEscape = field[i] == '\\' && field.size() - i > 3 && isOctal(field[i + 1]) &&
                              isOctal(field[i + 2]) && isOctal(field[i + 3]);
        if (!isEscape) {
            text += field[i];
            continue;
        }
        const int value =
            (field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0');
        text += static_cast<char>(value);
        i += 3;
    }
    return text;
}

std::optional<int> numberOf(std::string_view field) {
    int value = 0;
    const auto end = field.data() + field.size();
    const auto result = std::from_chars(field.data(), end, value);
    if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
    return value;
}

// "36 35 98:0 /root /mnt rw,noatime master:1 - ext3 /dev/root rw": the dash follows any number of
// optional fields.
std::optional<Mount> parseLine(std::string_view line) {
    const auto fields = fieldsOf(line);
    const auto dash = std::find(fields.begin(), fields.end(), "-");
    if (dash - fields.begin() < 6 || fields.end() - dash < 4) return std::nullopt;
    const auto id = numberOf(fields[0]);
    const auto parent = numberOf(fields[1]);
    if (!id || !parent || fields[4].empty() || fields[4][0] != '/') return std::nullopt;
    return Mount{.id = *id,
                 .parent = *parent,
                 .device = std::string(fields[2]),
                 .mountPoint = unescaped(fields[4]),
                 .options = std::string(fields[5]),
                 .type = unescaped(dash[1]),
                 .source = unescaped(dash[2]),
                 .fsOptions = unescaped(dash[3])};
}

// Mounts by where they are and how they hang on each other.
class MountTree {
  public:
    explicit MountTree(const std::vector<Mount>& mounts) : mounts_(mounts) {
        for (const Mount& mount : mounts) byId_[mount.id] = &mount;
    }

    /// The mounts that are reached, by mount point.
    std::unordered_map<std::string_view, const Mount*> reached() {
        std::vector<const Mount*> outermostFirst(mounts_.size());
        std::transform(mounts_.begin(), mounts_.end(), outermostFirst.begin(),
                       [](const Mount& mount) { return &mount; });
        std::stable_sort(outermostFirst.begin(), outermostFirst.end(),
                         [](const Mount* a, const Mount* b) {
                             return a->mountPoint.size() < b->mountPoint.size();
                         });
        std::unordered_map<std::string_view, const Mount*> reached;
        for (const Mount* mount : outermostFirst) {
            if (!isReached(*mount, reached)) continue;
            const Mount*& top = reached[mount->mountPoint];
            if (!top || isOn(*mount, *top) || !isOn(*top, *mount)) top = mount;
        }
        return reached;
    }

  private:
    const Mount* find(int id) const {
        const auto found = byId_.find(id);
        return found == byId_.end() ? nullptr : found->second;
    }

    // The mount below a stack at one mount point, the way it hangs on the tree.
    const Mount* bottomOf(const Mount& top) const {
        const Mount* bottom = &top;
        for (std::size_t steps = 0; steps < mounts_.size(); ++steps) {
            const Mount* parent = find(bottom->parent);
            if (!parent || parent == bottom || parent->mountPoint != top.mountPoint) break;
            bottom = parent;
        }
        return bottom;
    }

    bool isOn(const Mount& upper, const Mount& lower) const {
        const Mount* mount = &upper;
        for (std::size_t steps = 0; steps < mounts_.size(); ++steps) {
            if (mount->parent == lower.id) return true;
            mount = find(mount->parent);
            if (!mount || mount->mountPoint != upper.mountPoint) break;
        }
        return false;
    }

    // Whether a path to the mount really reaches it. A parent that isn't listed lies outside
    // of what this process sees, so there is nothing to compare with.
    bool isReached(const Mount& mount,
                   const std::unordered_map<std::string_view, const Mount*>& reached) const {
        const Mount* parent = find(bottomOf(mount)->parent);
        if (!parent || parent->mountPoint == mount.mountPoint) return true;
        std::string_view path = mount.mountPoint;
        while (path.size() > 1) {
            const auto slash = path.rfind('/');
            path = path.substr(0, slash == 0 ? 1 : slash);
            const auto cover = reached.find(path);
            if (cover != reached.end()) return cover->second == parent;
        }
        return true;
    }

    const std::vector<Mount>& mounts_;
    std::unordered_map<int, const Mount*> byId_;
};

std::optional<std::string_view> findOption(std::string_view options, std::string_view option) {
    while (!options.empty()) {
        const auto comma = options.find(',');
        const auto entry = options.substr(0, comma);
        const auto equals = entry.find('=');
        if (entry.substr(0, equals) == option)
            return equals == std::string_view::npos ? std::string_view{} : entry.substr(equals + 1);
        if (comma == std::string_view::npos) break;
        options.remove_prefix(comma + 1);
    }
    return std::nullopt;
}

}  // namespace

std::vector<Mount> parseMountTable(std::string_view text) {
    std::vector<Mount> mounts;
    while (!text.empty()) {
        const auto end = text.find('\n');
        if (auto mount = parseLine(text.substr(0, end))) mounts.push_back(std::move(*mount));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return mounts;
}

bool hasOption(std::string_view options, std::string_view option) {
    return findOption(options, option).has_value();
}

std::string_view optionValue(std::string_view options, std::string_view option) {
    return findOption(options, option).value_or(std::string_view{});
}

std::vector<Mount> reachableMounts(const std::vector<Mount>& mounts) {
    const auto reached = MountTree(mounts).reached();
    std::vector<Mount> result;
    for (const Mount& mount : mounts) {
        const auto found = reached.find(mount.mountPoint);
        if (found != reached.end() && found->second == &mount) result.push_back(mount);
    }
    return result;
}

}  // namespace velmora::linuxhost
