#pragma once

namespace vexa::typed {

/// The characters that tell handleKey() which key was pressed.
inline constexpr char16_t enter = 0x03;
inline constexpr char16_t backspace = 0x08;
inline constexpr char16_t tab = 0x09;
inline constexpr char16_t carriageReturn = 0x0D;
inline constexpr char16_t forwardDelete = 0x7F;

} // namespace vexa::typed
