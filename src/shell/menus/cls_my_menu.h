// Menus whose items somebody else draws: one record for each item with what its caption asks for
// and how large it is, and the figures that a drawing needs. It draws nothing and shows nothing.
//
// A menu is known by its identity, such as "Form1.mnuFunc.mnuF", and an item of the menu by an
// identifier, any number. Items of one menu that are drawn together are a panel; they stand beside
// each other in the order of their numbers, and each may have a side bar.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/menus/image_list.h"
#include "shell/menus/menu_caption.h"

namespace velmora {

/// Bits of an item's state word, those of the system's menus.
namespace menuState {
inline constexpr std::uint32_t grayed = 0x0003;
inline constexpr std::uint32_t ticked = 0x0008;
inline constexpr std::uint32_t selected = 0x0080;
inline constexpr std::uint32_t isDefault = 0x1000;
}  // namespace menuState

/// A panel: its size in pixels and its side bar. Without a side bar the last five are as they are
/// here, but for the message if one could not be built.
struct PanelInformation {
    int ID = 0;
    int Width = 0;                        ///< the side bar and the widest item
    int Height = 0;                       ///< all items
    std::optional<int> SideBarItem = {};  ///< the item whose caption asks for it
    bool SideBarIsText = false;
    int SideBarWidth = 0;
    std::optional<SideBar> sideBar = {};
    std::string Message = {};
};

class clsMyMenu {
  public:
    /// The width of a text as it will be drawn.
    using TextWidth = std::function<int(std::string_view text)>;

    /// Without a function texts are as wide as they have characters.
    explicit clsMyMenu(TextWidth textWidth = {});
    clsMyMenu(const clsMyMenu&) = delete;
    clsMyMenu& operator=(const clsMyMenu&) = delete;

    // Menus.

    /// Everything that follows is about the menu of these names, from the outermost: a window, its
    /// menus, a sub-menu. Before that it is about a menu without identity. Returns the identity,
    /// the names with "." between them. Error 5 when there are none, or one is empty or contains
    /// ".".
    const std::string& SetMenuID(const std::vector<std::string>& names);
    /// The number of menus that are known.
    int MenuIDcount() const { return static_cast<int>(menus_.size()); }
    /// Forgets the menus that don't exist any more, and returns how many. The one below is kept.
    int PurgeObsoleteMenus(const std::function<bool(const std::string& identity)>& exists);
    /// The identity of the system menu of a window inside another: it comes and goes with the size
    /// of that window, and its records outlast it. Empty for none.
    const std::string& GetSetMDIchildSysMenu() const { return childSystemMenu_; }
    void GetSetMDIchildSysMenu(std::string identity) { childSystemMenu_ = std::move(identity); }

    // Items. Reading one without a record gives empty values, writing to it makes a record. Error
    // 380 for a number below 0 or above MenuCaption::mostNumber.

    int MenuItemCount() const { return static_cast<int>(items().size()); }
    /// The number of its picture in the image list, from 1; 0 for none.
    int Icon(int id) const { return record(id).icon; }
    void setIcon(int id, int number);
    /// Pixels; 0 until somebody measures it.
    int ItemHeight(int id) const { return record(id).height; }
    void setItemHeight(int id, int pixels);
    int ItemWidth(int id) const { return record(id).width; }
    void setItemWidth(int id, int pixels);
    const std::string& HelpTip(int id) const { return record(id).tip; }
    void setHelpTip(int id, std::string tip);
    /// In characters of the caption, from 1; 0 without a hot key.
    int HotKeyPos(int id) const { return record(id).hotKeyPos; }
    void setHotKeyPos(int id, int position);
    /// Bits of `menuState`, and others that the caller has.
    std::uint32_t Status(int id) const { return record(id).status; }
    void setStatus(int id, std::uint32_t word);
    /// As it is drawn. Setting it looks for its hot key.
    const std::string& Caption(int id) const { return record(id).caption; }
    void setCaption(int id, std::string caption);
    /// With its mark-up. Setting it parses it and sets all the others by it: the size to 0, since
    /// the item is to be measured again, and of the state word the default bit, and the tick if the
    /// mark-up names one.
    const std::string& OriginalCaption(int id) const { return record(id).original; }
    void setOriginalCaption(int id, std::string caption);
    /// What the mark-up says, with what has no property: a raised look, a sub-item, a side bar.
    const MenuCaption& ParsedCaption(int id) const { return record(id).parsed; }

    // Pictures.

    /// The image list for the pictures of all items; null for none. It must outlive this.
    const ImageList* SetGetImageViewer() const { return viewer_; }
    void SetGetImageViewer(const ImageList* viewer) { viewer_ = viewer; }
    /// The number of its ListImages.
    int TotalIcons() const;
    /// The picture of an item, null where it has none or the list doesn't have it.
    const ListImage* GetIconData(int id) const { return viewerImage(Icon(id)); }

    // Panels. The number is that of "|ID:" in the captions, 0 without it.

    /// The number of different panels of the menu.
    int PanelIDcount() const;
    int GetPanelID(int id) const { return record(id).panel; }
    /// Moves the item to a panel; a side bar that names no panel goes with it.
    void UpdatePanelID(int id, int panel);
    /// Of several items that ask for a side bar beside the panel, that with the lowest identifier
    /// gets it. One that can't be built leaves a message; the panel goes without.
    PanelInformation GetPanelInformation(int panel = 0) const;
    int PanelWidth(int panel = 0) const { return GetPanelInformation(panel).Width; }
    int PanelHeight(int panel = 0) const { return GetPanelInformation(panel).Height; }
    bool SideBarIsText(int panel = 0) const { return GetPanelInformation(panel).SideBarIsText; }
    std::optional<int> SideBarItem(int panel = 0) const {
        return GetPanelInformation(panel).SideBarItem;
    }
    int SideBarWidth(int panel = 0) const { return GetPanelInformation(panel).SideBarWidth; }
    /// Where the hot keys of a panel may begin so that they stand below each other: the width of
    /// the widest text in front of one, without the tab or the blanks between them; 0 without hot
    /// keys.
    int HotKeyEdge(int panel = 0) const;

  private:
    struct Record {
        MenuCaption parsed = {};
        std::string original = {};
        std::string caption = {};
        std::string tip = {};
        int hotKeyPos = 0;
        int icon = 0;
        int height = 0;
        int width = 0;
        int panel = 0;
        std::uint32_t status = 0;

        int sideBarPanel() const { return parsed.sideBar->panel.value_or(panel); }
    };
    using Items = std::map<int, Record>;

    const Items& items() const;
    Items& writableItems() { return menus_[identity_]; }
    const Record& record(int id) const;
    void setNumber(int id, int Record::*field, int value);
    const ListImage* viewerImage(int number) const;
    std::string buildingFailure(const SideBar& bar) const;
    int widthOf(const SideBar& bar) const;
    void addSideBar(PanelInformation& panel) const;

    std::map<std::string, Items> menus_;
    std::string identity_;
    std::string childSystemMenu_;
    const ImageList* viewer_ = nullptr;
    TextWidth textWidth_;
};

}  // namespace velmora
