// A mail message as the standards of internet mail ask for it (RFC 5322, RFC 2045, RFC 2047):
// headers in ASCII, a body in UTF-8 that any server takes.
#pragma once

#include <cstdint>
#include <string>

#include "base/date_time.h"

namespace velmora {

struct MimeSource {
    std::string displayName;
    std::string sender;     ///< an address, bare or in angle brackets
    std::string recipient;  ///< likewise
    std::string subject;
    std::string body;          ///< plain text; lines that are no UTF-8 are in Windows-1252
    bool isHtml = false;       ///< the text becomes a page that shows it
    DateTime local;            ///< the present date and time
    std::uint64_t system = 0;  ///< the same in units of 100 ns since 1601-01-01 UTC
};

/// The whole message with CR LF as line ends, those of the body included. Error 5, with words for a
/// user, when a header's text holds a line end, and for an address that is empty, has more than 254
/// characters or one outside ASCII, a blank, an angle bracket inside or a comma.
std::string mimeMessage(const MimeSource& source);
/// An address without blanks around it and without angle brackets.
std::string bareAddress(const std::string& address);

}  // namespace velmora
