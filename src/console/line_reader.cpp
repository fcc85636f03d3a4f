#include "console/line_reader.h"

namespace velmora::console {

LineRead readLine(std::istream& input, std::string& line) {
    line.clear();
    std::streambuf& buffer = *input.rdbuf();
    constexpr int end = std::char_traits<char>::eof();
    bool tooLong = false;
    int c = buffer.sbumpc();
    if (c == end) return LineRead::end;
    for (; c != end && c != '\n'; c = buffer.sbumpc()) {
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
