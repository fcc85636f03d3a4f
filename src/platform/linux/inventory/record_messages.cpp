#include "platform/linux/inventory/record_messages.h"

#include <cstring>
#include <utility>

namespace velmora::linuxhost {

namespace {

void addNumber(std::string& bytes, std::uint32_t number) {
    char four[sizeof number];
    std::memcpy(four, &number, sizeof number);
    bytes.append(four, sizeof four);
}

void addText(std::string& bytes, std::string_view text) {
    addNumber(bytes, static_cast<std::uint32_t>(text.size()));
    bytes += text;
}

// Takes a message apart from its front. Once something is missing, the rest is, too.
class MessageBytes {
  public:
    explicit MessageBytes(std::string_view bytes) : rest_(bytes) {}

    std::optional<std::uint8_t> byte() {
        const auto taken = take(1);
        if (!taken) return std::nullopt;
        return static_cast<std::uint8_t>(taken->front());
    }
    std::optional<std::uint32_t> number() {
        std::uint32_t value = 0;
        const auto taken = take(sizeof value);
        if (!taken) return std::nullopt;
        std::memcpy(&value, taken->data(), sizeof value);
        return value;
    }
    std::optional<std::string> text() {
        const auto size = number();
        const auto taken = size ? take(*size) : std::nullopt;
        if (!taken) return std::nullopt;
        return std::string(*taken);
    }
    bool isEmpty() const { return rest_.empty(); }

  private:
    std::optional<std::string_view> take(std::size_t size) {
        if (size > rest_.size()) {
            rest_ = {};
            return std::nullopt;
        }
        const auto taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }

    std::string_view rest_;
};

std::optional<Record> recordIn(MessageBytes& bytes) {
    const auto count = bytes.number();
    if (!count) return std::nullopt;
    Record record;
    for (std::uint32_t i = 0; i < *count; ++i) {
        auto name = bytes.text();
        auto value = bytes.text();
        if (!name || !value) return std::nullopt;
        record.insert_or_assign(std::move(*name), std::move(*value));
    }
    return record;
}

}  // namespace

std::string bytesOf(const RecordRequest& request) {
    std::string bytes(1, static_cast<char>(request.kind));
    addNumber(bytes, request.query);
    addText(bytes, request.text);
    return bytes;
}

std::string bytesOf(const RecordReply& reply) {
    std::string bytes(1, static_cast<char>(reply.kind));
    addNumber(bytes, static_cast<std::uint32_t>(reply.record.size()));
    for (const auto& [name, value] : reply.record) {
        addText(bytes, name);
        addText(bytes, value);
    }
    return bytes;
}

std::optional<RecordRequest> requestIn(std::string_view message) {
    MessageBytes bytes(message);
    const auto kind = bytes.byte();
    const auto query = bytes.number();
    auto text = bytes.text();
    if (!kind || !query || !text || !bytes.isEmpty()) return std::nullopt;
    if (*kind > static_cast<std::uint8_t>(RecordRequest::Kind::account)) return std::nullopt;
    return RecordRequest{RecordRequest::Kind{*kind}, *query, std::move(*text)};
}

std::optional<RecordReply> replyIn(std::string_view message) {
    MessageBytes bytes(message);
    const auto kind = bytes.byte();
    auto record = recordIn(bytes);
    if (!kind || !record || !bytes.isEmpty()) return std::nullopt;
    if (*kind > static_cast<std::uint8_t>(RecordReply::Kind::failure)) return std::nullopt;
    return RecordReply{RecordReply::Kind{*kind}, std::move(*record)};
}

}  // namespace velmora::linuxhost
