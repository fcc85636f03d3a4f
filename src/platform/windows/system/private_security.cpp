#include "platform/windows/system/private_security.h"

#include <aclapi.h>

#include <memory>

#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

namespace {

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

PSID userOf(std::vector<char>& tokenUser) {
    return reinterpret_cast<TOKEN_USER*>(tokenUser.data())->User.Sid;
}

ACL* listIn(std::vector<char>& memory) {
    return reinterpret_cast<ACL*>(memory.data());
}

}  // namespace

PrivateSecurity::PrivateSecurity() : failure_(readUser()) {
    if (failure_ == ERROR_SUCCESS) failure_ = makeList();
    if (failure_ == ERROR_SUCCESS) failure_ = makeDescriptor();
}

DWORD PrivateSecurity::readUser() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return GetLastError();
    const UniqueHandle token(opened);
    DWORD size = 0;
    GetTokenInformation(token.get(), TokenUser, nullptr, 0, &size);
    user_.resize(size);
    if (!GetTokenInformation(token.get(), TokenUser, user_.data(), size, &size))
        return GetLastError();
    DWORD room = SECURITY_MAX_SID_SIZE;
    system_.resize(room);
    return resultOf(CreateWellKnownSid(WinLocalSystemSid, nullptr, system_.data(), &room));
}

// What lies in a folder gets the same.
DWORD PrivateSecurity::makeList() {
    constexpr DWORD inherited = CONTAINER_INHERIT_ACE | OBJECT_INHERIT_ACE;
    list_.resize(sizeof(ACL) + 2 * (sizeof(ACCESS_ALLOWED_ACE) + SECURITY_MAX_SID_SIZE));
    ACL* const list = listIn(list_);
    const bool isMade =
        InitializeAcl(list, static_cast<DWORD>(list_.size()), ACL_REVISION) &&
        AddAccessAllowedAceEx(list, ACL_REVISION, inherited, FILE_ALL_ACCESS, userOf(user_)) &&
        AddAccessAllowedAceEx(list, ACL_REVISION, inherited, FILE_ALL_ACCESS, system_.data());
    return resultOf(isMade);
}

DWORD PrivateSecurity::makeDescriptor() {
    attributes_ = {sizeof attributes_, &descriptor_, FALSE};
    const bool isMade =
        InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) &&
        SetSecurityDescriptorOwner(&descriptor_, userOf(user_), FALSE) &&
        SetSecurityDescriptorDacl(&descriptor_, TRUE, listIn(list_), FALSE) &&
        SetSecurityDescriptorControl(&descriptor_, SE_DACL_PROTECTED, SE_DACL_PROTECTED);
    return resultOf(isMade);
}

bool PrivateSecurity::mayHaveRights(PSID account) {
    return EqualSid(account, userOf(user_)) || EqualSid(account, system_.data());
}

// No list at all means that everybody has every right.
bool PrivateSecurity::isOnlyTheirs(ACL* list) {
    if (list == nullptr) return false;
    for (DWORD i = 0; i < list->AceCount; ++i) {
        void* entry = nullptr;
        if (!GetAce(list, i, &entry)) return false;
        const auto type = static_cast<ACE_HEADER*>(entry)->AceType;
        if (type == ACCESS_DENIED_ACE_TYPE) continue;
        if (type != ACCESS_ALLOWED_ACE_TYPE) return false;
        if (!mayHaveRights(&static_cast<ACCESS_ALLOWED_ACE*>(entry)->SidStart)) return false;
    }
    return true;
}

DWORD PrivateSecurity::look(HANDLE opened, bool& isOnlyTheirsNow) {
    PSID owner = nullptr;
    ACL* list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    constexpr SECURITY_INFORMATION asked = OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    const DWORD failure = GetSecurityInfo(opened, SE_FILE_OBJECT, asked, &owner, nullptr, &list,
                                          nullptr, &descriptor);
    if (failure != ERROR_SUCCESS) return failure;
    const std::unique_ptr<void, FreeLocal> freed(descriptor);
    if (owner == nullptr || !EqualSid(owner, userOf(user_))) return ERROR_INVALID_OWNER;
    isOnlyTheirsNow = isOnlyTheirs(list);
    return ERROR_SUCCESS;
}

DWORD PrivateSecurity::giveTo(HANDLE opened) {
    bool isPrivate = false;
    if (const DWORD failure = look(opened, isPrivate); failure != ERROR_SUCCESS || isPrivate)
        return failure;
    // SetSecurityInfo would add what the folder above passes on, under Wine also to a protected
    // list.
    constexpr SECURITY_INFORMATION list =
        DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION;
    if (!SetKernelObjectSecurity(opened, list, &descriptor_)) return GetLastError();
    if (const DWORD unseen = look(opened, isPrivate); unseen != ERROR_SUCCESS) return unseen;
    return isPrivate ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

}  // namespace velmora::windows
