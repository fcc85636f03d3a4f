// A form: the controls of one window, found by name. Measures are twips (15 a pixel).
#pragma once

#include <string>
#include <vector>

#include "controls/event.h"
#include "controls/property.h"

namespace velmora {

class Control;

enum class WindowState { normal, minimised, maximised };

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
    /// The first showing loads the form; a Hide in the handler of Load keeps it hidden.
    void setVisible(bool visible);
    /// Shows the form in front of the others, unless its loading keeps it hidden.
    void Show();
    void Hide() { setVisible(false); }
    /// Hides it; the next showing loads it anew. To be called by the handler of Unload.
    void unloadNow();
    int Left() const { return left_; }
    int Top() const { return top_; }
    /// Gives it a place on the screen: the program's own, or the one that the user has chosen.
    void moveTo(int left, int top);
    /// Whether it has a place; without one its view finds it.
    bool isPlaced() const { return placed_; }
    int Height() const { return height_; }
    int Width() const { return width_; }
    /// Fires Resize when the user or the program changes the size. The size of the normal state is
    /// kept while the form is minimised or maximised, and comes back with it.
    void setSize(int width, int height);
    /// The size of the normal state; 0 before it had one.
    int NormalHeight() const { return normalHeight_; }
    int NormalWidth() const { return normalWidth_; }
    WindowState State() const { return state_; }
    void setState(WindowState state);

    /// Once, before the form becomes visible for the first time.
    Event<> Load;
    Event<> Resize;
    /// The form has become visible; the form has been hidden.
    Event<> Shown;
    Event<> Hidden;
    /// The pointer's place in twips, or what an icon of the notification area reports by it.
    Event<float> MouseMove;
    /// The user closes the window; without a handler it hides.
    Event<> Unload;
    /// The user closes the window by its frame.
    void userClose();

    /// Something that a view shows has changed.
    Notice<> Changed;
    /// The form was shown, or shown again: its window is to come in front of the others.
    Event<> Raised;

    /// The control of that name, by its index in a control array or -1 outside one; letter case
    /// doesn't matter. Null when there is none.
    Control* find(const std::string& name, int index = -1) const;
    /// All controls in the order of creation.
    const std::vector<Control*>& controls() const { return controls_; }
    Properties properties();

  private:
    friend class Control;
    void add(Control& control) { controls_.push_back(&control); }

    std::string name_;
    std::string caption_;
    bool visible_ = false;
    bool loaded_ = false;
    bool hiddenWhileLoading_ = false;
    bool placed_ = false;
    int left_ = 0;
    int top_ = 0;
    int width_ = 0;
    int height_ = 0;
    int normalWidth_ = 0;
    int normalHeight_ = 0;
    WindowState state_ = WindowState::normal;
    std::vector<Control*> controls_;
};

}  // namespace velmora
