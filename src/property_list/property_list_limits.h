#pragma once

#include <QtGlobal>

/// What the readers of property lists take; anything beyond is no property list to them.
namespace vexa::property_list {

inline constexpr qsizetype maximumInput = qsizetype{256} << 20; ///< bytes of a file
inline constexpr int maximumDepth = 512; ///< values one in the other, the outermost counted

} // namespace vexa::property_list
