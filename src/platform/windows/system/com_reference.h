// References to components that are given back with their owner.
#pragma once

#include <windows.h>
// After the one above, which they need.
#include <unknwn.h>

#include <utility>

namespace velmora::windows {

/// A reference to a component, or none.
template <typename Interface>
class ComReference {
  public:
    ComReference() = default;
    /// Takes over a reference that the caller has, or null.
    explicit ComReference(Interface* owned) : pointer_(owned) {}
    ~ComReference() { reset(); }
    ComReference(ComReference&& other) noexcept
        : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComReference& operator=(ComReference&& other) noexcept {
        if (this != &other) {
            reset();
            pointer_ = std::exchange(other.pointer_, nullptr);
        }
        return *this;
    }

    explicit operator bool() const { return pointer_ != nullptr; }
    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    /// Where a call puts a reference that it makes.
    Interface** place() {
        reset();
        return &pointer_;
    }
    /// The same for a call that is told the interface by its number.
    void** untypedPlace() { return reinterpret_cast<void**>(place()); }
    /// Another interface of the same component; none when it has no such interface.
    template <typename Other>
    ComReference<Other> as() const {
        ComReference<Other> other;
        if (pointer_) pointer_->QueryInterface(__uuidof(Other), other.untypedPlace());
        return other;
    }

  private:
    void reset() {
        if (auto* released = std::exchange(pointer_, nullptr)) released->Release();
    }

    Interface* pointer_ = nullptr;
};

}  // namespace velmora::windows
