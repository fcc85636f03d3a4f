#include "persist/recovery/settings_recovery.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "persist/recovery/key_words.h"

namespace velmora {

namespace {

std::string lineInWords(const SettingsFault& fault) {
    if (fault.key.empty() && fault.line == 0) return "The file can't be opened.";
    const std::string line = "Line " + std::to_string(fault.line) + " can't be read";
    if (fault.key.empty()) return line + ".";
    const KeyWords words = wordsOf(fault.key);
    const std::string what = std::string(words.key) + " (" + std::string(words.words) + ", " +
                             std::string(words.field) + ")";
    return fault.line > 0 ? line + ": " + what + "." : "No line holds a number for " + what + ".";
}

}  // namespace

// A file that can't be read is as good as none here.
std::optional<std::string> SettingsRecovery::present() {
    try {
        return platform_.files.readAll(path());
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::string SettingsRecovery::restore(const PathConversion& toHostPath) {
    const auto old = present();
    const auto copy = copies_.newestOtherThan(path(), old);
    const std::string file = toHostPath(path());
    if (!copy) return "There is no other good copy of the settings: " + file;
    const std::string kept = old ? copies_.keepReplaced(path(), *old) : std::string{};
    attempt("put the settings back", path(), [&] {
        platform_.files.writeOver(path(), copy->content, {.reservesRoom = true, .isPrivate = true});
    });
    std::string done = "Settings were put back: " + file + ", from " + copy->place + ".";
    if (!kept.empty()) done += " What they replace lies in " + kept + ".";
    return done;
}

std::string SettingsRecovery::explain(const SettingsFault& fault,
                                      const PathConversion& toHostPath) {
    std::string text = "The settings can't be read: " + toHostPath(path());
    text.append(lineEnd).append(lineInWords(fault)).append(lineEnd);
    if (const auto copy = copies_.newestOtherThan(path(), present())) {
        return text + "The last settings that the program started with lie in " + copy->place + ".";
    }
    return text +
           "There is no good copy. The help says how to make a new file: velmora.html, "
           "\"repair set.dat\".";
}

}  // namespace velmora
