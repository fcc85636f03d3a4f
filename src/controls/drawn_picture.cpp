#include "controls/drawn_picture.h"

namespace velmora {

void DrawnPicture::Cls() {
    shapes_.clear();
    ++paintings_;
    Changed();
}

void DrawnPicture::Rectangle(double left, double top, double right, double bottom) {
    add({.kind = DrawnShape::Kind::rectangle,
         .left = left,
         .top = top,
         .right = right,
         .bottom = bottom,
         .colour = brush_});
}

void DrawnPicture::Pie(double left, double top, double right, double bottom, double endX,
                       double endY) {
    add({.kind = DrawnShape::Kind::wedge,
         .left = left,
         .top = top,
         .right = right,
         .bottom = bottom,
         .endX = endX,
         .endY = endY,
         .colour = brush_});
}

void DrawnPicture::TextOut(double left, double top, std::string text) {
    add({.kind = DrawnShape::Kind::text, .left = left, .top = top, .text = std::move(text)});
}

void DrawnPicture::describe(std::string title, std::string second, Table parts) {
    title_ = std::move(title);
    second_ = std::move(second);
    parts_ = std::move(parts);
    Changed();
}

void DrawnPicture::add(DrawnShape shape) {
    shapes_.push_back(std::move(shape));
    Changed();
}

Properties DrawnPicture::properties() {
    Properties all = Control::properties();
    all.push_back({"Title", [this] { return PropertyValue{title_}; }, {}});
    all.push_back({"Second", [this] { return PropertyValue{second_}; }, {}});
    all.push_back({"Paintings", [this] { return PropertyValue{std::int64_t{paintings_}}; }, {}});
    return all;
}

}  // namespace velmora
