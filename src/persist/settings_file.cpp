#include "persist/settings_file.h"

#include <functional>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "persist/recovery/hint_words.h"
#include "persist/recovery/key_words.h"
#include "persist/settings_reader.h"
#include "persist/settings_writer.h"

namespace velmora {

void SettingsFile::prcSettings(std::int16_t bSet) {
    if (bSet == settings_order::write) {
        write();
    } else if (bSet == settings_order::read) {
        read();
    }
    checkInterval();
    if (bSet == settings_order::read) fault_.reset();
}

void SettingsFile::checkInterval() {
    TextBox& txtTime = forms_.form1.txtTime;
    if (toDouble(txtTime.Text(), platform_.regional) <= 0) txtTime.setText("5");
}

void SettingsFile::read() {
    fault_ = SettingsFault{};
    contentRead_ = platform_.files.readAll(forms_.globals.strSettings);
    std::size_t place = 0;
    try {
        readSettings(contentRead_, {.forms = forms_, .platform = platform_}, place);
    } catch (const RuntimeError&) {
        fault_ = SettingsFault{.key = keyOfLineAt(contentRead_, place),
                               .line = lineNumberAt(contentRead_, place)};
        throw;
    }
    // All that can still be wrong is the interval.
    fault_->key = "txtTime=";
}

void SettingsFile::write() {
    std::string text;
    const std::string& path = forms_.globals.strSettings;
    const auto store = [&] {
        attempt("save the settings", path, [&] {
            platform_.files.writeOver(
                path, text, {.reservesRoom = platform_.app.Options.keepRunning, .isPrivate = true});
        });
    };
    std::vector<WrittenLine> lines;
    try {
        appendSettings(text, forms_, platform_.regional, host_, lines);
    } catch (RuntimeError& failure) {
        const bool isAllKept = platform_.app.Options.keepRunning;
        if (!isAllKept) store();
        const std::string key(lines.back().key);
        forms_.hints.say(unwritable(key, failure.number(), isAllKept));
        failure.noteAttempt("save the settings; " + key + " " + whyUnwritable(failure.number()),
                            path);
        throw;
    }
    store();
    hintAbout(text, lines);
}

// Each check can save the same once more.
void SettingsFile::hintAbout(const std::string& written, const std::vector<WrittenLine>& lines) {
    const std::size_t sum = std::hash<std::string>{}(written);
    if (!forms_.hints.Said.connected() || std::exchange(sumHinted_, sum) == sum) return;
    for (const Hint& each : readBack(written, lines, forms_, platform_, host_)) {
        forms_.hints.say(each);
    }
}

}  // namespace velmora
