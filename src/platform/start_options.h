// The words that the command line may have in front of its paths.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

struct StartOptions {
    bool keepRunning = false;      ///< "--keep-running": an error that nobody takes doesn't end it
    bool single = false;           ///< "--single": a program that runs already takes over
    bool restoreSettings = false;  ///< "--restore-settings": begins with the last good ones
    bool minimized = false;        ///< "--minimized": the window begins minimised
    bool json = false;             ///< "--json": the console begins with JSON
    bool watch = false;            ///< "--watch": the console watches until it is ended
    bool help = false;             ///< "--help"
    bool version = false;          ///< "--version"
    std::string script = {};       ///< "--script FILE": the console's commands, as it was typed
    std::string settings = {};     ///< "--settings FOLDER": of set.dat and log.dat, likewise
    std::string metricsFile = {};  ///< "--metrics-file FILE": gets the figures, likewise
    std::string fault = {};        ///< what is wrong with the options; empty when nothing is
};

/// How many arguments an option in front of the first path takes, itself included; 0 for a word
/// that is none.
std::size_t startOptionLength(std::string_view word);

/// Takes the options off the front of a command line, in which each word may stand in double
/// quotes. From the first word on that is none, everything is paths, also one that begins with
/// "--".
StartOptions takeStartOptions(std::string& command);

}  // namespace velmora
