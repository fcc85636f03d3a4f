// The keys of events, of actions and of what the actions use.
#include "persist/keys/settings_fields.h"
#include "persist/keys/settings_keys.h"

namespace velmora {

namespace {

std::vector<std::string> listedFiles(const SettingsSource& from) {
    std::vector<std::string> files;
    const ComboBox& box = from.forms.form1.cboFile;
    for (int i = 0; i < box.ListCount(); ++i) files.push_back(box.List(i));
    return files;
}

void addListedFile(const SettingsTarget& to, const std::string& value) {
    if (!value.empty()) to.forms.form1.cboFile.AddItem(value);
}

constexpr SettingsKey alertEntries[] = {
    {.key = "path2move=",
     .written = 30,
     .read = 3,
     .line = SettingsLine::closed,
     .field = fieldOf<&Form1::txtDrive>},
    {.key = "filetype=",
     .written = 31,
     .read = 2,
     .line = SettingsLine::closed,
     .field = fieldOf<&Form1::txtFileType>},
    {.key = "cboFile=",
     .written = 38,
     .read = 7,
     .line = SettingsLine::closed,
     .field = {.get = listedFiles, .set = addListedFile}},
    {.key = "lstAct=",
     .written = 39,
     .read = 8,
     .line = SettingsLine::closed,
     .field = fieldOf<&Form1::lstAct>},
    {.key = "lstEvt=",
     .written = 40,
     .read = 45,
     .line = SettingsLine::closed,
     .field = fieldOf<&Form1::lstEvt>},
};

}  // namespace

std::span<const SettingsKey> alertKeys() {
    return alertEntries;
}

}  // namespace velmora
