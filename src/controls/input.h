// Keys and mouse buttons as the program's own controls know them.
#pragma once

namespace tidvane::controls {

enum class Key { Up, Down, Left, Right, PageUp, PageDown, Home, End, Enter, Space, Shift, Ctrl, Alt };

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

// The keys that are held, added up.
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;

}  // namespace tidvane::controls
