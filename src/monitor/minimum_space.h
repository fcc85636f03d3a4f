// The global setting of the minimum space: its text, unit, slider and spinner, and the switch to a
// value for each row. The same rules hold in the main window and in the setup wizard.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/regional.h"
#include "forms/form1.h"
#include "platform/host.h"

namespace velmora {

/// The fields of the setting in one form.
struct MinimumSpaceFields {
    TextBox& space;
    std::array<OptionButton, 2>& OpDriv;
    CheckBox& chkDrive;
    Slider& Slider1;
    UpDown& UpDownSpace;
    Label& lblMB;
    Label& lblGB;
    ListView& list;  ///< the rows with values of their own

    static MinimumSpaceFields of(Form1& form1);
};

class MinimumSpace {
  public:
    /// A setting that was made under these rules elsewhere.
    struct Setting {
        int unit = 0;  ///< 0 for KB, 1 for percent
        std::string space;
        int slider = 0;  ///< 0 to 100
    };

    /// The rules hold once they are connected.
    MinimumSpace(const MinimumSpaceFields& fields, const Regional& regional, Host& host)
        : fields_(fields), regional_(regional), host_(host) {}
    /// Connected already.
    MinimumSpace(Form1& form1, const Regional& regional, Host& host)
        : MinimumSpace(MinimumSpaceFields::of(form1), regional, host) {
        connect();
    }
    MinimumSpace(const MinimumSpace&) = delete;
    MinimumSpace& operator=(const MinimumSpace&) = delete;

    void connect();
    /// The fields take any value then, and nothing is told.
    void disconnect() { connections_.clear(); }

    /// 0 for KB, 1 for percent.
    void OpDriv_Click(int index);
    /// The unit first, then the number, as a user sets them. What the user was told where the
    /// setting was made isn't told again.
    void take(const Setting& setting);
    /// The switch to a value for each row, likewise.
    void takeIndividual(int value);

  private:
    void chkDrive_Click();
    void txtSpace_Change();
    void echoInGreaterUnits();
    void step(double by);
    void tell(const Box& box);

    MinimumSpaceFields fields_;
    const Regional& regional_;
    Host& host_;
    std::vector<ScopedConnection> connections_;
    bool isTold_ = false;  // what the boxes would say
};

}  // namespace velmora
