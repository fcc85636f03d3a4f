#include "alerts/file_list.h"

namespace velmora {

void FileList::prcAllLV(ListView& list, const std::string& strPath) {
    if (strPath.empty()) return;
    ListItem& row = list.Add(fso_.GetFileName(strPath));
    row.setTag(strPath);
}

}  // namespace velmora
