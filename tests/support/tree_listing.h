// The content of a folder as text. List it before and after a step and compare, to show what the
// step has changed.
#pragma once

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <map>
#include <string>

namespace velmora {

/// What is in the folder, by path below it, with "/" between names, in UTF-8: "folder",
/// "file 3 bytes: abc", "link to /x/y", "something else", followed by " read-only" when the owner
/// may not write it. A content of more than 200 bytes is given as its first bytes and a checksum.
using TreeListing = std::map<std::string, std::string>;

namespace tree_listing {

namespace fs = std::filesystem;

inline std::string utf8Of(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

inline std::string contentText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return "can't be read";
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    const std::string size = std::to_string(content.size()) + " bytes: ";
    constexpr std::size_t longest = 200;
    if (content.size() <= longest) return size + content;
    unsigned long long sum = 14695981039346656037ULL;
    for (const char c : content) sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    return size + content.substr(0, 20) + "... sum " + std::to_string(sum);
}

inline std::string described(const fs::path& path, const fs::file_status& status) {
    const bool isReadOnly = (status.permissions() & fs::perms::owner_write) == fs::perms::none;
    const std::string ending = isReadOnly ? " read-only" : "";
    switch (status.type()) {
        case fs::file_type::symlink:
            return "link to " + utf8Of(fs::read_symlink(path));
        case fs::file_type::directory:
            return "folder" + ending;
        case fs::file_type::regular:
            return "file " + contentText(path) + ending;
        default:
            return "something else" + ending;
    }
}

}  // namespace tree_listing

/// No link is followed. A folder that isn't there gives an empty listing.
inline TreeListing listTree(const std::filesystem::path& folder) {
    namespace fs = std::filesystem;
    TreeListing listing;
    std::error_code missing;
    for (fs::recursive_directory_iterator at(folder, missing), end; !missing && at != end; ++at) {
        const fs::path& path = at->path();
        listing[tree_listing::utf8Of(path.lexically_relative(folder))] =
            tree_listing::described(path, at->symlink_status());
    }
    return listing;
}

/// The listing without these entries and all that is below them: what should remain.
inline TreeListing without(TreeListing listing, std::initializer_list<std::string> gone) {
    std::erase_if(listing, [&](const auto& line) {
        for (const std::string& each : gone) {
            if (line.first == each || line.first.starts_with(each + '/')) return true;
        }
        return false;
    });
    return listing;
}

/// The listing with an entry (and all that is below it) under another path.
inline TreeListing moved(const TreeListing& listing, const std::string& from,
                         const std::string& to) {
    TreeListing result;
    for (const auto& [path, what] : listing) {
        const bool goes = path == from || path.starts_with(from + '/');
        result[goes ? to + path.substr(from.size()) : path] = what;
    }
    return result;
}

}  // namespace velmora
