// The part of the screen that the system's own bars leave free. The surface provides it, since it
// knows the screen its windows are on.
#pragma once

namespace velmora {

/// A surface without a screen keeps this class: that of a small one.
class WorkArea {
  public:
    virtual ~WorkArea() = default;
    /// Size in twips (15 a pixel).
    virtual int Width() { return 1024 * 15; }
    virtual int Height() { return 768 * 15; }
};

}  // namespace velmora
