// Looks for a reply code in what a server sends, packet by packet.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "base/text.h"

namespace velmora {

class CodeSearch {
  public:
    /// `code` has at least one character.
    explicit CodeSearch(std::string code) : code_(std::move(code)) {}

    /// Whether the code occurs, with this packet, anywhere in what came so far.
    bool isFoundWith(const std::string& packet) {
        tail_ += packet;
        if (contains(tail_, code_)) return true;
        if (tail_.size() >= code_.size()) tail_.erase(0, tail_.size() - code_.size() + 1);
        return false;
    }
    /// Bytes that are kept: only a beginning of the code can still matter, however much comes.
    std::size_t kept() const { return tail_.size(); }

  private:
    std::string code_;
    std::string tail_;
};

}  // namespace velmora
