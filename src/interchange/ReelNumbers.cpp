#include "interchange/ReelNumbers.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace vexa {

namespace {

std::optional<std::uint64_t> numberAtEnd(const QString& name) {
    const auto isDigit = [](QChar letter) { return letter >= u'0' && letter <= u'9'; };
    const auto digits = std::find_if_not(name.rbegin(), name.rend(), isDigit) - name.rbegin();
    bool isNumber = false;
    const auto number = QStringView(name).last(digits).toULongLong(&isNumber);
    return isNumber ? std::optional<std::uint64_t>(number) : std::nullopt;
}

} // namespace

ReelNumbers::ReelNumbers(const std::vector<QString>& names) {
    std::unordered_set<std::uint64_t> taken;
    std::vector<QString> without;
    for (const auto& name : names) {
        if (m_numbers.contains(name))
            continue;
        const auto number = numberAtEnd(name);
        const bool isFree = number && taken.insert(*number).second;
        m_numbers.insert(name, isFree ? *number : 0);
        if (!isFree)
            without.push_back(name);
    }
    std::uint64_t number = 1;
    for (const auto& name : without) {
        while (!taken.insert(number).second)
            ++number;
        m_numbers.insert(name, number);
    }
}

} // namespace vexa
