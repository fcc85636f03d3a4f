// The order of many texts. They are compared eight bytes at a time, past what they have in common,
// so that a million texts that begin alike are put in order without reading each of them again and
// again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class TextOrder {
  public:
    /// Adds a text. They are numbered from 0.
    void add(std::string_view text);
    /// The numbers of the texts in their order, byte by byte, the smallest or with `descending` the
    /// greatest first. Equal ones come in the order in which they were added.
    std::vector<std::size_t> sorted(bool descending) const;

  private:
    // Texts that agree in their first bytes, `depth` of them.
    struct Entry {
        std::uint64_t head;  // eight bytes from there on, filled up with zeros
        std::size_t number;
    };
    struct Group {
        std::size_t begin;
        std::size_t end;
        std::size_t depth;
    };

    std::string_view text(std::size_t number) const;
    std::uint64_t headOf(std::size_t number, std::size_t depth) const;
    std::size_t commonSize(const std::vector<Entry>& entries, const Group& group) const;
    bool areAtEnd(const std::vector<Entry>& entries, const Group& group) const;
    bool arrange(std::vector<Entry>& entries, const Group& group, bool descending) const;

    std::string texts_;  // one behind the other
    std::vector<std::size_t> ends_;
};

}  // namespace velmora
