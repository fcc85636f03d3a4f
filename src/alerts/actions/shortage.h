// What the actions of one short row share.
#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system_object.h"

namespace velmora {

struct Shortage {
    int row = 0;          ///< index of the row in ListView1
    std::string rowText;  ///< what the row watches; another text there is another row
    Drive& drive;
    std::int32_t lngMinSpace;  ///< the row's trigger in KB
    std::string strAlert;      ///< the running text; actions add to it and empty it
    std::string strStamp;      ///< date and time of the shortage
    std::string strNote;       ///< text of one result
};

}  // namespace velmora
