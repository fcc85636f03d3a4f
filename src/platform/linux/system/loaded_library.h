// Shared libraries that few runs need. Loading them with the program would take longer than all
// else that it does at its start.
#pragma once

namespace velmora::linuxhost {

/// A library of the system that stays loaded.
class LoadedLibrary {
  public:
    /// The name as the linker keeps it: "libcurl.so.4".
    explicit LoadedLibrary(const char* name);

    /// Puts the address of a function there, null where the library isn't there or has no such
    /// function.
    template <typename Function>
    void find(const char* name, Function*& function) {
        function = reinterpret_cast<Function*>(address(name));
    }
    /// Whether the library is there and had every function that was looked for.
    bool isWhole() const { return isWhole_; }

  private:
    void* address(const char* name);

    void* library_;
    bool isWhole_;
};

}  // namespace velmora::linuxhost
