#pragma once

#include <QColor>

namespace vexa {

// The edges of buttons and displays on the window's light ground.

inline QColor restingEdge() { return {0xb4, 0xb9, 0xbc}; }
/// Of the control with the focus.
inline QColor focusEdge() { return {0x2f, 0x80, 0xd0}; }

} // namespace vexa
