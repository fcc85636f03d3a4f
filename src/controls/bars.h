// Status bar, tool bar and tab strip. Panels, buttons and tabs count from 1.
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

/// A row of tabs, of which one is selected. It shows no pages: a form does that on its click.
class TabStrip : public Control {
  public:
    TabStrip(Form& form, std::string name, std::vector<std::string> tabs);

    int TabCount() const { return static_cast<int>(tabs_.size()); }
    /// The caption; error 35600 for a tab that isn't there.
    const std::string& Tabs(int index) const;
    int SelectedItem() const { return selected_; }
    /// Selects a tab and clicks, whoever does it; error 35600 for a tab that isn't there.
    void select(int index);

    /// A tab was selected, perhaps the one that was.
    Event<> Click;

    std::string mainProperty() const override { return "SelectedItem"; }
    Properties properties() override;
    Properties partProperties(int index) override;
    std::string mainPartProperty() const override { return "Caption"; }
    void userClickPart(int index) override;

  private:
    std::vector<std::string> tabs_;
    int selected_ = 1;
};

}  // namespace velmora
