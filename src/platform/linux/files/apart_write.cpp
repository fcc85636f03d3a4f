#include "platform/linux/files/apart_write.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/system/forked_child.h"
#include "platform/linux/system/write_all.h"

namespace velmora::linuxhost {

namespace {

// Only calls that a child of a program with several threads may make.
int writeAndCut(int file, std::string_view bytes, std::size_t size) {
    std::string_view rest = bytes;
    int failure = writeAll(file, rest);
    const std::size_t written = bytes.size() - rest.size();
    if (ftruncate(file, static_cast<off_t>(std::min(written, size))) != 0 && failure == 0)
        failure = errno;
    if (failure == 0 && fsync(file) != 0) failure = errno;
    return failure;
}

// What the child ended with: a failure as its status.
int failureOfChild(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return EIO;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : EIO;
}

}  // namespace

int writeApart(int file, std::string_view bytes, std::size_t size) {
    const pid_t child = forkChild(file, "velmora-write", [&] {
        // A limit on the size of files is a failure here, not the end.
        signal(SIGXFSZ, SIG_IGN);
        _exit(writeAndCut(forkedChildSocket, bytes, size));
    });
    return child < 0 ? writeAndCut(file, bytes, size) : failureOfChild(child);
}

}  // namespace velmora::linuxhost
