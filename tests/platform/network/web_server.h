// A web server on the loopback address whose answers the test gives.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "loopback_server.h"

namespace velmora::network {

/// The text of an answer with that code; a page follows the headers.
inline std::string httpAnswer(const std::string& code, const std::string& page,
                              const std::string& headers = {}) {
    return "HTTP/1.1 " + code + "\r\nContent-Length: " + std::to_string(page.size()) +
           "\r\nConnection: close\r\n" + headers + "\r\n" + page;
}

class WebServer {
  public:
    /// Gives the whole answer for a path.
    using Pages = std::function<std::string(const std::string& path)>;

    explicit WebServer(Pages pages)
        : pages_(std::move(pages)), server_([this](Peer& peer) { serve(peer); }) {}

    std::string address(const std::string& path = "/") const {
        return "http://127.0.0.1:" + std::to_string(server_.port()) + path;
    }
    int connections() const { return server_.connections(); }

  private:
    void serve(Peer& peer) {
        const std::string request = peer.receiveUntil("\r\n\r\n");
        const auto begin = request.find(' ') + 1;
        peer.send(pages_(request.substr(begin, request.find(' ', begin) - begin)));
    }

    Pages pages_;
    LoopbackServer server_;
};

}  // namespace velmora::network
