#include "monitor/minimum_space.h"

#include "base/convert.h"
#include "base/format_number.h"
#include "base/text.h"
#include "rows/watch_columns.h"

namespace velmora {

MinimumSpace::MinimumSpace(Form1& form1, const Regional& regional, Host& host)
    : form1_(form1), regional_(regional), host_(host) {
    for (OptionButton& option : form1_.OpDriv) {
        option.Click.connect([this, index = option.Index()] { OpDriv_Click(index); });
    }
    form1_.chkDrive.Click.connect([this] { chkDrive_Click(); });
    form1_.txtSpace.Change.connect([this] { txtSpace_Change(); });
    form1_.Slider1.Scroll.connect(
        [this] { form1_.txtSpace.setText(toText(form1_.Slider1.Value())); });
    form1_.UpDownSpace.UpClick.connect([this] { step(1); });
    form1_.UpDownSpace.DownClick.connect([this] { step(-1); });
}

void MinimumSpace::OpDriv_Click(int index) {
    form1_.Slider1.setVisible(index == 1);
    if (index == 0) {
        showTriggerUnit(form1_.ListView1, "(KB)");
        return;
    }
    const auto space = readNumber(form1_.txtSpace.Text(), regional_);
    if (space && *space > 100) {
        host_.MsgBox({.text = "Cannot set over 100%"});
        form1_.txtSpace.setText("10");
        showTriggerUnit(form1_.ListView1, "( %)");
    }
    form1_.Slider1.setValue(10);
}

void MinimumSpace::chkDrive_Click() {
    if (form1_.chkDrive.ticked()) {
        host_.MsgBox({.text =
                          "Set the Listed Path's Specified Drive Space by Double Clicking on the "
                          "Value shown in the List.",
                      .icon = BoxIcon::information});
        writeTriggers(form1_.ListView1, form1_.txtSpace.Text());
        form1_.txtSpace.setEnabled(false);
    } else {
        writeTriggers(form1_.ListView1, "");
        form1_.txtSpace.setEnabled(true);
    }
}

void MinimumSpace::txtSpace_Change() {
    if (!isNumeric(form1_.txtSpace.Text(), regional_)) {
        host_.MsgBox({.text = "Please input only numbers."});
        form1_.txtSpace.setText("1");
    }
    echoInGreaterUnits();
}

void MinimumSpace::echoInGreaterUnits() {
    const auto space = readNumber(form1_.txtSpace.Text(), regional_);
    const bool shown = space && form1_.OpDriv[0].Value();
    form1_.lblMB.setCaption(shown ? Format(*space / 1e3, "#0.0#", regional_) + " MB" : "");
    form1_.lblGB.setCaption(shown ? Format(*space / 1e6, "#0.0#", regional_) + " GB" : "");
}

// At 0 neither direction acts.
void MinimumSpace::step(double by) {
    TextBox& txtSpace = form1_.txtSpace;
    const auto space = readNumber(txtSpace.Text(), regional_);
    if (space && *space > 0) txtSpace.setText(toText(*space + by, regional_));
}

}  // namespace velmora
