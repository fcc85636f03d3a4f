// Paths taken as they are written. The system tidies a path before it looks for it ("name." becomes
// "name", "x\nul" a device), so that a call can reach another file than the one that a listing has
// named. All removing and moving uses these paths instead.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velmora::windows {

struct ExactPath {
    std::wstring root;  ///< "C:\" or "\\host\share\"
    std::vector<std::wstring> names;

    /// For system calls, which take this form unchanged and at any length.
    std::wstring text() const;
};

/// Only "." and ".." are resolved, and a path without a drive starts at the current folder.
/// Nothing for a path that names no entry of a drive: a device, a stream of a file ("a:b"), one
/// with a NUL.
std::optional<ExactPath> exactPath(const std::string& path);

/// Whether the system's tidying would leave such a path as it is.
bool isTidy(const std::string& path);

/// The drive of a path, however the path spells it: "C:" or "\\host\share"; empty for none.
std::string driveOfPath(const std::string& path);

}  // namespace velmora::windows
