// Security that lets nobody but the program's user, and the system itself, at a file or folder.
#pragma once

#include <windows.h>

#include <vector>

namespace velmora::windows {

class PrivateSecurity {
  public:
    /// Reads who the user is; `failure` says why it could not be read.
    PrivateSecurity();
    PrivateSecurity(const PrivateSecurity&) = delete;
    PrivateSecurity& operator=(const PrivateSecurity&) = delete;

    /// The system's error code, 0 for success. The rest is for success only.
    DWORD failure() const { return failure_; }

    /// For what is to be made. Lives as long as this object.
    SECURITY_ATTRIBUTES* attributes() { return &attributes_; }
    /// Gives it to what is open, with the rights to read and to change its security. 0, or an error
    /// code: ERROR_INVALID_OWNER for what another user owns, ERROR_ACCESS_DENIED where others still
    /// get at it, as on filesystems without permissions.
    DWORD giveTo(HANDLE opened);

  private:
    DWORD readUser();
    DWORD makeList();
    DWORD makeDescriptor();
    bool mayHaveRights(PSID account);
    bool isOnlyTheirs(ACL* list);
    DWORD look(HANDLE opened, bool& isOnlyTheirsNow);

    std::vector<char> user_;  // TOKEN_USER
    std::vector<char> system_;
    std::vector<char> list_;
    SECURITY_DESCRIPTOR descriptor_{};
    SECURITY_ATTRIBUTES attributes_{};
    DWORD failure_;
};

}  // namespace velmora::windows
