// The components that a thread owns, by number, so that other threads can name them without holding
// them.
#pragma once

#include <windows.h>
// After the one above, which they need.
#include <unknwn.h>

#include <iterator>
#include <map>
#include <utility>

#include "platform/windows/system/com_reference.h"

namespace velmora::windows {

/// Of a component.
using ComponentId = int;
inline constexpr ComponentId noComponent = 0;

class Components {
  public:
    Components() = default;
    /// The last one goes first: it may depend on those before it.
    ~Components() {
        while (!owned_.empty()) owned_.erase(std::prev(owned_.end()));
    }
    Components(const Components&) = delete;
    Components& operator=(const Components&) = delete;

    template <typename Interface>
    ComponentId add(ComReference<Interface> component) {
        owned_.emplace(++last_, component.template as<IUnknown>());
        return last_;
    }
    /// No reference when there is no such component, or it has no such interface.
    template <typename Interface>
    ComReference<Interface> get(ComponentId id) const {
        const auto found = owned_.find(id);
        if (found == owned_.end()) return {};
        return found->second.template as<Interface>();
    }
    void remove(ComponentId id) { owned_.erase(id); }

  private:
    std::map<ComponentId, ComReference<IUnknown>> owned_;
    ComponentId last_ = noComponent;
};

}  // namespace velmora::windows
