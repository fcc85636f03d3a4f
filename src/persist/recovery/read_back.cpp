#include "persist/recovery/read_back.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "base/convert.h"
#include "base/drive_text.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "persist/keys/settings_keys.h"
#include "persist/recovery/key_words.h"
#include "persist/settings_reader.h"

namespace velmora {

namespace {

using Values = std::vector<std::string>;

constexpr std::string_view recipientsKey = "notcboEmail=";
constexpr std::string_view intervalKey = "custtimeDTPI=";
constexpr std::string_view secondsKey = "txtTime=";  // the same, as it is read
constexpr std::string_view firstSoundKey = "txtAudio0=";
constexpr std::string_view secondSoundKey = "txtAudio1=";
constexpr std::string_view minimumKey = "minspace=";
constexpr std::string_view pathKey = "path=";
constexpr std::string_view securityKey = "smtpSecurity=";
constexpr std::string_view watchTimeKeys[] = {"custtimebegin=", "custtimeend="};

// The entries of a list that is written as one line.
Values entriesOf(const SettingsKey& key, const FrmNotify& form) {
    Values entries;
    if (key.key == recipientsKey) {
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

// The line ends that a value gains on its way are no part of it.
Values valuesOf(const SettingsKey& key, const SettingsSource& from) {
    Values values =
        key.line == SettingsLine::run ? entriesOf(key, from.forms.frmNotify) : key.field.get(from);
    for (std::string& value : values) value = withoutLineEnds(value);
    return values;
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
    return std::find(std::begin(watchTimeKeys), std::end(watchTimeKeys), key.key) !=
           std::end(watchTimeKeys);
}

// For a key that has no line now.
std::string adviceWithoutLine(const SettingsKey& key) {
    if (!isWatchTime(key)) return "Change it.";
    return "It is saved only while the custom watch time (chkCustTime) is ticked.";
}

std::string adviceFor(const SettingsKey& key, const Values& values) {
    if (key.key == intervalKey || key.key == secondsKey) {
        return "Kept are 10 to 59 seconds, whole minutes up to 59 and whole hours, saved by hand "
               "once the countdown has begun anew.";
    }
    if (key.key == secondSoundKey) return "It is the system's chimes after each start.";
    if (values.empty()) return adviceWithoutLine(key);
    if (values[0].empty() && key.key == minimumKey) {
        return "Without a number the start asks for one and takes 1.";
    }
    if (values[0].empty() && key.key == firstSoundKey) {
        return "Without a file it is the system's chimes after each start.";
    }
    if (key.line == SettingsLine::run && values.size() > 1) {
        return key.key == recipientsKey ? "Keep one address." : "Tick one entry at most.";
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

SettingsHint hintFor(const SettingsKey& key, const Values& values, bool endsStart) {
    const KeyWords words = wordsOf(key.key);
    const std::string name = nameOf(words);
    const std::string what = endsStart
                                 ? "The next start would end at " + name
                                 : "After the next start this is not as you saved it: " + name;
    return {.field = std::string(words.field),
            .text = what + ". " + adviceFor(key, values),
            .endsStart = endsStart};
}

const SettingsKey* writtenKey(std::string_view name) {
    for (const SettingsKey* key : settingsKeysToWrite()) {
        if (key->key == name) return key;
    }
    return nullptr;
}

SettingsHint faultHint(std::string_view content, std::size_t place, const SettingsSource& from) {
    const SettingsKey* key = writtenKey(keyOfLineAt(content, place));
    if (key != nullptr) return hintFor(*key, valuesOf(*key, from), true);
    return {.field = "",
            .text = "The next start would end at line " +
                    std::to_string(lineNumberAt(content, place)) + " of the settings file.",
            .endsStart = true};
}

bool isChimes(const std::string& sound) {
    constexpr const char* chimes = "\\media\\chimes.wav";
    return sound.ends_with(chimes);
}

// What the start makes of a value that the file does hold, and of one that it doesn't.
bool staysAtTheStart(const SettingsKey& key, const Forms& now, const SettingsSource& then) {
    const Form1& back = then.forms.form1;
    if (key.key == firstSoundKey) return !now.form1.txtAudio[0].empty();
    if (key.key == minimumKey) return isNumeric(back.txtSpace.Text(), then.regional);
    if (key.key == securityKey) {
        return now.frmNotify.cboEncryption.Text() == then.forms.frmNotify.cboEncryption.Text();
    }
    for (std::size_t i = 0; i < std::size(watchTimeKeys); ++i) {
        if (key.key != watchTimeKeys[i] || now.form1.chkCustTime.ticked()) continue;
        return now.form1.DTTime1[i].Value() == back.DTTime1[i].Value();
    }
    return true;
}

bool comesBack(const SettingsKey& key, const SettingsSource& now, const SettingsSource& then) {
    // The ticks of the watch list never do; the seconds are named by the picker.
    if (key.key == pathKey || key.key == secondsKey) return true;
    const Values values = valuesOf(key, now);
    if (key.key == secondSoundKey) return isChimes(values[0]);
    return values == valuesOf(key, then) && staysAtTheStart(key, now.forms, then);
}

// The check that follows the reading: error 13 without an interval.
void readAsAStart(std::string_view content, const SettingsTarget& to, std::size_t& place) {
    readSettings(content, to, place);
    place = content.size();
    toDouble(to.forms.form1.txtTime.Text(), to.platform.regional);
}

}  // namespace

SettingsHint unwritable(std::string_view key, int number, bool isAllKept) {
    const KeyWords words = wordsOf(key);
    const std::string what =
        isAllKept ? "The settings were not saved" : "The settings were only saved up to here";
    return {.field = std::string(words.field),
            .text = what + ": " + nameOf(words) + " " + whyUnwritable(number) + ". Change it.",
            .isSaved = false};
}

std::vector<SettingsHint> readBack(std::string_view content, const Forms& forms, Platform& platform,
                                   Host& host) {
    Forms back;
    const SettingsSource now{.forms = forms, .regional = platform.regional, .host = host};
    const SettingsSource then{.forms = back, .regional = platform.regional, .host = host};
    std::size_t place = 0;
    try {
        readAsAStart(content, {.forms = back, .platform = platform, .rehearses = true}, place);
    } catch (const RuntimeError&) {
        return {faultHint(content, place, now)};
    }
    std::vector<SettingsHint> hints;
    for (const SettingsKey* key : settingsKeysToWrite()) {
        if (!comesBack(*key, now, then)) hints.push_back(hintFor(*key, valuesOf(*key, now), false));
    }
    return hints;
}

}  // namespace velmora
