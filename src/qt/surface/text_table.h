// A table of texts with a heading for each column.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace velmora::qt {

struct TextTable {
    QStringList headings;
    std::vector<QStringList> rows;  ///< each with a text for each heading
};

}  // namespace velmora::qt
