#include "console/json_text.h"

#include <nlohmann/json.hpp>

namespace velmora::console {

namespace {

using Json = nlohmann::ordered_json;

std::string dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json toJson(const PropertyValue& value) {
    return std::visit([](const auto& held) { return Json(held); }, value);
}

template <typename Value>
Json ofSubItems(const ListItem& row, const Value& value) {
    Json all = Json::array();
    for (int i = 1; i <= row.SubItemCount(); ++i) all.push_back(value(row.ListSubItems(i)));
    return all;
}

Json rowObject(const ListItem& row) {
    const Json subItems = ofSubItems(row, [](const ListSubItem& sub) { return sub.Text; });
    const Json subTags = ofSubItems(row, [](const ListSubItem& sub) { return sub.Tag(); });
    return {{"Text", row.Text()},         {"SubItems", subItems},     {"Checked", row.Checked()},
            {"Selected", row.Selected()}, {"Bold", row.Bold()},       {"Tag", row.Tag()},
            {"SubTags", subTags},         {"ReportIcon", iconOf(row)}};
}

}  // namespace

std::string jsonString(std::string_view text) {
    return dump(Json(text));
}

std::optional<std::string> readJsonString(std::string_view literal) {
    const Json read = Json::parse(literal, nullptr, false);
    if (!read.is_string()) return std::nullopt;
    return read.get<std::string>();
}

std::string jsonValue(const PropertyValue& value) {
    return dump(toJson(value));
}

std::string jsonObject(const JsonFields& fields) {
    Json object = Json::object();
    for (const auto& [name, value] : fields) object[name] = toJson(value);
    return dump(object);
}

const std::string& iconOf(const ListItem& row) {
    static const std::string none;
    for (int i = 1; i <= row.SubItemCount(); ++i) {
        const std::string& icon = row.ListSubItems(i).ReportIcon();
        if (!icon.empty()) return icon;
    }
    return none;
}

std::string jsonRow(const ListItem& row) {
    Json object = rowObject(row);
    object["SmallIcon"] = row.SmallIcon();
    object["SubKeys"] = ofSubItems(row, [](const ListSubItem& sub) { return sub.Key(); });
    object["SubIcons"] = ofSubItems(row, [](const ListSubItem& sub) { return sub.ReportIcon(); });
    return dump(object);
}

std::string jsonRows(const ListView& list) {
    Json rows = Json::array();
    for (int i = 1; i <= list.Count(); ++i) rows.push_back(rowObject(list.ListItems(i)));
    return dump(rows);
}

}  // namespace velmora::console
