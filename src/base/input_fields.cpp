#include "base/input_fields.h"

#include <algorithm>

namespace velmora {

std::string InputFields::next() {
    skipBlanks();
    if (atEnd()) return {};
    if (text_[at_] == '"') return quoted();
    const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
    std::string field(text_.substr(at_, end - at_));
    at_ = end;
    skipSeparator();
    return field;
}

std::string InputFields::quoted() {
    const std::size_t from = at_ + 1;
    const std::size_t close = std::min(text_.find('"', from), text_.size());
    std::string field(text_.substr(from, close - from));
    at_ = std::min(close + 1, text_.size());
    skipBlanks();
    skipSeparator();
    return field;
}

void InputFields::skipBlanks() {
    at_ = std::min(text_.find_first_not_of(" \t", at_), text_.size());
}

void InputFields::skipSeparator() {
    const std::string_view rest = text_.substr(at_);
    if (rest.starts_with("\r\n"))
        at_ += 2;
    else if (rest.starts_with(',') || rest.starts_with('\r') || rest.starts_with('\n'))
        ++at_;
}

}  // namespace velmora
