#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {

namespace {

std::string textOf(const PropertyValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    return std::get<bool>(value) ? "true" : "false";
}

std::string textsOf(Properties properties) {
    std::string all;
    for (const Property& each : properties) all += each.name + "=" + textOf(each.get()) + "\n";
    return all;
}

std::string contentOfRow(const ListItem& row) {
    std::string all = row.Text() + "|" + row.Tag() + "|" + row.SmallIcon();
    for (const bool flag : {row.Checked(), row.Selected(), row.Bold()}) all += flag ? "|y" : "|n";
    for (int i = 1; i <= row.SubItemCount(); ++i) {
        const ListSubItem& sub = row.ListSubItems(i);
        all += "|" + sub.Text + "," + sub.Tag() + "," + sub.Key() + "," + sub.ReportIcon() +
               (sub.Bold() ? ",y" : ",n");
    }
    return all + "\n";
}

}  // namespace

std::string contentOf(Control& control) {
    std::string all = control.Name() + " " + std::to_string(control.Index()) + "\n" +
                      textsOf(control.properties());
    if (const auto* list = dynamic_cast<ListView*>(&control)) {
        for (int i = 1; i <= list->ColumnCount(); ++i) all += list->ColumnHeaders(i).Text + "\n";
        for (int i = 1; i <= list->Count(); ++i) all += contentOfRow(list->ListItems(i));
    } else if (const auto* ticks = dynamic_cast<ListBox*>(&control)) {
        for (const int index : WizardRig::ticksOf(*ticks)) all += std::to_string(index) + "\n";
    } else if (const auto* box = dynamic_cast<ComboBox*>(&control)) {
        for (const std::string& entry : WizardRig::entriesOf(*box)) all += entry + "\n";
    } else if (const auto* text = dynamic_cast<TextBox*>(&control)) {
        all += text->Text() + "\n";  // of a masked one too
    }
    return all;
}

std::string contentBesidesWizard(Forms& forms) {
    std::string all;
    for (Form* form : forms.all()) {
        if (form == &forms.frmWizard) continue;
        all += form->Name() + "\n" + textsOf(form->properties());
        for (Control* control : form->controls()) all += contentOf(*control);
    }
    return all;
}

}  // namespace velmora::tests
