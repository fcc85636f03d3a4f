// The component library on a thread, for as long as something there needs it.
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
