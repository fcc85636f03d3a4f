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

std::string notPutBack(const std::string& file, const std::string& why) {
    return "Settings were not put back, and nothing was changed: " + file +
           " can't be kept first (" + why + ").";
}

}  // namespace

// For words to a user a file that can't be read is as good as none.
std::optional<std::string> SettingsRecovery::readable() {
    try {
        return platform_.files.readAll(path());
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

// Nothing where there is no file. One that can't be read can't be kept either.
std::optional<std::string> SettingsRecovery::present(const std::string& file) {
    try {
        return platform_.files.readAll(path());
    } catch (const RuntimeError& failure) {
        if (failure.number() == error::fileNotFound) return std::nullopt;
        throw RuntimeError(failure.number(), notPutBack(file, failure.description()));
    }
}

std::string SettingsRecovery::keepFirst(const std::string& content, const std::string& file) {
    std::string kept = copies_.keepReplaced(content);
    if (kept.empty()) {
        throw RuntimeError(error::pathFileAccess,
                           notPutBack(file, copies_.placeOfReplaced() + " can't be written"));
    }
    return kept;
}

Restored SettingsRecovery::restore(const PathConversion& toHostPath) {
    const std::string file = toHostPath(path());
    const auto old = present(file);
    const auto copy = copies_.next(old);
    if (!copy) return {.text = "There is no other good copy of the settings: " + file};
    // An empty file holds nothing to keep.
    const std::string kept = old.value_or("").empty() ? std::string{} : keepFirst(*old, file);
    attempt("put the settings back", path(), [&] {
        platform_.files.writeOver(path(), copy->content, {.reservesRoom = true, .isPrivate = true});
    });
    copies_.wasPutBack(copy->content, old);
    std::string done = "Settings were put back: " + file + ", from " + copy->place + ".";
    if (!kept.empty()) done += " What they replace lies in " + kept + ".";
    return {.isDone = true, .text = done};
}

std::string SettingsRecovery::explain(const SettingsFault& fault,
                                      const PathConversion& toHostPath) {
    std::string text = "The settings can't be read: " + toHostPath(path());
    text.append(lineEnd).append(lineInWords(fault)).append(lineEnd);
    if (const auto copy = copies_.next(readable())) {
        return text + "The last settings that the program started with lie in " + copy->place + ".";
    }
    return text +
           "There is no good copy. The help says how to make a new file: velmora.html, "
           "\"repair set.dat\".";
}

}  // namespace velmora
