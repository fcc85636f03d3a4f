// Some entries of a listing as they travel between processes, in one datagram.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/linux/drives/folder_reader.h"

namespace velmora::linuxhost {

class ListingBlock {
  public:
    /// Whether there was room for the entry. Safe in a forked child, as is all of this.
    bool add(const ListedEntry& entry) {
        const std::size_t length = std::strlen(entry.name) + 1;
        if (used_ + sizeof entry + length > sizeof bytes_) return false;
        std::memcpy(bytes_ + used_, &entry, sizeof entry);
        std::memcpy(bytes_ + used_ + sizeof entry, entry.name, length);
        used_ += static_cast<std::uint32_t>(sizeof entry + length);
        return true;
    }
    /// Why nothing follows after its entries, as the reader gives it; 0 when more may follow.
    void setEnd(int failure) { end_ = failure; }
    int end() const { return end_; }

    /// Takes the next entry out, from `at` on, which moves behind it. False when there is none.
    bool take(std::size_t& at, ListedEntry& entry) const {
        if (at >= used_) return false;
        std::memcpy(&entry, bytes_ + at, sizeof entry);
        entry.name = bytes_ + at + sizeof entry;
        at += sizeof entry + std::strlen(entry.name) + 1;
        return true;
    }
    void clear() {
        end_ = 0;
        used_ = 0;
    }
    /// The bytes of the datagram.
    std::size_t size() const { return offsetof(ListingBlock, bytes_) + used_; }
    /// Whether so many bytes that came are a whole block.
    bool isWhole(std::size_t received) const {
        return received >= offsetof(ListingBlock, bytes_) && received == size();
    }

  private:
    std::int32_t end_ = 0;
    std::uint32_t used_ = 0;
    char bytes_[48 * 1024];
};

}  // namespace velmora::linuxhost
