#include "console/completion.h"

#include <algorithm>
#include <functional>
#include <map>

#include "base/text.h"
#include "console/commands.h"
#include "console/field_list.h"
#include "console/target.h"
#include "controls/buttons.h"
#include "controls/pickers.h"
#include "controls/timer.h"

namespace velmora::console {

namespace {

using Texts = std::vector<std::string>;

/// A line up to the cursor, as it is typed: lower-cased words, the last one unfinished.
struct Typed {
    Texts words;
    std::string last;  ///< as it was typed
};

Typed typedIn(std::string_view text) {
    Typed typed;
    const Texts words = split(std::string(text), " ");
    for (const std::string& word : words) {
        if (!word.empty()) typed.words.push_back(lowerCase(word));
    }
    typed.last = words.back();
    if (typed.last.empty()) typed.words.emplace_back();
    return typed;
}

// A command can stand behind "after SECONDS" and "at yield N".
Typed withoutDelays(Typed typed) {
    while (!typed.words.empty()) {
        const std::string& first = typed.words.front();
        const std::size_t delay = first == "after" ? 2 : first == "at" ? 3 : 0;
        if (delay == 0 || typed.words.size() <= delay) break;
        typed.words.erase(typed.words.begin(),
                          typed.words.begin() + static_cast<std::ptrdiff_t>(delay));
    }
    return typed;
}

template <typename... Kinds>
bool isOneOf(const Control& control) {
    return ((dynamic_cast<const Kinds*>(&control) != nullptr) || ...);
}

using Fits = std::function<bool(const Control&)>;

// The fields that a command takes; nothing for a command that takes none.
const Fits* fieldsOf(const std::string& command) {
    static const Fits any = [](const Control&) { return true; };
    static const Fits lists = isOneOf<ListView>;
    static const std::map<std::string, Fits> kinds{
        {"get", any},
        {"set", any},
        {"click", any},
        {"doubleclick", any},
        {"menu", isOneOf<MenuItem>},
        {"tick", isOneOf<ListView, ListBox>},
        {"select", lists},
        {"row", lists},
        {"rows",
         [](const Control& control) {
             return isOneOf<ListView, ListBox, ComboBox>(control) || control.table();
         }},
        {"drop", isOneOf<ListView, ComboBox>},
        {"fire", isOneOf<Timer>},
    };
    const auto found = kinds.find(command);
    return found == kinds.end() ? nullptr : &found->second;
}

// The words that follow a command, without its fields.
const Texts& wordsAfter(const std::string& command) {
    static const std::map<std::string, Texts> words{
        {"answer", {"yes", "no", "ok", "cancel", "text", "file", "folder", "files"}},
        {"wait", {"forever", "until"}},
        {"wait until", {"alert"}},
        {"at", {"yield"}},
        {"watch", {"on", "off"}},
        {"json", {"on", "off"}},
        {"report",
         {"ram", "users", "processes", "processlist", "jobs", "netstat", "ntevents", "drive",
          "bootsector", "chart", "watch", "message", "caption"}},
    };
    static const Texts none;
    const auto found = words.find(command);
    return found == words.end() ? none : found->second;
}

Texts fieldsFor(Forms& forms, const Fits& fits) {
    Texts names;
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            if (fits(*control)) names.push_back(fieldName(forms, *control));
        }
    }
    return names;
}

// "NAME." followed by each property that can be named there.
Texts propertiesFor(Forms& forms, const std::string& last, bool isToBeSet) {
    const std::size_t point = last.rfind('.');
    if (point == std::string::npos) return {};
    const std::string name = last.substr(0, point);
    Texts names;
    try {
        for (const Property& property : resolve(forms, name).properties()) {
            if (!isToBeSet || property.set) names.push_back(name + '.' + property.name);
        }
    } catch (const std::exception&) {
        // A form and its point are the beginning of a field; and not every field has parts.
        return {};
    }
    return names;
}

Texts candidates(Forms& forms, const Typed& typed) {
    const Texts& words = typed.words;
    const std::string& command = words.front();
    if (words.size() == 1) return Commands::names();
    if (words.size() == 4 && command == "tick") return {"on", "off"};
    if (words.size() == 3 && command == "select") return {"none"};
    if (words.size() == 3 && command == "doubleclick") return {"row"};
    if (words.size() == 3) return wordsAfter(command + ' ' + words[1]);
    if (words.size() != 2) return {};
    if (command == "help") return Commands::names();
    const Fits* fits = fieldsOf(command);
    if (fits == nullptr) return wordsAfter(command);
    Texts found = fieldsFor(forms, *fits);
    if (command == "get" || command == "set") {
        const Texts properties = propertiesFor(forms, typed.last, command == "set");
        found.insert(found.end(), properties.begin(), properties.end());
    }
    return found;
}

}  // namespace

std::vector<std::string> completionsOf(Forms& forms, std::string_view text) {
    const Typed typed = withoutDelays(typedIn(text));
    Texts found = candidates(forms, typed);
    const std::string begin = lowerCase(typed.last);
    std::erase_if(found,
                  [&](const std::string& each) { return !lowerCase(each).starts_with(begin); });
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

}  // namespace velmora::console
