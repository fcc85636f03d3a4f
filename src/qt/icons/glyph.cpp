#include "qt/icons/glyph.h"

#include <map>

#include "qt/icons/glyph_engine.h"

namespace velmora::qt {

QIcon glyphIcon(Glyph glyph) {
    static std::map<Glyph, QIcon> icons;
    const auto known = icons.find(glyph);
    if (known != icons.end()) return known->second;
    // The icon owns its engine.
    return icons.emplace(glyph, QIcon(new GlyphEngine(glyph))).first->second;
}

}  // namespace velmora::qt
