#pragma once

#include <QHash>
#include <QString>

#include <cstdint>
#include <vector>

namespace vexa {

/// Numbers for reels that have names: what a name ends with, if it ends with a number and no name
/// before it has the same, else the least number from 1 on that is free.
class ReelNumbers {
public:
    /// names: in the order of their claims; a name may come again.
    explicit ReelNumbers(const std::vector<QString>& names);

    /// The number of one of the names.
    std::uint64_t of(const QString& name) const { return m_numbers.value(name); }

private:
    QHash<QString, std::uint64_t> m_numbers;
};

} // namespace vexa
