#include "qt/controls/chart_face.h"

namespace velmora::qt {

std::unique_ptr<ChartFace> makeFace(const ChartData& data, const Regional& regional) {
    if (data.isEmpty()) return makeEmptyFace();
    return data.isPie ? makePieFace(data, regional) : makeBarFace(data, regional);
}

}  // namespace velmora::qt
