// One key of the settings file: how its lines look, its places in the orders of writing and
// reading, and the field that it sets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/regional.h"
#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// What the values are taken from when the file is written.
struct SettingsSource {
    const Forms& forms;
    const Regional& regional;
    Host& host;  ///< yields while long lists are read
};

/// What the values are put into when the file is read.
struct SettingsTarget {
    Forms& forms;
    Platform& platform;
    bool rehearses = false;  ///< only to see what would come of it: the machine isn't asked
};

struct SettingsField {
    /// The value of each line that the key has now; none for no line.
    std::vector<std::string> (*get)(const SettingsSource& from) = nullptr;
    /// Takes the value of one line. Errors as readSettings.
    void (*set)(const SettingsTarget& to, const std::string& value) = nullptr;
};

/// What a plain line is made of.
enum class SettingsLine {
    open,    ///< key and value
    closed,  ///< key, value and a CR LF that is scrambled with them and read as part of the value
    run,     ///< the value alone, which holds the key, a value and CR LF for each entry
};

struct SettingsKey {
    std::string_view key;
    int written = 0;  ///< place in the order of writing, from 1; 0 for a key that isn't written
    int read = 0;     ///< place in the order of reading, from 1; 0 for a key that isn't read
    SettingsLine line = SettingsLine::open;
    SettingsField field = {};
    std::string_view searched = {};  ///< what a line must hold; the key when empty
    std::string_view removed = {};   ///< what is removed from it; the key when empty
};

}  // namespace velmora
