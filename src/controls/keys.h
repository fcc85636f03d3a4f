// The characters of keys, as the event KeyPress reports them.
#pragma once

namespace velmora::key {

inline constexpr int enter = 13;

}  // namespace velmora::key
