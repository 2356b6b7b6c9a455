#pragma once

#include <QLatin1String>

#include <string_view>

namespace vexa {

/// A name from a table of the field's terms, all of which are Latin-1.
inline QLatin1String latin1(std::string_view name) {
    return {name.data(), static_cast<qsizetype>(name.size())};
}

} // namespace vexa
