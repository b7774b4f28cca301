#ifndef SONAVIA_VIEWER_POINTERREACH_H
#define SONAVIA_VIEWER_POINTERREACH_H

/// How far (pixels) from a line the pointer may be to drag it.
namespace PointerReach {
inline constexpr double pixels = 4.0;
} // namespace PointerReach

#endif
