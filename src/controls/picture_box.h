// A picture that the program draws into.
#pragma once

#include <string>

#include "controls/control.h"

namespace velmora {

class PictureBox : public Control {
  public:
    using Control::Control;

    /// Key of the image that was drawn last; empty for none.
    const std::string& Picture() const { return picture_; }
    void setPicture(std::string key) {
        if (picture_ == key) return;
        picture_ = std::move(key);
        Changed();
    }
    std::string mainProperty() const override { return "Picture"; }
    Properties properties() override {
        Properties all = Control::properties();
        all.push_back({"Picture", [this] { return PropertyValue{picture_}; }, {}});
        return all;
    }

  private:
    std::string picture_;
};

}  // namespace velmora
