#include "persist/recovery/hint_words.h"

#include <algorithm>
#include <iterator>

#include "base/drive_text.h"
#include "base/text.h"
#include "persist/keys/settings_keys.h"
#include "persist/recovery/key_words.h"

namespace velmora {

namespace {

using Values = std::vector<std::string>;

// The entries of a list that is written as one line.
Values entriesOf(const SettingsKey& key, const FrmNotify& form) {
    Values entries;
    if (key.key == settings_keys::recipients) {
        for (int i = 0; i < form.cboNotEmail.ListCount(); ++i) {
            entries.push_back(form.cboNotEmail.List(i));
        }
        return entries;
    }
    const ListBox& list = key.key == "notlstTime=" ? form.lstNotTime : form.lstNotContent;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) entries.push_back(list.List(i));
    }
    return entries;
}

bool anyHolds(const Values& values, std::string_view text) {
    return std::any_of(values.begin(), values.end(),
                       [&](const std::string& value) { return contains(value, text); });
}

// A key in a value takes the line when it is tried before the line's own, which itself is cut out.
std::string_view keyIn(const Values& values, const SettingsKey& own) {
    for (const SettingsKey* key : settingsKeysToRead()) {
        const auto searched = key->searched.empty() ? key->key : key->searched;
        if (anyHolds(values, searched)) return searched;
        if (key->key == own.key) break;
    }
    return {};
}

bool endsInBlank(const Values& values) {
    return std::any_of(values.begin(), values.end(),
                       [](const std::string& value) { return value.ends_with(' '); });
}

bool isWatchTime(const SettingsKey& key) {
    return std::find(std::begin(settings_keys::watchTimes), std::end(settings_keys::watchTimes),
                     key.key) != std::end(settings_keys::watchTimes);
}

// For a key that has no line now.
std::string adviceWithoutLine(const SettingsKey& key) {
    if (!isWatchTime(key)) return "Change it.";
    return "It is saved only while the custom watch time (chkCustTime) is ticked.";
}

std::string adviceFor(const SettingsKey& key, const Values& values) {
    if (key.key == settings_keys::interval || key.key == settings_keys::seconds) {
        return "Kept are 10 to 59 seconds, whole minutes up to 59 and whole hours, saved by hand "
               "once the countdown has begun anew.";
    }
    if (key.key == settings_keys::secondSound) return "It is the system's chimes after each start.";
    if (values.empty()) return adviceWithoutLine(key);
    if (values[0].empty() && key.key == settings_keys::minimum) {
        return "Without a number the start asks for one and takes 1.";
    }
    if (values[0].empty() && key.key == settings_keys::firstSound) {
        return "Without a file it is the system's chimes after each start.";
    }
    if (key.line == SettingsLine::run && values.size() > 1) {
        return key.key == settings_keys::recipients ? "Keep one address."
                                                    : "Tick one entry at most.";
    }
    if (anyHolds(values, "+")) return "Take \"+\" out of it.";
    if (anyHolds(values, "\t")) return "Take the tab out of it.";
    if (const auto found = keyIn(values, key); !found.empty()) {
        return "Take \"" + std::string(found) + "\" out of it.";
    }
    return endsInBlank(values) ? "Take the blank from its end." : "Change it.";
}

std::string nameOf(const KeyWords& words) {
    return std::string(words.words) + " (" + std::string(words.field) + ")";
}

}  // namespace

Values valuesOf(const SettingsKey& key, const SettingsSource& from) {
    Values values =
        key.line == SettingsLine::run ? entriesOf(key, from.forms.frmNotify) : key.field.get(from);
    for (std::string& value : values) value = withoutLineEnds(value);
    return values;
}

Hint hintFor(const SettingsKey& key, const Values& values, bool endsStart) {
    const KeyWords words = wordsOf(key.key);
    const std::string name = nameOf(words);
    const std::string what = endsStart
                                 ? "The next start would end at " + name
                                 : "After the next start this is not as you saved it: " + name;
    return {.field = std::string(words.field),
            .text = what + ". " + adviceFor(key, values),
            .endsStart = endsStart};
}

Hint unwritable(std::string_view key, int number, bool isAllKept) {
    const KeyWords words = wordsOf(key);
    const std::string what =
        isAllKept ? "The settings were not saved" : "The settings were only saved up to here";
    return {.field = std::string(words.field),
            .text = what + ": " + nameOf(words) + " " + whyUnwritable(number) + ". Change it.",
            .about = HintAbout::saving};
}

}  // namespace velmora
