#include "monitor/minimum_space.h"

#include "base/convert.h"
#include "base/format_number.h"
#include "base/text.h"
#include "rows/watch_columns.h"

namespace velmora {

MinimumSpace::MinimumSpace(Forms& forms, Platform& platform, Host& host)
    : forms_(forms), platform_(platform), host_(host) {
    Form1& form1 = forms_.form1;
    for (OptionButton& option : form1.OpDriv) {
        option.Click.connect([this, index = option.Index()] { OpDriv_Click(index); });
    }
    form1.chkDrive.Click.connect([this] { chkDrive_Click(); });
    form1.txtSpace.Change.connect([this] { txtSpace_Change(); });
    form1.Slider1.Scroll.connect(
        [&form1] { form1.txtSpace.setText(toText(form1.Slider1.Value())); });
    form1.UpDownSpace.UpClick.connect([this] { step(1); });
    form1.UpDownSpace.DownClick.connect([this] { step(-1); });
}

void MinimumSpace::OpDriv_Click(int index) {
    Form1& form1 = forms_.form1;
    form1.Slider1.setVisible(index == 1);
    if (index == 0) {
        showTriggerUnit(form1.ListView1, "(KB)");
        return;
    }
    const auto space = readNumber(form1.txtSpace.Text(), platform_.regional);
    if (space && *space > 100) {
        host_.MsgBox({.text = "Cannot set over 100%"});
        form1.txtSpace.setText("10");
        showTriggerUnit(form1.ListView1, "( %)");
    }
    form1.Slider1.setValue(10);
}

void MinimumSpace::chkDrive_Click() {
    Form1& form1 = forms_.form1;
    if (form1.chkDrive.ticked()) {
        host_.MsgBox({.text =
                          "Set the Listed Path's Specified Drive Space by Double Clicking on the "
                          "Value shown in the List.",
                      .icon = BoxIcon::information});
        writeTriggers(form1.ListView1, form1.txtSpace.Text());
        form1.txtSpace.setEnabled(false);
    } else {
        writeTriggers(form1.ListView1, "");
        form1.txtSpace.setEnabled(true);
    }
}

void MinimumSpace::txtSpace_Change() {
    Form1& form1 = forms_.form1;
    if (!isNumeric(form1.txtSpace.Text(), platform_.regional)) {
        host_.MsgBox({.text = "Please input only numbers."});
        form1.txtSpace.setText("1");
    }
    echoInGreaterUnits();
}

void MinimumSpace::echoInGreaterUnits() {
    Form1& form1 = forms_.form1;
    const Regional& regional = platform_.regional;
    const auto space = readNumber(form1.txtSpace.Text(), regional);
    const bool shown = space && form1.OpDriv[0].Value();
    form1.lblMB.setCaption(shown ? Format(*space / 1e3, "#0.0#", regional) + " MB" : "");
    form1.lblGB.setCaption(shown ? Format(*space / 1e6, "#0.0#", regional) + " GB" : "");
}

// At 0 neither direction acts.
void MinimumSpace::step(double by) {
    TextBox& txtSpace = forms_.form1.txtSpace;
    const auto space = readNumber(txtSpace.Text(), platform_.regional);
    if (space && *space > 0) txtSpace.setText(toText(*space + by, platform_.regional));
}

}  // namespace velmora
