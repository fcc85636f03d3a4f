#include "persist/settings_writer.h"

#include "base/text.h"
#include "persist/keys/settings_keys.h"
#include "persist/scramble.h"

namespace velmora {

namespace {

std::string plainLine(const SettingsKey& key, const std::string& value) {
    std::string line = key.line == SettingsLine::run ? value : std::string(key.key) + value;
    if (key.line == SettingsLine::closed) line += lineEnd;
    return line;
}

}  // namespace

void appendSettings(std::string& text, const Forms& forms, const Regional& regional, Host& host,
                    std::vector<WrittenLine>& lines) {
    const SettingsSource from{.forms = forms, .regional = regional, .host = host};
    for (const SettingsKey* key : settingsKeysToWrite()) {
        for (const std::string& value : key->field.get(from)) {
            lines.push_back({.place = text.size(), .key = key->key});
            text.append(prcEn(plainLine(*key, value))).append(lineEnd);
        }
    }
}

}  // namespace velmora
