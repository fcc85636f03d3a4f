// Splitting a console line into words.
//
// A word ends at a blank. A word in double quotes may hold blanks; a quote inside it is doubled and
// a back-slash stays as it is, so that paths can be written as they are. A word $"..." holds
// escapes as in JSON (\n, \r, \t, \", \\, \u00e4, ...): the form for line ends and other characters
// that a line can't hold. Output uses the same form where it must.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::console {

/// A line that can't be understood; the message says why.
class CommandError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Takes words off the front of a line.
class Words {
  public:
    explicit Words(std::string_view line);

    bool atEnd() const { return rest_.empty(); }
    /// The next word without its quotes; CommandError when there is none or a quote isn't closed.
    std::string next();
    /// Takes the next word off when it is this one, without quotes and in any letter case, and more
    /// follows it.
    bool take(std::string_view word);
    /// All that is left, as one value: the rest of the line unchanged, or decoded when it is of the
    /// form $"...". May be empty.
    std::string value();
    /// The words that are left, quoted ones included.
    std::vector<std::string> all();
    /// CommandError when anything is left.
    void end() const;

  private:
    std::string quoted();
    std::string escaped();
    void skipBlanks();

    std::string_view rest_;
};

/// The text as one line that `Words::value` reads back: unchanged where possible, else $"...".
std::string asOneLine(const std::string& text);

/// The same for readers of whole lines, where blanks at either end need no quotes.
std::string readable(const std::string& text);

}  // namespace velmora::console
