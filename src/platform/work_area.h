// The part of the screen that the system's own bars leave free. The surface provides it, since it
// knows the screen its windows are on.
#pragma once

namespace velmora {

class WorkArea {
  public:
    virtual ~WorkArea() = default;
    /// Size in twips (15 a pixel).
    virtual int Width() = 0;
    virtual int Height() = 0;
};

}  // namespace velmora
