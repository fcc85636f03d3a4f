#include "console/caption_report.h"

#include <cstdint>

#include "base/text.h"
#include "console/json_text.h"
#include "console/output.h"
#include "shell/menus/menu_caption.h"

namespace velmora::console {

namespace {

PropertyValue number(std::size_t value) {
    return static_cast<std::int64_t>(value);
}

PropertyValue number(int value) {
    return std::int64_t{value};
}

void addItem(JsonFields& fields, const MenuCaption& item) {
    const std::size_t at = item.hotKeyPos;
    fields.emplace_back("Caption", item.text);
    fields.emplace_back("HotKeyPos", number(at));
    fields.emplace_back("HotKey", at == 0 ? std::string() : mid(item.text, at));
    fields.emplace_back("Icon", number(item.image));
    fields.emplace_back("HelpTip", item.tip);
    fields.emplace_back("Default", item.isDefault);
    if (item.ticked) fields.emplace_back("Ticked", *item.ticked);
    if (item.panel) fields.emplace_back("ID", number(*item.panel));
    fields.emplace_back("Raised", item.raised);
    fields.emplace_back("Separator", item.separates());
    fields.emplace_back("SubItem", item.subItem);
}

std::string backOf(const SideBar& bar) {
    if (bar.back == SideBar::Back::colour) return writeColour(bar.backColour);
    return bar.back == SideBar::Back::nothing ? "NONE" : "BACK";
}

std::string gradientOf(const SideBar& bar) {
    if (bar.gradient == SideBar::Gradient::none) return "";
    return bar.gradient == SideBar::Gradient::plain ? "Gradient" : "Gradient:Reverse";
}

void addSideBar(JsonFields& fields, const SideBar& bar) {
    const auto add = [&](const std::string& key, const PropertyValue& value) {
        fields.emplace_back("SideBar." + key, value);
    };
    fields.emplace_back("SideBar", bar.isText ? "TEXT" : std::to_string(bar.image));
    if (bar.panel) add("ID", number(*bar.panel));
    add("CAPTION", bar.caption);
    add("FONT", bar.font);
    add("FSIZE", number(bar.fontSize));
    add("MINFONTSIZE", number(bar.leastFontSize));
    add("FCOLOR", writeColour(bar.foreColour));
    add("BCOLOR", backOf(bar));
    if (bar.width) add("WIDTH", number(*bar.width));
    add("Bold", bar.bold);
    add("Underline", bar.underline);
    add("Italic", bar.italic);
    add("Gradient", gradientOf(bar));
    add("ALIGN", bar.align == SideBar::Align::top ? "Top" : "Bottom");
}

}  // namespace

Report captionReport(const std::string& caption) {
    const MenuCaption item = parseCaption(caption);
    JsonFields fields;
    addItem(fields, item);
    if (item.sideBar) addSideBar(fields, *item.sideBar);
    fields.emplace_back("Written", writeCaption(item));
    Report report;
    for (const auto& [name, value] : fields) {
        const std::string shown = plainValue(value);
        if (!shown.empty()) report.text += name + ": " + shown + std::string(lineEnd);
    }
    report.fields = Control::Table{std::move(fields)};
    return report;
}

}  // namespace velmora::console
