// What the program and its reading process say to each other, as bytes: sizes are four bytes in the
// machine's order, and come before what they count.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

/// No message is longer, in bytes; a journal's longest messages have a few megabytes.
inline constexpr std::size_t longestRecordMessage = std::size_t{64} << 20;

struct RecordRequest {
    enum class Kind : std::uint8_t {
        begin,   ///< a query; `text` is the name of its class
        next,    ///< record of a query
        end,     ///< of a query; it gets no reply
        account  ///< at the path `text`
    };
    Kind kind = Kind::begin;
    std::uint32_t query = 0;  ///< number of the query, chosen at its begin
    std::string text;
};

struct RecordReply {
    enum class Kind : std::uint8_t { record, nothing, failure };
    Kind kind = Kind::failure;
    Record record;  ///< empty unless it is one
};

std::string bytesOf(const RecordRequest& request);
std::string bytesOf(const RecordReply& reply);

/// Nothing for bytes that are no such message.
std::optional<RecordRequest> requestIn(std::string_view bytes);
std::optional<RecordReply> replyIn(std::string_view bytes);

}  // namespace velmora::linuxhost
