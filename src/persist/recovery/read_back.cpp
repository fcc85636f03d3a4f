#include "persist/recovery/read_back.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <set>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "persist/keys/settings_keys.h"
#include "persist/recovery/hint_words.h"
#include "persist/recovery/key_words.h"
#include "persist/settings_reader.h"

namespace velmora {

namespace {

const SettingsKey& writtenKey(std::string_view name) {
    const SettingsKeys& keys = settingsKeysToWrite();
    return **std::find_if(keys.begin(), keys.end(),
                          [name](const SettingsKey* key) { return key->key == name; });
}

bool isChimes(const std::string& sound) {
    constexpr const char* chimes = "\\media\\chimes.wav";
    return sound.ends_with(chimes);
}

// What the start makes of a value that the file does hold, and of one that it doesn't.
bool staysAtTheStart(const SettingsKey& key, const Forms& now, const SettingsSource& then) {
    const Form1& back = then.forms.form1;
    if (key.key == settings_keys::firstSound) return !now.form1.txtAudio[0].empty();
    if (key.key == settings_keys::minimum) return isNumeric(back.txtSpace.Text(), then.regional);
    if (key.key == settings_keys::security) {
        return now.frmNotify.cboEncryption.Text() == then.forms.frmNotify.cboEncryption.Text();
    }
    for (std::size_t i = 0; i < std::size(settings_keys::watchTimes); ++i) {
        if (key.key != settings_keys::watchTimes[i] || now.form1.chkCustTime.ticked()) continue;
        return now.form1.DTTime1[i].Value() == back.DTTime1[i].Value();
    }
    return true;
}

bool comesBack(const SettingsKey& key, const SettingsSource& now, const SettingsSource& then) {
    // The ticks of the watch list never do; the seconds are named by the picker.
    if (key.key == settings_keys::paths || key.key == settings_keys::seconds) return true;
    const auto values = valuesOf(key, now);
    if (key.key == settings_keys::secondSound) return isChimes(values[0]);
    return values == valuesOf(key, then) && staysAtTheStart(key, now.forms, then);
}

using WrittenLines = std::vector<WrittenLine>;

// The line that holds a place of the text.
WrittenLines::const_iterator lineAt(const WrittenLines& lines, std::size_t place) {
    const auto isBehind = [](std::size_t at, const WrittenLine& line) { return at < line.place; };
    return std::prev(std::upper_bound(std::next(lines.begin()), lines.end(), place, isBehind));
}

// A blank line is passed over by the reader, and the others stay where they are.
void blankOut(std::string& text, const WrittenLines& lines, WrittenLines::const_iterator line) {
    const auto next = std::next(line);
    const std::size_t end = next == lines.end() ? text.size() : next->place;
    const std::size_t size = end - line->place - lineEnd.size();
    text.replace(line->place, size, size, ' ');
}

// The key of the line at which a start would end, which is blank afterwards; empty when none does.
std::string_view takeTrap(std::string& text, const WrittenLines& lines, const SettingsTarget& to) {
    std::size_t place = 0;
    try {
        readSettings(text, to, place);
    } catch (const RuntimeError&) {
        const auto line = lineAt(lines, place);
        blankOut(text, lines, line);
        return line->key;
    }
    return {};
}

// The check that follows the reading: error 13 without an interval.
bool hasInterval(const Forms& forms, const Regional& regional) {
    return isNumeric(forms.form1.txtTime.Text(), regional);
}

}  // namespace

std::vector<Hint> readBack(std::string_view content, const std::vector<WrittenLine>& lines,
                           const Forms& forms, Platform& platform, Host& host) {
    const SettingsSource now{.forms = forms, .regional = platform.regional, .host = host};
    std::vector<Hint> hints;
    std::set<std::string_view> named;
    const auto name = [&](const SettingsKey& key, bool endsStart) {
        if (!named.insert(wordsOf(key.key).field).second) return;
        hints.push_back(hintFor(key, valuesOf(key, now), endsStart));
    };
    std::string text(content);
    auto back = std::make_unique<Forms>();
    const auto trap = [&] {
        return takeTrap(text, lines, {.forms = *back, .platform = platform, .rehearses = true});
    };
    for (auto key = trap(); !key.empty(); key = trap()) {
        name(writtenKey(key), true);
        back = std::make_unique<Forms>();
    }
    if (!hasInterval(*back, platform.regional)) name(writtenKey(settings_keys::seconds), true);
    const SettingsSource then{.forms = *back, .regional = platform.regional, .host = host};
    for (const SettingsKey* key : settingsKeysToWrite()) {
        if (!comesBack(*key, now, then)) name(*key, false);
    }
    return hints;
}

}  // namespace velmora
