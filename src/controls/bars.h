// Status bar and tool bar. Panels and buttons count from 1.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace velmora {

class StatusBar : public Control {
  public:
    struct Panel {
        std::string Text;
        int Picture = 0;  ///< number of an image of ImageList1, 0 for none
    };

    StatusBar(Form& form, std::string name, int panels);

    int PanelCount() const { return static_cast<int>(panels_.size()); }
    /// Error 35600 for a panel that isn't there.
    const Panel& Panels(int index) const;
    /// The text may come in two pieces, neither of them part of the present text; a check writes
    /// several for each row.
    void setPanelText(int index, std::string_view text, std::string_view rest = {});
    void setPanelPicture(int index, int image);

    /// The text or picture of that panel has changed.
    Notice<int> PanelChanged;

    Properties partProperties(int index) override;

  private:
    Panel& at(int index);
    std::vector<Panel> panels_;
};

class ToolBar : public Control {
  public:
    /// An entry of the menu that a button holds.
    struct ButtonMenu {
        std::string Key;
        std::string Text;
    };
    struct Button {
        std::string Caption;
        std::string ToolTipText;
        int Image = 0;  ///< number of an image of ImageList1, 0 for none
        std::vector<ButtonMenu> ButtonMenus = {};
    };

    ToolBar(Form& form, std::string name, std::vector<Button> buttons);

    int ButtonCount() const { return static_cast<int>(buttons_.size()); }
    /// Error 35600 for a button that isn't there.
    const Button& Buttons(int index) const;
    void setButtonCaption(int index, std::string caption);
    void setButtonImage(int index, int image);

    /// The button of that number was clicked.
    Event<int> ButtonClick;
    Notice<int> ButtonChanged;

    Properties partProperties(int index) override;
    std::string mainPartProperty() const override { return "Caption"; }
    void userClickPart(int index) override;

  private:
    Button& at(int index);
    std::vector<Button> buttons_;
};

}  // namespace velmora
