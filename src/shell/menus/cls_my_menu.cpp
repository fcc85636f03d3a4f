#include "shell/menus/cls_my_menu.h"

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "shell/menus/hot_key.h"

namespace velmora {

namespace {

constexpr char between = '.';
constexpr const char* failed = "Sidebar failed";
constexpr const char* wrongKind = "Sidebar failed image is not a bitmap or icon type";
// Of a side bar with a text, at both sides of it together. Pixels.
constexpr int textMargins = 8;

/// The height of letters on a screen of 96 dots an inch, up to the next pixel.
int pixelsOf(int points) {
    return (points * 96 + 71) / 72;
}

int atMostInt(std::size_t value) {
    return static_cast<int>(std::min<std::size_t>(value, std::numeric_limits<int>::max()));
}

std::string withoutTrailingSpace(std::string text) {
    text.erase(text.find_last_not_of(" \t") + 1);
    return text;
}

}  // namespace

clsMyMenu::clsMyMenu(TextWidth textWidth) : textWidth_(std::move(textWidth)) {
    if (textWidth_) return;
    textWidth_ = [](std::string_view text) { return atMostInt(length(text)); };
}

const std::string& clsMyMenu::SetMenuID(const std::vector<std::string>& names) {
    if (names.empty()) throw RuntimeError(error::invalidCall);
    std::string identity;
    for (const std::string& name : names) {
        if (name.empty() || name.find(between) != name.npos) {
            throw RuntimeError(error::invalidCall);
        }
        if (!identity.empty()) identity += between;
        identity += name;
    }
    identity_ = std::move(identity);
    menus_.try_emplace(identity_);
    return identity_;
}

int clsMyMenu::PurgeObsoleteMenus(const std::function<bool(const std::string&)>& exists) {
    return static_cast<int>(std::erase_if(menus_, [&](const auto& menu) {
        return menu.first != childSystemMenu_ && !exists(menu.first);
    }));
}

const clsMyMenu::Items& clsMyMenu::items() const {
    static const Items none;
    const auto found = menus_.find(identity_);
    return found == menus_.end() ? none : found->second;
}

const clsMyMenu::Record& clsMyMenu::record(int id) const {
    static const Record none;
    const auto found = items().find(id);
    return found == items().end() ? none : found->second;
}

void clsMyMenu::setNumber(int id, int Record::*field, int value) {
    if (value < 0 || value > MenuCaption::mostNumber) {
        throw RuntimeError(error::invalidPropertyValue);
    }
    writableItems()[id].*field = value;
}

void clsMyMenu::setIcon(int id, int number) {
    setNumber(id, &Record::icon, number);
}

void clsMyMenu::setItemHeight(int id, int pixels) {
    setNumber(id, &Record::height, pixels);
}

void clsMyMenu::setItemWidth(int id, int pixels) {
    setNumber(id, &Record::width, pixels);
}

void clsMyMenu::setHelpTip(int id, std::string tip) {
    writableItems()[id].tip = std::move(tip);
}

void clsMyMenu::setHotKeyPos(int id, int position) {
    setNumber(id, &Record::hotKeyPos, position);
}

void clsMyMenu::setStatus(int id, std::uint32_t word) {
    writableItems()[id].status = word;
}

void clsMyMenu::setCaption(int id, std::string caption) {
    Record& item = writableItems()[id];
    item.hotKeyPos = atMostInt(hotKeyPosition(caption));
    item.caption = std::move(caption);
}

void clsMyMenu::setOriginalCaption(int id, std::string caption) {
    Record& item = writableItems()[id];
    MenuCaption parsed = parseCaption(caption);
    const auto setBit = [&](std::uint32_t bit, bool on) {
        item.status = on ? item.status | bit : item.status & ~bit;
    };
    setBit(menuState::isDefault, parsed.isDefault);
    if (parsed.ticked) setBit(menuState::ticked, *parsed.ticked);
    // An item that only brings the side bar of a panel belongs to that panel.
    const std::optional<int> barPanel = parsed.sideBar ? parsed.sideBar->panel : std::nullopt;
    item.panel = parsed.panel.value_or(barPanel.value_or(0));
    item.icon = parsed.image;
    item.tip = parsed.tip;
    item.caption = parsed.text;
    item.hotKeyPos = atMostInt(parsed.hotKeyPos);
    item.height = 0;
    item.width = 0;
    item.original = std::move(caption);
    item.parsed = std::move(parsed);
}

const ListImage* clsMyMenu::viewerImage(int number) const {
    return viewer_ == nullptr ? nullptr : viewer_->image(number);
}

int clsMyMenu::TotalIcons() const {
    return viewer_ == nullptr ? 0 : static_cast<int>(viewer_->ListImages.size());
}

int clsMyMenu::PanelIDcount() const {
    std::set<int> panels;
    for (const auto& [id, item] : items()) {
        panels.insert(item.panel);
        if (item.parsed.sideBar) panels.insert(item.sideBarPanel());
    }
    return static_cast<int>(panels.size());
}

void clsMyMenu::UpdatePanelID(int id, int panel) {
    setNumber(id, &Record::panel, panel);
}

/// Empty for a side bar that can be built.
std::string clsMyMenu::buildingFailure(const SideBar& bar) const {
    if (bar.isText) return bar.caption.empty() ? failed : "";
    const ListImage* image = viewerImage(bar.image);
    if (image == nullptr) return failed;
    return image->kind == ListImage::Kind::other ? wrongKind : "";
}

int clsMyMenu::widthOf(const SideBar& bar) const {
    if (bar.width) return *bar.width;
    if (bar.isText) return pixelsOf(bar.fontSize) + textMargins;
    return std::clamp(viewerImage(bar.image)->Width, 0, SideBar::mostWidth);
}

void clsMyMenu::addSideBar(PanelInformation& panel) const {
    for (const auto& [id, item] : items()) {
        const std::optional<SideBar>& bar = item.parsed.sideBar;
        if (!bar || item.sideBarPanel() != panel.ID) continue;
        const std::string failure = buildingFailure(*bar);
        if (panel.Message.empty()) panel.Message = failure;
        if (!failure.empty()) continue;
        panel.SideBarItem = id;
        panel.SideBarIsText = bar->isText;
        panel.SideBarWidth = widthOf(*bar);
        panel.sideBar = bar;
        return;
    }
}

PanelInformation clsMyMenu::GetPanelInformation(int panel) const {
    PanelInformation information{.ID = panel};
    addSideBar(information);
    std::size_t height = 0;
    int widest = 0;
    for (const auto& [id, item] : items()) {
        if (item.panel != panel) continue;
        height += static_cast<std::size_t>(item.height);
        widest = std::max(widest, item.width);
    }
    information.Height = atMostInt(height);
    information.Width = information.SideBarWidth + widest;
    return information;
}

int clsMyMenu::HotKeyEdge(int panel) const {
    int edge = 0;
    for (const auto& [id, item] : items()) {
        if (item.panel != panel || item.hotKeyPos == 0) continue;
        const std::string text = left(item.caption, static_cast<std::size_t>(item.hotKeyPos) - 1);
        edge = std::max(edge, textWidth_(withoutTrailingSpace(text)));
    }
    return edge;
}

}  // namespace velmora
