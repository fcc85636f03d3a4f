// The component library on a thread, for as long as something there needs it.
#pragma once

namespace velmora::windows {

/// Which threads may call the components that are made on a thread.
enum class ApartmentKind {
    ownThread,    ///< that one alone, which handles window messages
    manyThreads,  ///< every thread of this kind
};

class ComApartment {
  public:
    /// Where somebody else has set it up in another way, that one is used.
    explicit ComApartment(ApartmentKind kind = ApartmentKind::ownThread);
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    bool isOurs_;
};

}  // namespace velmora::windows
