// The connection of a handler to an event: a handle that can end it, and one that ends it by
// itself. Both may outlive the event.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

namespace velmora {

/// The handlers of one event, as a connection sees them.
class HandlerList {
  public:
    virtual ~HandlerList() = default;
    virtual void disconnect(std::uint64_t handler) = 0;
    virtual bool connected(std::uint64_t handler) const = 0;
};

/// Names a connected handler. Copies name the same one; dropping them leaves it connected.
class Connection {
  public:
    /// Of no handler.
    Connection() = default;
    Connection(std::weak_ptr<HandlerList> handlers, std::uint64_t handler)
        : handlers_(std::move(handlers)), handler_(handler) {}

    /// The handler runs no more, even when its event is being emitted. What it holds is destroyed
    /// at once, or once the emission has ended. Does nothing when the handler or the event is gone.
    void disconnect() {
        // Taken out first: the handler that is destroyed may hold this very object.
        const std::weak_ptr<HandlerList> list = std::move(handlers_);
        if (const auto handlers = list.lock()) handlers->disconnect(handler_);
    }
    bool connected() const {
        const auto handlers = handlers_.lock();
        return handlers && handlers->connected(handler_);
    }

  private:
    std::weak_ptr<HandlerList> handlers_;
    std::uint64_t handler_ = 0;
};

/// Ends its connection when it is destroyed or assigned another one. A view keeps one for each
/// handler that refers to it, declared after all that the handlers use.
class [[nodiscard]] ScopedConnection {
  public:
    ScopedConnection() = default;
    // Implicit, so that the result of connect() can be kept as it is.
    ScopedConnection(Connection connection) : connection_(std::move(connection)) {}
    ~ScopedConnection() { connection_.disconnect(); }
    ScopedConnection(ScopedConnection&& other) noexcept : connection_(other.release()) {}
    ScopedConnection& operator=(ScopedConnection&& other) noexcept {
        Connection former = std::exchange(connection_, other.release());
        former.disconnect();
        return *this;
    }

    void disconnect() { connection_.disconnect(); }
    bool connected() const { return connection_.connected(); }
    /// Leaves the handler connected, and to the caller.
    Connection release() { return std::exchange(connection_, {}); }

  private:
    Connection connection_;
};

}  // namespace velmora
