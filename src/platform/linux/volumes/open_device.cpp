#include "platform/linux/volumes/open_device.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "platform/linux/volumes/block_device.h"

namespace velmora::linuxhost {

namespace {

std::string inWords(const std::string& device, const char* what, int error) {
    if (error == EACCES || error == EPERM)
        return "the right to read " + device + " is missing (" + whoMayRead(device) + ")";
    return device + " can't be " + what + ": " + std::generic_category().message(error);
}

}  // namespace

OpenDevice::OpenDevice(std::string path, std::chrono::milliseconds deadline)
    : path_(std::move(path)), deadline_(deadline) {}

bool OpenDevice::fail(const std::string& why) {
    failure_ = why;
    return false;
}

bool OpenDevice::ask(const DeviceRequest& request, Clock::time_point end) {
    if (isGivenUp_) return fail(path_ + " doesn't answer");
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    const std::size_t size = DeviceRequest::headSize() + std::strlen(request.path) + 1;
    failure_.clear();
    if (process_.ask(&request, size, &reply_, sizeof reply_, left) == sizeof reply_) return true;
    // Another process would not have the device open.
    isGivenUp_ = true;
    process_.end();
    return fail(path_ + " doesn't answer");
}

bool OpenDevice::open() {
    return openBy(Clock::now() + deadline_);
}

bool OpenDevice::openBy(Clock::time_point end) {
    DeviceRequest request{.question = DeviceQuestion::open};
    if (path_.size() >= sizeof request.path) return fail(inWords(path_, "opened", ENAMETOOLONG));
    std::memcpy(request.path, path_.c_str(), path_.size() + 1);
    if (!ask(request, end)) return false;
    return reply_.error == 0 || fail(inWords(path_, "opened", reply_.error));
}

std::optional<std::string> OpenDevice::read(std::uint64_t position, std::uint32_t bytes) {
    const auto end = Clock::now() + deadline_;
    std::string content;
    while (content.size() < bytes) {
        const auto left = static_cast<std::uint32_t>(bytes - content.size());
        const DeviceRequest request{.question = DeviceQuestion::read,
                                    .bytes = std::min(left, DeviceReply::mostBytes),
                                    .position = position + content.size()};
        if (!ask(request, end)) return std::nullopt;
        if (reply_.error != 0) {
            fail(inWords(path_, "read", reply_.error));
            return std::nullopt;
        }
        content.append(reply_.content, reply_.bytes);
        if (reply_.bytes < request.bytes) break;
    }
    return content;
}

std::optional<FileSystemNames> OpenDevice::probe() {
    return probeBy(Clock::now() + deadline_);
}

std::optional<FileSystemNames> OpenDevice::openAndProbe() {
    const auto end = Clock::now() + deadline_;
    return openBy(end) ? probeBy(end) : std::nullopt;
}

std::optional<FileSystemNames> OpenDevice::probeBy(Clock::time_point end) {
    if (!ask({.question = DeviceQuestion::probe}, end)) return std::nullopt;
    if (reply_.error == 0) return reply_.names;
    fail(inWords(path_, "read", reply_.error));
    return std::nullopt;
}

}  // namespace velmora::linuxhost
