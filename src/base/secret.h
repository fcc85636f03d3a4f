// A text that leaves nothing in memory.
#pragma once

#include <string>
#include <utility>

#include "base/wipe.h"

namespace velmora {

/// Wiped when it ends, when it is moved from and before it gets another value. Copies are secrets
/// of their own; what it is made from is the caller's to wipe.
class Secret {
  public:
    Secret() = default;
    // From a text without further words, as a password is given.
    Secret(const char* text) : text_(text) {}
    Secret(const std::string& text) : text_(text) {}
    Secret(const Secret&) = default;
    // A short text is copied by a move, so what is left behind is wiped.
    Secret(Secret&& other) noexcept : text_(std::move(other.text_)) { other.wipe(); }
    ~Secret() { wipe(); }

    Secret& operator=(const Secret& other) {
        if (this == &other) return *this;
        wipe();
        text_ = other.text_;
        return *this;
    }
    Secret& operator=(Secret&& other) noexcept {
        if (this == &other) return *this;
        wipe();
        text_ = std::move(other.text_);
        other.wipe();
        return *this;
    }

    const std::string& text() const { return text_; }
    bool empty() const { return text_.empty(); }
    bool operator==(const Secret& other) const { return text_ == other.text_; }
    /// Overwrites the text and empties it.
    void wipe() { velmora::wipe(text_); }

  private:
    std::string text_;
};

}  // namespace velmora
