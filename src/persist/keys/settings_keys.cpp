#include "persist/keys/settings_keys.h"

#include <algorithm>

namespace velmora {

namespace {

SettingsKeys inOrder(int SettingsKey::*place) {
    SettingsKeys keys;
    for (const auto& part : {windowKeys(), watchKeys(), alertKeys(), mailKeys()}) {
        for (const SettingsKey& key : part) {
            if (key.*place > 0) keys.push_back(&key);
        }
    }
    std::sort(keys.begin(), keys.end(), [place](const SettingsKey* a, const SettingsKey* b) {
        return a->*place < b->*place;
    });
    return keys;
}

}  // namespace

const SettingsKeys& settingsKeysToWrite() {
    static const SettingsKeys keys = inOrder(&SettingsKey::written);
    return keys;
}

const SettingsKeys& settingsKeysToRead() {
    static const SettingsKeys keys = inOrder(&SettingsKey::read);
    return keys;
}

}  // namespace velmora
