#pragma once

#include <QString>

#include <cstdint>

namespace vexa {

/// "1 item", "12 items".
inline QString counted(std::uint64_t number, const QString& thing) {
    return QStringLiteral("%1 %2%3").arg(number).arg(thing,
                                                     number == 1 ? QString() : QStringLiteral("s"));
}

} // namespace vexa
