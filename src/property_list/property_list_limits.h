#pragma once

#include <QtGlobal>

/// Limits of the readers: anything larger does not count as a property list.
namespace vexa::property_list {

inline constexpr qsizetype maximumInput = qsizetype{256} << 20; ///< bytes in a file
inline constexpr int maximumDepth = 512; ///< nested values, including the outermost

} // namespace vexa::property_list
