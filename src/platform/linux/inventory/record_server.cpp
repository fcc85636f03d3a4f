#include "platform/linux/inventory/record_server.h"

#include <fcntl.h>

#include <exception>
#include <map>
#include <utility>

namespace velmora::linuxhost {

namespace {

using Kind = RecordRequest::Kind;

RecordReply replyOf(std::optional<Record> record) {
    if (!record) return {RecordReply::Kind::nothing, {}};
    return {RecordReply::Kind::record, std::move(*record)};
}

class RecordServer {
  public:
    RecordServer(int socket, const SourceOpener& open) : channel_(socket), open_(open) {}

    /// False when the other end is closed.
    bool serveOne() {
        const auto message = channel_.receive();
        const auto request = message ? requestIn(*message) : std::nullopt;
        if (!request) return false;
        if (request->kind != Kind::end) return send(answerTo(*request));
        sources_.erase(request->query);
        return true;
    }

  private:
    // What a source raises, a lack of memory for instance, ends no other query.
    RecordReply answerTo(const RecordRequest& request) {
        try {
            return triedAnswerTo(request);
        } catch (const std::exception&) {
            return {};
        }
    }

    RecordReply triedAnswerTo(const RecordRequest& request) {
        if (request.kind == Kind::account) return replyOf(accountAt(request.text));
        if (request.kind == Kind::begin) return begin(request);
        const auto source = sources_.find(request.query);
        return source == sources_.end() ? RecordReply{} : replyOf(source->second->next());
    }

    RecordReply begin(const RecordRequest& request) {
        auto source = open_(request.text);
        if (!source) return {};
        sources_[request.query] = std::move(source);
        return {RecordReply::Kind::nothing, {}};
    }

    bool send(const RecordReply& reply) {
        const std::string bytes = bytesOf(reply);
        return channel_.send(bytes.size() > longestRecordMessage ? bytesOf(RecordReply{}) : bytes);
    }

    RecordChannel channel_;
    const SourceOpener& open_;
    std::map<std::uint32_t, std::unique_ptr<RecordSource>> sources_;
};

// Libraries may print; what they print must not land in a file that has got the number.
void openStandardFiles() {
    int file = open("/dev/null", O_RDWR);
    while (file >= 0 && file < 2) file = open("/dev/null", O_RDWR);
}

}  // namespace

void serveRecords(int socket, const SourceOpener& open) {
    openStandardFiles();
    RecordServer server(socket, open);
    while (server.serveOne()) continue;
}

}  // namespace velmora::linuxhost
