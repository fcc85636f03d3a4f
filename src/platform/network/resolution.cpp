#include "platform/network/resolution.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace velmora::network {

struct Resolution::Shared {
    void finish(std::vector<Address> found) {
        const std::lock_guard lock(mutex);
        addresses = std::move(found);
        known.notify_all();
    }

    std::mutex mutex;
    std::condition_variable known;
    std::optional<std::vector<Address>> addresses;
};

namespace {

std::vector<Address> addressesOf(Sockets& sockets, const std::string& host, std::int32_t port) {
    try {
        return sockets.resolve(host, port);
    } catch (...) {
        return {};  // as for a host that nobody knows
    }
}

}  // namespace

Resolution::Resolution(std::shared_ptr<Sockets> sockets, const std::string& host, std::int32_t port)
    : shared_(std::make_shared<Shared>()) {
    try {
        std::thread([shared = shared_, sockets = std::move(sockets), host, port] {
            shared->finish(addressesOf(*sockets, host, port));
        }).detach();
    } catch (const std::system_error&) {
        shared_->finish({});
    }
}

std::optional<std::vector<Address>> Resolution::answer(std::chrono::milliseconds longest) {
    std::unique_lock lock(shared_->mutex);
    shared_->known.wait_for(lock, longest, [this] { return shared_->addresses.has_value(); });
    return shared_->addresses;
}

}  // namespace velmora::network
