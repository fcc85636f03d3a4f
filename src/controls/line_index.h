// What the lines of a text end in, as numbers: tells at once of most texts that they occur nowhere
// in it, however long it has become. The text may only grow at its front.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace velmora {

/// The end of a line is what stands from its last slash to its line feed: of a report that begins
/// with a date nearly all of it. Lines without a slash, and the last one without a line feed, have
/// none.
class LineIndex {
  public:
    /// Takes a text in front of the present one. The border may lie in the middle of a line.
    void prepend(std::string_view text);
    /// Whether the text can occur. No is certain; yes may be wrong, and is the answer for every
    /// text of which nothing is known.
    bool mayContain(std::string_view text) const;
    /// Whether an index would know anything of the text: there is the end of a line in it.
    static bool knows(std::string_view text);

  private:
    /// Reads from the back to the front, so that what is put in front later is read on.
    class Reader {
      public:
        /// True when the character begins the end of a line, which is in `number` then.
        bool read(char character);
        std::uint32_t number() const { return static_cast<std::uint32_t>(sum_ >> 32); }

      private:
        std::uint64_t sum_ = 0;
        bool isInEnd_ = false;
    };

    void insert(std::uint32_t number);
    bool has(std::uint32_t number) const;
    std::size_t placeOf(std::uint32_t number) const;
    void grow();

    Reader reader_;  // stands at the front of the text
    // At each number's own place or behind it, 0 where there is none; at most half full.
    std::vector<std::uint32_t> places_;
    std::size_t used_ = 0;
};

}  // namespace velmora
