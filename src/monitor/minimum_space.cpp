#include "monitor/minimum_space.h"

#include "base/convert.h"
#include "base/format_number.h"
#include "base/scope_guard.h"
#include "base/text.h"
#include "rows/watch_columns.h"

namespace velmora {

MinimumSpaceFields MinimumSpaceFields::of(Form1& form1) {
    return {.space = form1.txtSpace,
            .OpDriv = form1.OpDriv,
            .chkDrive = form1.chkDrive,
            .Slider1 = form1.Slider1,
            .UpDownSpace = form1.UpDownSpace,
            .lblMB = form1.lblMB,
            .lblGB = form1.lblGB,
            .list = form1.ListView1};
}

void MinimumSpace::connect() {
    disconnect();
    const auto keep = [this](const Connection& connection) {
        connections_.emplace_back(connection);
    };
    for (OptionButton& option : fields_.OpDriv) {
        keep(option.Click.connect([this, index = option.Index()] { OpDriv_Click(index); }));
    }
    keep(fields_.chkDrive.Click.connect([this] { chkDrive_Click(); }));
    keep(fields_.space.Change.connect([this] { txtSpace_Change(); }));
    keep(fields_.Slider1.Scroll.connect(
        [this] { fields_.space.setText(toText(fields_.Slider1.Value())); }));
    keep(fields_.UpDownSpace.UpClick.connect([this] { step(1); }));
    keep(fields_.UpDownSpace.DownClick.connect([this] { step(-1); }));
}

void MinimumSpace::OpDriv_Click(int index) {
    fields_.Slider1.setVisible(index == 1);
    if (index == 0) {
        showTriggerUnit(fields_.list, "(KB)");
        return;
    }
    const auto space = readNumber(fields_.space.Text(), regional_);
    if (space && *space > 100) {
        tell({.text = "Cannot set over 100%"});
        fields_.space.setText("10");
        showTriggerUnit(fields_.list, "( %)");
    }
    fields_.Slider1.setValue(10);
}

void MinimumSpace::chkDrive_Click() {
    if (fields_.chkDrive.ticked()) {
        tell({.text = "Set the Listed Path's Specified Drive Space by Double Clicking on the "
                      "Value shown in the List.",
              .icon = BoxIcon::information});
        writeTriggers(fields_.list, fields_.space.Text());
        fields_.space.setEnabled(false);
    } else {
        writeTriggers(fields_.list, "");
        fields_.space.setEnabled(true);
    }
}

void MinimumSpace::txtSpace_Change() {
    if (!isNumeric(fields_.space.Text(), regional_)) {
        host_.MsgBox({.text = "Please input only numbers."});
        fields_.space.setText("1");
    }
    echoInGreaterUnits();
}

void MinimumSpace::echoInGreaterUnits() {
    const auto space = readNumber(fields_.space.Text(), regional_);
    const bool shown = space && fields_.OpDriv[0].Value();
    fields_.lblMB.setCaption(shown ? Format(*space / 1e3, "#0.0#", regional_) + " MB" : "");
    fields_.lblGB.setCaption(shown ? Format(*space / 1e6, "#0.0#", regional_) + " GB" : "");
}

// At 0 neither direction acts.
void MinimumSpace::step(double by) {
    const auto space = readNumber(fields_.space.Text(), regional_);
    if (space && *space > 0) fields_.space.setText(toText(*space + by, regional_));
}

void MinimumSpace::tell(const Box& box) {
    if (!isTold_) host_.MsgBox(box);
}

void MinimumSpace::take(const Setting& setting) {
    const ScopeGuard tellAgain([this] { isTold_ = false; });
    isTold_ = true;
    OptionButton& unit = fields_.OpDriv[static_cast<std::size_t>(setting.unit)];
    if (!unit.Value()) unit.choose();
    fields_.space.setText(setting.space);
    fields_.Slider1.setValue(setting.slider);
}

void MinimumSpace::takeIndividual(int value) {
    const ScopeGuard tellAgain([this] { isTold_ = false; });
    isTold_ = true;
    fields_.chkDrive.setValue(value);
}

}  // namespace velmora
