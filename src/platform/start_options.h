// The words that the command line may have in front of its paths.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

struct StartOptions {
    bool keepRunning = false;      ///< "--keep-running": an error that nobody takes doesn't end it
    bool single = false;           ///< "--single": a program that runs already takes over
    bool restoreSettings = false;  ///< "--restore-settings": begins with the last good ones
};

/// Whether an argument in front of the first path is an option.
bool isStartOption(std::string_view word);

/// Takes the options off the front of a command line, in which each word may stand in double
/// quotes. From the first word on that is none, everything is paths, also one that begins with
/// "--".
StartOptions takeStartOptions(std::string& command);

}  // namespace velmora
