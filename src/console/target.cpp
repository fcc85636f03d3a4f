#include "console/target.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "base/text.h"
#include "console/nearest_name.h"
#include "console/words.h"
#include "controls/control.h"

namespace velmora::console {

namespace {

// One piece between the points: a name and perhaps an index in brackets.
struct Piece {
    std::string name;
    std::optional<int> index;
};

Piece readPiece(const std::string& text) {
    const std::size_t open = text.find('(');
    if (open == std::string::npos) return {text, std::nullopt};
    int index = 0;
    const std::string_view digits = std::string_view(text).substr(open + 1);
    const char* last = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), last, index);
    // Nothing but the closing bracket may be left.
    if (read.ec != std::errc{} || std::string_view(read.ptr, last) != ")" || index < 0) {
        throw CommandError("not an index: " + text);
    }
    return {text.substr(0, open), index};
}

bool setControl(Target& target, const Piece& piece) {
    target.control = target.form->find(piece.name, piece.index.value_or(-1));
    if (target.control != nullptr) return true;
    if (!piece.index) return false;
    // Where the name isn't that of a control array, the number counts the parts of one control.
    target.control = target.form->find(piece.name);
    if (target.control != nullptr) target.part = piece.index;
    return target.control != nullptr;
}

[[noreturn]] void unknown(const std::string& what, const std::string& name,
                          const std::vector<std::string>& candidates = {}) {
    throw CommandError("no " + what + " of that name: " + name + didYouMean(name, candidates));
}

std::vector<std::string> namesOf(const Properties& properties) {
    std::vector<std::string> all;
    for (const Property& each : properties) all.push_back(each.name);
    return all;
}

bool isProperty(Form& form, const std::string& name) {
    const std::vector<std::string> all = namesOf(form.properties());
    return std::any_of(all.begin(), all.end(),
                       [&](const std::string& each) { return lowerCase(each) == lowerCase(name); });
}

// A control of a form, or a form where none has been named.
std::vector<std::string> namesIn(Forms& forms, const Form& form, bool isNamed) {
    std::vector<std::string> all;
    for (const Control* each : form.controls()) all.push_back(each->fullName());
    if (isNamed) return all;
    for (const Form* each : forms.all()) all.push_back(each->Name());
    return all;
}

}  // namespace

Properties Target::properties() const {
    if (control == nullptr) return form->properties();
    return part ? control->partProperties(*part) : control->properties();
}

Property Target::find() const {
    std::string wanted = property;
    if (wanted.empty() && control != nullptr) {
        wanted = part ? control->mainPartProperty() : control->mainProperty();
    }
    if (wanted.empty()) wanted = "Caption";
    const std::string key = lowerCase(wanted);
    for (Property& candidate : properties()) {
        if (lowerCase(candidate.name) == key) return candidate;
    }
    unknown("property", wanted, namesOf(properties()));
}

Target resolve(Forms& forms, const std::string& name) {
    const std::vector<std::string> texts = split(name, ".");
    const bool gaps = std::find(texts.begin(), texts.end(), "") != texts.end();
    if (gaps || texts.size() > 3) throw CommandError("not a name: " + name);

    Target target;
    target.form = forms.find(texts[0]);
    std::size_t at = target.form != nullptr ? 1 : 0;
    if (target.form == nullptr) target.form = &forms.form1;
    if (at < texts.size()) {
        if (setControl(target, readPiece(texts[at]))) {
            ++at;
        } else if (at == 0 || texts.size() == 3) {
            // After a form alone, the name may be that of a property of the form.
            unknown("control", texts[at], namesIn(forms, *target.form, at > 0));
        } else if (!isProperty(*target.form, texts[at])) {
            std::vector<std::string> all = namesIn(forms, *target.form, true);
            for (const std::string& each : namesOf(target.form->properties())) all.push_back(each);
            unknown("control or property", texts[at], all);
        }
    }
    if (at < texts.size()) target.property = texts[at++];
    if (at < texts.size()) unknown("property", texts[at]);
    return target;
}

Target resolveControl(Forms& forms, const std::string& name) {
    Target target = resolve(forms, name);
    if (target.control == nullptr) unknown("control", name);
    if (!target.property.empty()) throw CommandError("a control, not a property: " + name);
    return target;
}

}  // namespace velmora::console
