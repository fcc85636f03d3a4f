#include "app/streams.h"

#include <cerrno>
#include <cstdio>
#include <iostream>

#include "app/dropping_buffer.h"

namespace velmora {

namespace {

std::size_t writeTo(std::FILE* file, std::string_view bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        std::clearerr(file);
        errno = 0;
        written += std::fwrite(bytes.data() + written, 1, bytes.size() - written, file);
        if (std::ferror(file) != 0 && errno != EINTR) break;
    }
    return written;
}

// They live as long as the streams, which are flushed when everything else is gone.
DroppingBuffer* makeBuffer(std::FILE* file) {
    std::setvbuf(file, nullptr, _IONBF, 0);
    return new DroppingBuffer([file](std::string_view bytes) { return writeTo(file, bytes); });
}

DroppingBuffer& outputBuffer() {
    static DroppingBuffer* const buffer = makeBuffer(stdout);
    return *buffer;
}

}  // namespace

void prepareStreams() {
    prepareSystemStreams();
    std::ios::sync_with_stdio(false);
    std::cout.rdbuf(&outputBuffer());
    std::cerr.rdbuf(makeBuffer(stderr));
}

bool isReaderGone() {
    return outputBuffer().isReaderGone();
}

}  // namespace velmora
