#include "platform/linux/inventory/record_reader.h"

#include <sys/socket.h>

#include <utility>

#include "base/runtime_error.h"
#include "platform/linux/inventory/record_server.h"
#include "platform/linux/system/forked_child.h"
#include "platform/linux/system/left_children.h"

namespace velmora::linuxhost {

void RecordReader::start() {
    reapLeftChildren();
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) giveUp();
    UniqueFd ownEnd(ends[0]);
    const UniqueFd childEnd(ends[1]);
    process_ = forkChild(childEnd.get(), "velmora-records",
                         [this] { serveRecords(forkedChildSocket, open_); });
    if (process_ < 0) giveUp();
    socket_ = std::move(ownEnd);
    channel_.emplace(socket_.get(), deadline_);
}

void RecordReader::stop() {
    channel_.reset();
    socket_.reset();
    if (process_ > 0) killChild(std::exchange(process_, -1));
}

void RecordReader::giveUp() {
    hasFailed_ = true;
    stop();
    throw RuntimeError(error::automation);
}

RecordReply RecordReader::ask(const RecordRequest& request) {
    if (hasFailed_) throw RuntimeError(error::automation);
    if (!channel_) start();
    if (!channel_->send(bytesOf(request))) giveUp();
    const auto answer = channel_->receive();
    if (!answer) giveUp();
    auto reply = replyIn(*answer);
    if (!reply) giveUp();
    if (reply->kind == RecordReply::Kind::failure) throw RuntimeError(error::automation);
    return std::move(*reply);
}

std::uint32_t RecordReader::begin(const std::string& className) {
    const std::uint32_t query = ++queries_;
    ask({RecordRequest::Kind::begin, query, className});
    return query;
}

std::optional<Record> RecordReader::next(std::uint32_t query) {
    RecordReply reply = ask({RecordRequest::Kind::next, query, {}});
    if (reply.kind == RecordReply::Kind::nothing) return std::nullopt;
    return std::move(reply.record);
}

void RecordReader::end(std::uint32_t query) {
    if (channel_) channel_->send(bytesOf(RecordRequest{RecordRequest::Kind::end, query, {}}));
}

std::optional<Record> RecordReader::account(const std::string& path) {
    RecordReply reply = ask({RecordRequest::Kind::account, 0, path});
    if (reply.kind == RecordReply::Kind::nothing) return std::nullopt;
    return std::move(reply.record);
}

}  // namespace velmora::linuxhost
