#include "persist/compression.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <random>

#include "base/errors.h"
#include "fake/fake_machine.h"

namespace velmora {
namespace {

constexpr int streamError = -2;

Bytes noise(std::size_t size) {
    std::mt19937 random(size);
    Bytes bytes(size);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// What zlib makes of a stream again; `size` bytes are expected.
std::string unpacked(const std::string& stream, std::size_t size) {
    std::string plain(size + 1, '\0');
    auto room = static_cast<uLongf>(plain.size());
    const int code = uncompress(reinterpret_cast<Bytef*>(plain.data()), &room,
                                reinterpret_cast<const Bytef*>(stream.data()),
                                static_cast<uLong>(stream.size()));
    EXPECT_EQ(code, Z_OK);
    plain.resize(room);
    return plain;
}

std::string asText(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

struct CompressionTest : testing::Test {
    /// Packs the source; the error's number, 0 for none.
    int pack() {
        return errorOf([this] { code = packer.CompressFile(source, target, level); });
    }
    std::string& packed() { return machine.files.at(target); }

    const std::string source = R"(C:\Program Files\Velmora\log.dat)";
    const std::string target = R"(C:\Program Files\Velmora\log.zip)";
    fake::FakeMachine machine;
    Compression packer{machine.platform().files};
    std::int16_t level = 1;
    int code = 99;
};

TEST_F(CompressionTest, BytesBecomeAZlibStream) {
    Bytes bytes(10000, 'a');
    EXPECT_EQ(packer.CompressByteArray(bytes, 9), 0);
    EXPECT_LT(bytes.size(), 100u);
    EXPECT_EQ(bytes.front(), 0x78);  // deflate with a window of 32 KB
    EXPECT_EQ(unpacked(asText(bytes), 10000), std::string(10000, 'a'));
}

TEST_F(CompressionTest, TheSizesOfTheLastCallAreKept) {
    EXPECT_EQ(packer.OriginalSize, 0);
    EXPECT_EQ(packer.CompressedSize, 0);
    Bytes bytes(10000, 'a');
    packer.CompressByteArray(bytes, 9);
    EXPECT_EQ(packer.OriginalSize, 10000);
    EXPECT_EQ(packer.CompressedSize, static_cast<std::int32_t>(bytes.size()));
    Bytes one{7};
    packer.CompressByteArray(one, 9);
    EXPECT_EQ(packer.OriginalSize, 1);
    EXPECT_EQ(packer.CompressedSize, static_cast<std::int32_t>(one.size()));
}

TEST_F(CompressionTest, TheLevelIsTheOneOfTheCaller) {
    Bytes stored(5000, 'a');
    packer.CompressByteArray(stored, 0);
    EXPECT_GT(stored.size(), 5000u);
    Bytes best(5000, 'a');
    packer.CompressByteArray(best, 9);
    EXPECT_LT(best.size(), 100u);
}

TEST_F(CompressionTest, BytesThatCantBePackedFitIntoTheBufferAllTheSame) {
    for (const std::size_t size : {1u, 2u, 12u, 100u, 255u, 4096u, 65535u, 65536u, 1000000u}) {
        Bytes bytes = noise(size);
        const std::string plain = asText(bytes);
        ASSERT_EQ(packer.CompressByteArray(bytes, 9), 0) << size;
        EXPECT_LE(static_cast<double>(bytes.size()), 1.01 * static_cast<double>(size) + 12.5);
        EXPECT_EQ(unpacked(asText(bytes), size), plain) << size;
    }
}

TEST_F(CompressionTest, ALevelThatIsNoneGivesZlibsCodeAndNoBytes) {
    Bytes bytes{1, 2, 3};
    EXPECT_EQ(packer.CompressByteArray(bytes, 77), streamError);
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(packer.OriginalSize, 3);
    EXPECT_EQ(packer.CompressedSize, 0);
}

TEST_F(CompressionTest, TheFileIsItsSizeLittleEndianAndTheStream) {
    const std::string plain = std::string(0x01020304, 'v');
    machine.files[source] = plain;
    EXPECT_EQ(pack(), 0);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(packed().substr(0, 4), "\x04\x03\x02\x01");
    EXPECT_EQ(unpacked(packed().substr(4), plain.size()), plain);
    EXPECT_EQ(packer.OriginalSize, 0x01020304);
    EXPECT_EQ(packer.CompressedSize, static_cast<std::int32_t>(packed().size() - 4));
}

TEST_F(CompressionTest, AFileOfOneByteIsPackedToo) {
    machine.files[source] = "x";
    EXPECT_EQ(pack(), 0);
    EXPECT_EQ(packed().substr(0, 4), std::string("\x01\0\0\0", 4));
    EXPECT_EQ(unpacked(packed().substr(4), 1), "x");
}

TEST_F(CompressionTest, BytesOfAllValuesComeBack) {
    machine.files[source] = asText(noise(70000));
    EXPECT_EQ(pack(), 0);
    EXPECT_EQ(unpacked(packed().substr(4), 70000), machine.files[source]);
}

TEST_F(CompressionTest, PackingAFileSetsTheLevelTo9) {
    machine.files[source] = "text";
    level = 0;
    EXPECT_EQ(pack(), 0);
    EXPECT_EQ(level, 9);
}

TEST_F(CompressionTest, TheOldTargetIsRemovedAndReplaced) {
    machine.files[source] = "new";
    machine.files[target] = std::string(5000, 'o');
    EXPECT_EQ(pack(), 0);
    EXPECT_LT(packed().size(), 30u);
    EXPECT_EQ(
        machine.log.calls(),
        (std::vector<std::string>{"readAll " + source, "remove " + target, "writeOver " + target}));
    EXPECT_EQ(machine.files[source], "new");
}

TEST_F(CompressionTest, AFailureToRemoveTheTargetIsPassedOver) {
    machine.files[source] = "new";
    machine.files[target] = "old";
    machine.log.failCall(2, error::permissionDenied);
    EXPECT_EQ(pack(), 0);
    EXPECT_EQ(unpacked(packed().substr(4), 3), "new");
}

TEST_F(CompressionTest, AMissingSourceIsAnErrorAndLeavesTheTarget) {
    machine.files[target] = "old";
    EXPECT_EQ(pack(), error::fileNotFound);
    EXPECT_EQ(packed(), "old");
    EXPECT_EQ(level, 9);
}

TEST_F(CompressionTest, AnEmptySourceIsAnErrorAndLeavesTheTarget) {
    machine.files[source] = "";
    machine.files[target] = "old";
    EXPECT_EQ(pack(), error::subscriptOutOfRange);
    EXPECT_EQ(packed(), "old");
    EXPECT_EQ(code, 99);
}

TEST_F(CompressionTest, ReadingAndWritingErrorsReachTheCaller) {
    machine.files[source] = "text";
    for (const int n : {1, 3}) {
        machine.log.failCall(n, error::deviceIo);
        EXPECT_EQ(pack(), error::deviceIo) << n;
        machine.log.failNone();
    }
    machine.diskFull = true;
    EXPECT_EQ(pack(), error::diskFull);
}

}  // namespace
}  // namespace velmora
