#include "persist/settings_reader.h"

#include "base/code_page.h"
#include "base/input_fields.h"
#include "base/text.h"
#include "persist/keys/settings_keys.h"
#include "persist/scramble.h"

namespace velmora {

namespace {

// Older files hold Windows-1252.
std::string asUtf8(const std::string& line) {
    return isValidUtf8(line) ? line : fromWindows1252(line);
}

// The first key that occurs anywhere in the line takes it.
void readLine(const std::string& line, const SettingsTarget& to) {
    for (const SettingsKey* key : settingsKeysToRead()) {
        if (!contains(line, key->searched.empty() ? key->key : key->searched)) continue;
        const auto removed = key->removed.empty() ? key->key : key->removed;
        return key->field.set(to, replaceAll(line, removed, ""));
    }
}

}  // namespace

void readSettings(std::string_view content, const SettingsTarget& to, std::size_t& place) {
    InputFields fields(content);
    while (!fields.atEnd()) {
        place = fields.place();
        const std::string field = fields.next();
        if (!field.empty()) readLine(trim(asUtf8(prcDe(trim(field)))), to);
    }
}

}  // namespace velmora
