#include "persist/recovery/copy_marks.h"

#include <sstream>

namespace velmora {

namespace {

// The words before the sum in a line.
constexpr const char* passedWord = "passed";
constexpr const char* endedWord = "ended";

void append(std::string& text, const char* word, const std::set<std::string>& sums) {
    for (const std::string& sum : sums) text.append(word).append(" ").append(sum).append("\n");
}

}  // namespace

CopyMarks readMarks(UserState& state, const std::string& name) {
    CopyMarks marks;
    std::istringstream lines(state.read(name).value_or(""));
    for (std::string word, sum; lines >> word >> sum;) {
        if (word == passedWord) marks.passed.insert(sum);
        if (word == endedWord) marks.ended.insert(sum);
    }
    return marks;
}

void writeMarks(UserState& state, const std::string& name, const CopyMarks& marks) {
    std::string text;
    append(text, passedWord, marks.passed);
    append(text, endedWord, marks.ended);
    state.write(name, text);
}

}  // namespace velmora
