// A picture that the program draws: filled wedges, rectangles and texts at places in pixels of the
// design. It keeps what was drawn; a view paints it.
#pragma once

#include <string>
#include <vector>

#include "controls/buttons.h"
#include "controls/control.h"

namespace velmora {

/// Something drawn, in pixels of the design.
struct DrawnShape {
    enum class Kind { wedge, rectangle, text };
    Kind kind = Kind::text;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    /// Where a wedge's second side meets its ellipse. Its first side goes to the top; it covers
    /// what lies between them in the direction of a clock, all where both are the same.
    double endX = 0;
    double endY = 0;
    Colour colour = 0;      ///< of the filling, 0x00BBGGRR
    std::string text = {};  ///< its upper left corner is at left and top

    bool operator==(const DrawnShape&) const = default;
};

class DrawnPicture : public Control {
  public:
    using Control::Control;

    /// Empties the picture. Each painting begins with it.
    void Cls();
    /// The colour of the next fillings (a solid brush).
    void selectBrush(Colour colour) { brush_ = colour; }
    void Rectangle(double left, double top, double right, double bottom);
    /// A wedge of the ellipse in that box, from the top to the point (endX, endY).
    void Pie(double left, double top, double right, double bottom, double endX, double endY);
    void TextOut(double left, double top, std::string text);

    /// What is drawn in words, for those who don't see it: its two texts, and its parts as a table.
    void describe(std::string title, std::string second, Table parts);
    const std::string& Title() const { return title_; }
    const std::string& Second() const { return second_; }
    std::optional<Table> table() const override { return parts_; }

    const std::vector<DrawnShape>& shapes() const { return shapes_; }
    /// How often it was painted.
    int paintings() const { return paintings_; }

    std::string mainProperty() const override { return "Paintings"; }
    Properties properties() override;

  private:
    void add(DrawnShape shape);

    std::vector<DrawnShape> shapes_;
    std::string title_;
    std::string second_;
    Table parts_;
    Colour brush_ = 0;
    int paintings_ = 0;
};

}  // namespace velmora
