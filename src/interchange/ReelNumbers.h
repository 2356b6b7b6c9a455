#pragma once

#include <QHash>
#include <QString>

#include <cstdint>
#include <vector>

namespace vexa {

/// Numbers for named reels. A name that ends with a number gets that, unless an earlier name has
/// it. Other names get the lowest free number from 1.
class ReelNumbers {
public:
    /// names: in order of precedence; names may repeat.
    explicit ReelNumbers(const std::vector<QString>& names);

    /// The number of one of the given names.
    std::uint64_t of(const QString& name) const { return m_numbers.value(name); }

private:
    QHash<QString, std::uint64_t> m_numbers;
};

} // namespace vexa
