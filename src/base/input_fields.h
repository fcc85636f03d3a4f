// Comma-separated input: one field at a time out of a text, as the runtime's Input statement does.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

/// Leading blanks (and tabs) are skipped; a field ends at a comma or a line end (CR, LF or CR LF);
/// a field in double quotes ends at its closing quote, and what follows up to the comma or line end
/// is skipped when it is blank, else begins the next field. Without a closing quote the field is
/// everything that follows, line ends included. A quote inside a field is a character like others,
/// and so are trailing blanks. A separator at the very end of the text begins no further field.
/// Linear in the text's size.
class InputFields {
  public:
    /// The text must outlive this object.
    explicit InputFields(std::string_view text) : text_(text) {}

    bool atEnd() const { return at_ >= text_.size(); }
    /// Where the next field begins in the text, with the blanks before it.
    std::size_t place() const { return at_; }
    /// The next field, empty at the end.
    std::string next();

  private:
    std::string quoted();
    void skipBlanks();
    void skipSeparator();

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace velmora
