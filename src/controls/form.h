// A form: a window's worth of controls, found by name. Measures are twips (15 a pixel).
#pragma once

#include <string>
#include <vector>

#include "controls/event.h"
#include "controls/property.h"

namespace velmora {

class Control;

class Form {
  public:
    explicit Form(std::string name, std::string caption = {});
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void setCaption(std::string caption);
    bool Visible() const { return visible_; }
    void setVisible(bool visible);
    void Show() { setVisible(true); }
    void Hide() { setVisible(false); }
    int Height() const { return height_; }
    int Width() const { return width_; }
    void setSize(int width, int height);

    /// Something that a view shows has changed.
    Notice<> Changed;

    /// The control of that name, by its index in a control array or -1 outside one; letter case
    /// doesn't matter. Null when there is none.
    Control* find(const std::string& name, int index = -1) const;
    /// All controls in the order of their making.
    const std::vector<Control*>& controls() const { return controls_; }
    Properties properties();

  private:
    friend class Control;
    void add(Control& control) { controls_.push_back(&control); }

    std::string name_;
    std::string caption_;
    bool visible_ = false;
    int width_ = 0;
    int height_ = 0;
    std::vector<Control*> controls_;
};

}  // namespace velmora
