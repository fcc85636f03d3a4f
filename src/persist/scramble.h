// The scrambling of the settings file's lines: every character code goes up by one. It keeps the
// settings from being read at a glance and protects nothing. Characters are the file's bytes.
#pragma once

#include <string>

namespace velmora {

/// The scrambled text, of the same length. Error 5 for a byte 255, error 6 for more than 32767
/// bytes: the length is a 16-bit number.
std::string prcEn(const std::string& text);

/// The plain text of a scrambled one. Error 5 for a byte 0, error 6 as above.
std::string prcDe(const std::string& text);

}  // namespace velmora
