#include "platform/windows/system/private_file.h"

#include <windows.h>

#include "platform/windows/system/private_security.h"
#include "platform/windows/system/unique_handle.h"
#include "platform/windows/system/whole_file.h"

namespace velmora::windows {

bool writePrivateFile(const std::wstring& path, std::string_view content) {
    PrivateSecurity security;
    if (security.failure() != ERROR_SUCCESS) return false;
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, security.attributes(),
                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.isOpen() && writeAll(file.get(), content) == ERROR_SUCCESS &&
           FlushFileBuffers(file.get());
}

}  // namespace velmora::windows
