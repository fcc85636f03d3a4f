// The buffer of a standard stream: what can't be written is dropped, so that the stream can go on
// once there is room again.
#pragma once

#include <cstddef>
#include <functional>
#include <streambuf>
#include <string>
#include <string_view>

namespace velmora {

class DroppingBuffer final : public std::streambuf {
  public:
    /// Writes as much as possible of the bytes and gives how many; fewer with `errno` set.
    using Write = std::function<std::size_t(std::string_view bytes)>;

    explicit DroppingBuffer(Write write) : write_(std::move(write)) {}
    ~DroppingBuffer() override;

    /// Whether the last failure was that nobody reads any more.
    bool isReaderGone() const { return isReaderGone_; }

  protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override;

  private:
    bool writeAll();

    Write write_;
    std::string waiting_;
    bool isLineOpen_ = false;  // the last byte that was written ends no line
    bool hasDropped_ = false;  // since then something was dropped
    bool isReaderGone_ = false;
};

}  // namespace velmora
