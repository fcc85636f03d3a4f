// Runs a piece of clean-up when a scope ends, also by an error.
#pragma once

#include <utility>

namespace velmora {

/// The clean-up runs once, at the end of the scope, unless it was dismissed. What it throws is
/// dropped: the error that ended the scope, if any, is the one that counts.
template <typename CleanUp>
class [[nodiscard]] ScopeGuard {
  public:
    explicit ScopeGuard(CleanUp cleanUp) : cleanUp_(std::move(cleanUp)) {}
    ~ScopeGuard() {
        if (!armed_) return;
        try {
            cleanUp_();
        } catch (...) {  // NOLINT(bugprone-empty-catch)
        }
    }
    ScopeGuard(const ScopeGuard&) = delete;
    ScopeGuard& operator=(const ScopeGuard&) = delete;

    /// The clean-up isn't needed any more.
    void dismiss() { armed_ = false; }

  private:
    CleanUp cleanUp_;
    bool armed_ = true;
};

}  // namespace velmora
