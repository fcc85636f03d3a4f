// Scans of one folder level that report what has changed in it. Each is one pass over the folder;
// subfolders are not read. Paths come with or without a trailing back-slash.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>

#include "platform/kernel32.h"

namespace velmora {

/// The entries that a folder had, in the order of its listing, names cut at the first
/// NUL.
using Snapshot = std::deque<FindData>;

/// The text up to the first NUL, or all of it.
std::string StripNulls(const std::string& sText);

/// Told the number of the entries that a listing has read: at the first and after each so many.
using ListingProgress = std::function<void(std::size_t entries)>;
inline constexpr std::size_t entriesBetweenProgress = 64;

/// A report of two lines for every entry ("." and ".." too) that was written or, failing that,
/// created later than `Reference`, in the order of the listing; empty when there is none or the
/// folder can't be read. `Reference` and `Newest` are file times. `Newest` stays as it is: the
/// caller has only the reference to go by.
std::string fFindChangedTimes(Kernel32& kernel32, const std::string& sPath, std::uint64_t Reference,
                              std::uint64_t& Newest, std::int32_t ChangeType,
                              const ListingProgress& progress = {});

/// A report of two lines for every entry that the snapshot doesn't know, then for every one of the
/// snapshot that no longer exists; empty when nothing came or went, or the folder can't be read.
std::string fFindChangedNames(Kernel32& kernel32, const std::string& sPath, const Snapshot& aFiles,
                              std::int32_t ChangeType);

/// The present entries. One empty entry for a folder that can't be read.
Snapshot snapshotOf(Kernel32& kernel32, const std::string& sPath);

}  // namespace velmora
