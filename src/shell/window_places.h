// Where the windows are and how large, from one run of the program to the next. All measures are
// twips.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "forms/forms.h"
#include "platform/user_state.h"

namespace velmora {

class WindowPlaces {
  public:
    /// Reads what is kept, and gives a window its place and size before it is shown first.
    WindowPlaces(Forms& forms, UserState& state);
    WindowPlaces(const WindowPlaces&) = delete;
    WindowPlaces& operator=(const WindowPlaces&) = delete;

    /// The start gives the main window its first size: after it, the window gets the kept one, its
    /// compact view and its state.
    void afterStart();
    /// Keeps what has changed since the last time. Minimised counts as normal.
    void keep();
    /// Those whose places are kept.
    const std::vector<Form*>& windows() const { return windows_; }

  private:
    struct Corner {
        int left = 0;
        int top = 0;
    };
    struct Place {
        int width = 0;  ///< of the normal state; 0 for a window that is as large as its content
        int height = 0;
        std::optional<Corner> corner = {};  ///< where the window system doesn't tell, none
        bool isMaximised = false;
        bool isCompact = false;
    };

    static std::vector<Form*> keptWindows(Forms& forms);
    static std::map<std::string, Place> placesIn(const std::string& text);
    std::string textOfPlaces() const;
    void give(Form& form);
    static void giveSize(Form& form, const Place& place);
    void note(const Form& form);

    Forms& forms_;
    UserState& state_;
    std::vector<Form*> windows_;
    std::map<std::string, Place> places_;  // by the names of the forms
    std::string kept_;
};

}  // namespace velmora
