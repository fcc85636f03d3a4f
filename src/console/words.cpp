#include "console/words.h"

#include <algorithm>

#include "base/text.h"
#include "console/json_text.h"

namespace velmora::console {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// Position of an escaped text's closing quote, counted from its opening quote; npos if none.
std::size_t closingQuote(std::string_view text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            return i;
        }
    }
    return std::string_view::npos;
}

bool beginsEscaped(std::string_view text) {
    return text.substr(0, 2) == "$\"";
}

}  // namespace

Words::Words(std::string_view line) : rest_(line) {
    skipBlanks();
}

void Words::skipBlanks() {
    while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
}

bool Words::take(std::string_view word) {
    const std::string_view first = rest_.substr(0, rest_.find_first_of(" \t"));
    const bool isLast = rest_.find_first_not_of(" \t", first.size()) == std::string_view::npos;
    if (isLast || lowerCase(first) != word) return false;
    rest_.remove_prefix(first.size());
    skipBlanks();
    return true;
}

std::string Words::next() {
    if (rest_.empty()) throw CommandError("something is missing at the end of the line");
    std::string word;
    if (beginsEscaped(rest_)) {
        word = escaped();
    } else if (rest_.front() == '"') {
        word = quoted();
    } else {
        const auto end = std::find_if(rest_.begin(), rest_.end(), isBlank) - rest_.begin();
        word = std::string(rest_.substr(0, static_cast<std::size_t>(end)));
        rest_.remove_prefix(static_cast<std::size_t>(end));
    }
    if (!rest_.empty() && !isBlank(rest_.front())) {
        throw CommandError("a blank is missing behind a closing quote");
    }
    skipBlanks();
    return word;
}

std::string Words::quoted() {
    std::string word;
    std::size_t i = 1;
    for (; i < rest_.size(); ++i) {
        if (rest_[i] == '"') {
            if (i + 1 >= rest_.size() || rest_[i + 1] != '"') break;
            ++i;
        }
        word += rest_[i];
    }
    if (i >= rest_.size()) throw CommandError("a closing quote is missing");
    rest_.remove_prefix(i + 1);
    return word;
}

std::string Words::escaped() {
    const std::string_view literal = rest_.substr(1);
    const std::size_t close = closingQuote(literal);
    if (close == std::string_view::npos) throw CommandError("a closing quote is missing");
    const auto text = readJsonString(literal.substr(0, close + 1));
    if (!text) throw CommandError("not a text with valid escapes");
    rest_.remove_prefix(close + 2);
    return *text;
}

std::string Words::value() {
    if (!beginsEscaped(rest_)) {
        std::string value(rest_);
        rest_ = {};
        return value;
    }
    std::string value = escaped();
    skipBlanks();
    end();
    return value;
}

std::vector<std::string> Words::all() {
    std::vector<std::string> words;
    while (!atEnd()) words.push_back(next());
    return words;
}

void Words::end() const {
    if (!rest_.empty()) throw CommandError("more than the command takes: " + std::string(rest_));
}

std::string readable(const std::string& text) {
    const bool plain = isValidUtf8(text) && !beginsEscaped(text) &&
                       std::none_of(text.begin(), text.end(), [](char c) {
                           return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
                       });
    return plain ? text : "$" + jsonString(text);
}

std::string asOneLine(const std::string& text) {
    const bool blankEdges = !text.empty() && (isBlank(text.front()) || isBlank(text.back()));
    return blankEdges ? "$" + jsonString(text) : readable(text);
}

}  // namespace velmora::console
