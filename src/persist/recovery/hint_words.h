// What is said of a field that the settings file doesn't carry, and how to change it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/hints.h"
#include "persist/keys/settings_key.h"

namespace velmora {

/// The keys that have rules of their own.
namespace settings_keys {
inline constexpr std::string_view recipients = "notcboEmail=";
inline constexpr std::string_view interval = "custtimeDTPI=";
inline constexpr std::string_view seconds = "txtTime=";  ///< the same, as it is read
inline constexpr std::string_view firstSound = "txtAudio0=";
inline constexpr std::string_view secondSound = "txtAudio1=";
inline constexpr std::string_view minimum = "minspace=";
inline constexpr std::string_view paths = "path=";
inline constexpr std::string_view security = "smtpSecurity=";
inline constexpr std::string_view watchTimes[] = {"custtimebegin=", "custtimeend="};
}  // namespace settings_keys

/// The values of a key, without the line ends that they gain on their way; of a list that is
/// written as one line, each entry.
std::vector<std::string> valuesOf(const SettingsKey& key, const SettingsSource& from);

/// The hint about a field with these values.
Hint hintFor(const SettingsKey& key, const std::vector<std::string>& values, bool endsStart);

/// What is said of a field that can't be written, by the error that told it. `isAllKept` when the
/// file was left as it was; it ends before the field otherwise.
Hint unwritable(std::string_view key, int number, bool isAllKept);

}  // namespace velmora
