// All keys of the settings file. A new setting is one entry in the table of its subject, with the
// next free places in both orders.
#pragma once

#include <span>
#include <vector>

#include "persist/keys/settings_key.h"

namespace velmora {

/// The table's parts by subject.
std::span<const SettingsKey> windowKeys();  ///< the program's own behaviour
std::span<const SettingsKey> watchKeys();   ///< what is checked, and when
std::span<const SettingsKey> alertKeys();   ///< events, actions and what they use
std::span<const SettingsKey> mailKeys();    ///< the window of the mail settings

using SettingsKeys = std::vector<const SettingsKey*>;

/// The keys that are written, and those that are read, each in its order.
const SettingsKeys& settingsKeysToWrite();
const SettingsKeys& settingsKeysToRead();

}  // namespace velmora
