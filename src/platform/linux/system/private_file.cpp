#include "platform/linux/system/private_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"

namespace velmora::linuxhost {

bool writePrivateFile(int folder, const std::string& name, std::string_view content) {
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC;
    UniqueFd file(openat(folder, name.c_str(), flags, S_IRUSR | S_IWUSR));
    return file.isOpen() && writeAll(file.get(), content) == 0 && fdatasync(file.get()) == 0 &&
           file.close() == 0;
}

}  // namespace velmora::linuxhost
