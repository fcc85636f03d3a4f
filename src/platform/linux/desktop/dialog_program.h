// A dialog program of the desktop: it asks the user something, prints the answer and ends.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora::linuxhost {

/// A longer output is not the answer of a dialog.
inline constexpr std::size_t longestAnswer = 64 * 1024;

struct DialogAnswer {
    bool isAccepted = false;  ///< ended with status 0 and no more output than an answer takes
    std::string output;
};

/// Runs a program by its name in PATH, without a shell, until it ends; nothing when it can't be
/// started. `whileOpen`, unless empty, runs about every 20 ms meanwhile; when it throws, the
/// program is ended.
std::optional<DialogAnswer> runDialog(const std::vector<std::string>& command,
                                      const std::function<void()>& whileOpen);

/// Whether there is a display that a dialog can be shown on.
bool hasDisplay();

}  // namespace velmora::linuxhost
