// A pie with a legend, drawn in pixels.
#pragma once

#include <string>
#include <vector>

#include "base/regional.h"
#include "controls/drawn_picture.h"

namespace velmora {

class clsPie {
  public:
    struct Segment {
        double dblPercentage = 0;  ///< its value, in spite of the name
        Colour lngColour = 0;
        std::string strName;

        bool operator==(const Segment&) const = default;
    };

    clsPie() { Clear(); }

    void AddSegment(double dblPercentage, const std::string& strName, Colour lngColour);
    /// Leaves an array of one empty element and a count of -1.
    void Clear();
    /// Draws the pie, the legend if it is wanted, and two texts. False when it didn't run to its
    /// end, as with values whose sum is 0; what was drawn until then stays.
    bool DrawPie(DrawnPicture& picture, bool blnShowLegend, const std::string& strGraphTitle,
                 const std::string& strSecond, const Regional& regional) const;

    /// The index of the last segment, -1 for none.
    int count() const { return count_; }
    const std::vector<Segment>& segments() const { return segments_; }

  private:
    double total() const;
    Control::Table table() const;

    std::vector<Segment> segments_;
    int count_ = -1;
};

/// The picture of big numbers, in groups of three digits.
inline constexpr const char* wholeNumberPicture = "###,###,###,###,###,###,###";

}  // namespace velmora
