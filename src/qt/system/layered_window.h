// Translucent windows, and windows that stay in front: each window system does them in its own way.
#pragma once

#include <QWidget>
#include <cstdint>
#include <optional>

namespace velmora::qt {

/// `alpha` from 0 to 255, opaque; pixels of the colour `key`, 0x00BBGGRR, are not shown at all.
void showLayered(QWidget* window, std::uint8_t alpha, std::optional<std::uint32_t> key);

/// Keeps the window in front of those of other programs, or no longer. Neither place nor size nor
/// visibility change.
void stayOnTop(QWidget* window, bool on);

}  // namespace velmora::qt
