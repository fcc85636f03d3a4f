// Windows that let the desktop show through, and windows that stay in front: done by each window
// system in its own way.
#pragma once

#include <QWidget>
#include <cstdint>
#include <optional>

namespace velmora::qt {

/// `alpha` 0 to 255 for opaque; places of the colour `key`, 0x00BBGGRR, are not shown at all.
void showLayered(QWidget* window, std::uint8_t alpha, std::optional<std::uint32_t> key);

/// Keeps the window in front of those of other programs, or no longer. Neither place nor size nor
/// visibility change.
void stayOnTop(QWidget* window, bool on);

}  // namespace velmora::qt
