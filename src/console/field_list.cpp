#include "console/field_list.h"

#include "base/text.h"
#include "console/output.h"
#include "controls/text_box.h"
#include "forms/field_words.h"

namespace velmora::console {

namespace {

constexpr std::size_t longestValue = 60;

// As `get` takes it: the main window needs no name.
std::string nameOf(const Forms& forms, const Control& control) {
    const bool isMain = &control.form() == &forms.form1;
    return isMain ? control.fullName() : control.form().Name() + "." + control.fullName();
}

// "*" stands for any characters, "?" for one.
bool matches(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern.front() == '*') {
        const std::string_view rest = pattern.substr(1);
        return matches(name, rest) || (!name.empty() && matches(name.substr(1), pattern));
    }
    const bool isSame =
        !name.empty() && (pattern.front() == '?' || pattern.front() == name.front());
    return isSame && matches(name.substr(1), pattern.substr(1));
}

// Several "*" side by side say no more than one, and would be tried in every combination.
std::string withoutRepeatedStars(const std::string& pattern) {
    std::string all;
    for (const char c : pattern) {
        if (c != '*' || !all.ends_with('*')) all += c;
    }
    return all;
}

bool isWanted(const std::string& name, const std::string& words, const std::string& pattern) {
    if (pattern.find_first_of("*?") != std::string::npos) return matches(lowerCase(name), pattern);
    return contains(lowerCase(name), pattern) || contains(lowerCase(words), pattern);
}

PropertyValue valueOf(Control& control) {
    const auto* box = dynamic_cast<const TextBox*>(&control);
    if (box != nullptr && (box->masked() || box->Name() == "txtPass")) {
        return std::string(box->textLength(), '*');
    }
    const std::string main = control.mainProperty();
    for (const Property& property : control.properties()) {
        if (property.name == main) return property.get();
    }
    return std::string();
}

std::string shortened(const std::string& text) {
    return length(text) > longestValue ? left(text, longestValue) + "..." : text;
}

std::string wordsOf(const Control& control) {
    const std::string_view words = fieldWords(control.form().Name(), control.fullName());
    return words.empty() ? control.shownWords() : std::string(words);
}

}  // namespace

Report fieldList(Forms& forms, const std::string& pattern) {
    const std::string wanted = withoutRepeatedStars(lowerCase(pattern));
    Report report{.fields = Control::Table()};
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            const std::string name = nameOf(forms, *control);
            const std::string words = wordsOf(*control);
            if (!isWanted(name, words, wanted)) continue;
            const PropertyValue value = valueOf(*control);
            report.text += name + " = " + shortened(plainValue(value));
            if (!words.empty() && plainValue(value) != words) report.text += "  (" + words + ")";
            report.text += lineEnd;
            report.fields->push_back({{"Name", name}, {"Value", value}, {"Caption", words}});
        }
    }
    return report;
}

}  // namespace velmora::console
