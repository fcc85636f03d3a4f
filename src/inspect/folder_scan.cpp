#include "inspect/folder_scan.h"

#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"
#include "inspect/change_type.h"
#include "inspect/listing.h"

namespace velmora {

namespace {

// A snapshot begins with so many entries and grows by so many.
constexpr std::size_t firstEntries = 101;
constexpr std::size_t furtherEntries = 100;

std::string_view upToNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

// The text before the name in every report of one scan.
std::string reportHead(std::int32_t ChangeType, const std::string& folder) {
    return "Change Type: " + fChangeTypeText(ChangeType) + "\r\n  " + folder;
}

bool isFolder(const FindData& entry) {
    return (entry.dwFileAttributes & file_attribute::directory) != 0;
}

// Finds the first entry of a name without asking the others one by one.
class KnownNames {
  public:
    explicit KnownNames(const Snapshot& aFiles) : seen_(aFiles.size()) {
        first_.reserve(aFiles.size());
        for (std::size_t i = 0; i < aFiles.size(); ++i) first_.emplace(aFiles[i].cFileName, i);
    }

    /// Whether the snapshot has that name; its first entry of it counts as seen then.
    bool see(std::string_view name) {
        const auto found = first_.find(name);
        if (found == first_.end()) return false;
        seen_[found->second] = true;
        return true;
    }
    bool seen(std::size_t entry) const { return seen_[entry]; }

  private:
    std::unordered_map<std::string_view, std::size_t> first_;
    std::vector<bool> seen_;
};

}  // namespace

std::string StripNulls(const std::string& sText) {
    return std::string(upToNul(sText));
}

std::string fFindChangedTimes(Kernel32& kernel32, const std::string& sPath, std::uint64_t Reference,
                              std::uint64_t& Newest, std::int32_t ChangeType,
                              const ListingProgress& progress) {
    const std::string folder = withBackSlash(sPath);
    const std::string head = reportHead(ChangeType, folder);
    std::string report;
    Listing listing(kernel32, folder);
    std::size_t entries = 0;
    for (bool more = listing.found(); more; more = listing.next()) {
        if (++entries % entriesBetweenProgress == 1 && progress) progress(entries);
        const FindData& entry = listing.entry();
        std::uint64_t matching = entry.ftLastWriteTime;
        if (kernel32.CompareFileTime(matching, Reference) != 1) {
            matching = entry.ftCreationTime;
            if (kernel32.CompareFileTime(matching, Reference) != 1) continue;
        }
        static_cast<void>(kernel32.CompareFileTime(matching, Newest));
        report.append(head).append(upToNul(entry.cFileName)).append(lineEnd);
    }
    return report;
}

std::string fFindChangedNames(Kernel32& kernel32, const std::string& sPath, const Snapshot& aFiles,
                              std::int32_t ChangeType) {
    const std::string folder = withBackSlash(sPath);
    const std::string head = reportHead(ChangeType, folder);
    std::string report;
    KnownNames known(aFiles);
    {
        Listing listing(kernel32, folder);
        if (!listing.found()) return {};
        do {
            const FindData& entry = listing.entry();
            const std::string_view name = upToNul(entry.cFileName);
            if (known.see(name)) continue;
            report.append(head).append(trim(name));
            report.append(isFolder(entry) ? "  [Dir]" : "").append(lineEnd);
        } while (listing.next());
    }
    for (std::size_t i = 0; i < aFiles.size(); ++i) {
        if (known.seen(i)) continue;
        report.append(head).append(trim(aFiles[i].cFileName)).append("  [Deleted]");
        report.append(isFolder(aFiles[i]) ? " [Dir]" : "").append(lineEnd);
    }
    return report;
}

Snapshot snapshotOf(Kernel32& kernel32, const std::string& sPath) {
    Snapshot entries(firstEntries);
    std::size_t used = 0;
    Listing listing(kernel32, withBackSlash(sPath));
    for (bool more = listing.found(); more; more = listing.next()) {
        if (used == entries.size()) entries.resize(used + furtherEntries);
        entries[used] = listing.entry();
        entries[used].cFileName.resize(upToNul(entries[used].cFileName).size());
        ++used;
    }
    entries.resize(used == 0 ? 1 : used);
    return entries;
}

}  // namespace velmora
