// The free space of the watched rows over time.
#pragma once

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/line_chart.h"
#include "controls/list_box.h"

namespace velmora {

class FrmHistory : public Form {
  public:
    FrmHistory() : Form("frmHistory", "Free Space History - Velmora") { setSize(9000, 6600); }

    ComboBox cboPath{*this, "cboPath"};  ///< the paths with measures
    Label lblEstimate{*this, "lblEstimate"};
    LineChart chtHistory{*this, "chtHistory"};
    CommandButton cmdExport{*this, "cmdExport", "&Export"};
    CommandButton cmdClose{*this, "cmdClose", "&Close"};
};

}  // namespace velmora
