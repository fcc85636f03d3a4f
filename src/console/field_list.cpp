#include "console/field_list.h"

#include "base/text.h"
#include "console/output.h"
#include "controls/text_box.h"
#include "forms/field_words.h"

namespace velmora::console {

namespace {

constexpr std::size_t longestValue = 60;

// "*" stands for any characters, "?" for one. Only the last star is tried anew: the characters that
// an earlier one could take, the last can take too.
bool matches(std::string_view name, std::string_view pattern) {
    constexpr auto none = std::string_view::npos;
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = none;
    std::size_t taken = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            taken = at;
        } else if (in < pattern.size() && (pattern[in] == '?' || pattern[in] == name[at])) {
            ++in;
            ++at;
        } else if (star != none) {
            in = star + 1;
            at = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == none;
}

bool isWanted(const std::string& name, const std::string& words, const std::string& pattern) {
    if (pattern.find_first_of("*?") != std::string::npos) return matches(lowerCase(name), pattern);
    return contains(lowerCase(name), pattern) || contains(lowerCase(words), pattern);
}

PropertyValue valueOf(Control& control) {
    const auto* box = dynamic_cast<const TextBox*>(&control);
    if (box != nullptr && box->masked()) return std::string(box->textLength(), '*');
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

// The main window needs no name.
std::string fieldName(const Forms& forms, const Control& control) {
    const bool isMain = &control.form() == &forms.form1;
    return isMain ? control.fullName() : control.form().Name() + "." + control.fullName();
}

Report fieldList(Forms& forms, const std::string& pattern) {
    const std::string wanted = lowerCase(pattern);
    Report report{.fields = Control::Table()};
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            const std::string name = fieldName(forms, *control);
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
