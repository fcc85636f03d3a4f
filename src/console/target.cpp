#include "console/target.h"

#include <charconv>
#include <vector>

#include "base/text.h"
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
    const char* first = text.data() + open + 1;
    const char* last = text.data() + text.size() - 1;
    const auto read = std::from_chars(first, last, index);
    if (text.back() != ')' || read.ec != std::errc{} || read.ptr != last || index < 0) {
        throw CommandError("not an index: " + text);
    }
    return {text.substr(0, open), index};
}

bool setControl(Target& target, const Piece& piece) {
    target.control = target.form->find(piece.name, piece.index.value_or(-1));
    if (target.control != nullptr) return true;
    if (!piece.index) return false;
    // A number that is no control array's counts the parts of one control.
    target.control = target.form->find(piece.name);
    target.part = piece.index;
    return target.control != nullptr;
}

[[noreturn]] void unknown(const std::string& what, const std::string& name) {
    throw CommandError("no " + what + " of that name: " + name);
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
    for (Property& candidate : properties()) {
        if (lowerCase(candidate.name) == lowerCase(wanted)) return candidate;
    }
    unknown("property", wanted);
}

Target resolve(Forms& forms, const std::string& name) {
    const std::vector<std::string> texts = split(name, ".");
    std::vector<Piece> pieces;
    for (const std::string& text : texts) pieces.push_back(readPiece(text));

    Target target;
    std::size_t at = 0;
    target.form = pieces[0].index ? nullptr : forms.find(pieces[0].name);
    if (target.form != nullptr) {
        ++at;
        if (at == pieces.size()) return target;
        if (setControl(target, pieces[at])) ++at;
    } else {
        target.form = &forms.form1;
        if (!setControl(target, pieces[at])) unknown("control", texts[at]);
        ++at;
    }
    if (at < pieces.size()) target.property = texts[at++];
    if (at < pieces.size()) unknown("property", texts[at]);
    return target;
}

Target resolveControl(Forms& forms, const std::string& name) {
    Target target = resolve(forms, name);
    if (target.control == nullptr) unknown("control", name);
    if (!target.property.empty()) throw CommandError("a control, not a property: " + name);
    return target;
}

}  // namespace velmora::console
