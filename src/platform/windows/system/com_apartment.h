// The component library on the thread that opens the machine, for as long as something needs it.
#pragma once

namespace velmora::windows {

class ComApartment {
  public:
    /// Where somebody else has set it up in another way, that one is used.
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    bool isOurs_;
};

}  // namespace velmora::windows
