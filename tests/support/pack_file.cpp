// Packs a file of this machine: pack_file <source> <target>. For a test that reads the result with
// another zlib.
#include <cstdio>
#include <fstream>
#include <iterator>

#include "base/runtime_error.h"
#include "persist/compression.h"

namespace {

class HostFiles final : public velmora::TextFiles {
  public:
    void appendLine(const std::string&, std::string_view) override {}
    std::string readAll(const std::string& path) override {
        std::ifstream stream(path, std::ios::binary);
        if (!stream) throw velmora::RuntimeError(velmora::error::fileNotFound);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    void writeOver(const std::string& path, std::string_view content,
                   velmora::Overwriting) override {
        std::ofstream stream(path, std::ios::binary);
        stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    }
    double FileLen(const std::string&) override {
        throw velmora::RuntimeError(velmora::error::fileNotFound);
    }
    void remove(const std::string& path) override {
        if (std::remove(path.c_str()) != 0)
            throw velmora::RuntimeError(velmora::error::fileNotFound);
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <source> <target>\n", argv[0]);
        return 2;
    }
    HostFiles files;
    velmora::Compression packer(files);
    std::int16_t level = 0;
    try {
        return packer.CompressFile(argv[1], argv[2], level) == 0 ? 0 : 1;
    } catch (const velmora::RuntimeError& failure) {
        std::fprintf(stderr, "error %d: %s\n", failure.number(), failure.what());
        return 3;
    }
}
