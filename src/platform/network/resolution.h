// The addresses of a host, looked up by a thread of its own.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/network/sockets.h"

namespace velmora::network {

/// A thread that still waits for a name server when this object goes is left to itself; nothing
/// that it uses goes with it.
class Resolution {
  public:
    /// Begins. Without a thread for it the answer is empty.
    Resolution(std::shared_ptr<Sockets> sockets, const std::string& host, std::int32_t port);

    /// The addresses once they are known, empty when there are none. Waits for them, at most so
    /// long.
    std::optional<std::vector<Address>> answer(std::chrono::milliseconds longest);

  private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

}  // namespace velmora::network
