#include "console/line_reader.h"

namespace velmora::console {

namespace {

constexpr int endOfInput = std::char_traits<char>::eof();

// The next byte. The buffer of a file throws on an input that can't be read, such as a folder.
int nextByte(std::streambuf& buffer) {
    try {
        return buffer.sbumpc();
    } catch (const std::ios_base::failure&) {
        return endOfInput;
    }
}

}  // namespace

LineRead readLine(std::istream& input, std::string& line) {
    line.clear();
    std::streambuf& buffer = *input.rdbuf();
    bool tooLong = false;
    int c = nextByte(buffer);
    if (c == endOfInput) return LineRead::end;
    for (; c != endOfInput && c != '\n'; c = nextByte(buffer)) {
        if (line.size() > longestLine) {
            tooLong = true;
        } else {
            line.push_back(static_cast<char>(c));
        }
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return tooLong || line.size() > longestLine ? LineRead::tooLong : LineRead::line;
}

}  // namespace velmora::console
