// The keys of the program's own behaviour.
#include "persist/keys/settings_fields.h"
#include "persist/keys/settings_keys.h"

namespace velmora {

namespace {

/// A sound file; one that doesn't exist becomes the system's chimes.
template <std::size_t index>
constexpr SettingsField soundFile{
    .get =
        [](const SettingsSource& from) {
            return storedValues(from.forms.form1.txtAudio[index], from.regional);
        },
    .set =
        [](const SettingsTarget& to, const std::string& value) {
            const bool exists = to.rehearses || to.platform.fso.FileExists(value);
            to.forms.form1.txtAudio[index].setText(
                exists ? value
                       : to.platform.kernel32.GetWindowsDirectoryA() + "\\media\\chimes.wav");
        },
};

void setAutoUpdate(const SettingsTarget& to, const std::string& value) {
    putStored(to.forms.form1.chkUpdate, value, to.platform.regional);
    to.forms.globals.bAutoUpdate = true;  // with any value
}

constexpr SettingsKey windowEntries[] = {
    {.key = "chkUpdate=", .written = 1, .read = 41, .field = fieldOf<&Form1::chkUpdate>},
    {.key = "chkStartUp=", .written = 2, .read = 42, .field = fieldOf<&Form1::chkStartUp>},
    {.key = "chkOnTopMonitor=",
     .written = 3,
     .read = 43,
     .field = fieldOf<&Form1::chkOnTopMonitor>},
    {.key = "chkNTLog=", .written = 4, .read = 38, .field = fieldOf<&Form1::chkNTLog>},
    {.key = "chkLog=", .written = 5, .read = 39, .field = fieldOf<&Form1::chkLog>},
    {.key = "chkAutoSave=", .written = 6, .read = 40, .field = fieldOf<&Form1::chkAutoSave>},
    {.key = "txtAudio0=", .written = 7, .read = 36, .field = soundFile<0>, .searched = "txtAudio0"},
    // Removes the other element's key, so that its own stays in the value and names no file.
    {.key = "txtAudio1=",
     .written = 8,
     .read = 37,
     .field = soundFile<1>,
     .searched = "txtAudio1",
     .removed = "txtAudio0="},
    {.key = "insystray=", .written = 29, .read = 44, .field = fieldOf<&Form1::chkSystray>},
    {.key = "updateauto=",
     .written = 36,
     .read = 5,
     .line = SettingsLine::closed,
     .field = {.get = fieldOf<&Form1::chkUpdate>.get, .set = setAutoUpdate}},
};

}  // namespace

std::span<const SettingsKey> windowKeys() {
    return windowEntries;
}

}  // namespace velmora
