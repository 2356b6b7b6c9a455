#include "property_list/PropertyList.h"

#include <algorithm>
#include <functional>

namespace vexa {
namespace {

const QString& keyOf(const PropertyList::Entry& entry) { return entry.key; }

} // namespace

PropertyList::Dictionary::Dictionary(std::vector<Entry> entries, Duplicates duplicates)
    : m_entries(std::move(entries)) {
    const auto notAscending = std::ranges::adjacent_find(m_entries, std::greater_equal(), keyOf);
    if (notAscending == m_entries.end())
        return;

    if (duplicates == Duplicates::keepLast)
        std::ranges::reverse(m_entries);
    std::ranges::stable_sort(m_entries, {}, keyOf);
    const auto sameKey = [](const Entry& a, const Entry& b) { return a.key == b.key; };
    m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), sameKey), m_entries.end());
}

const PropertyList* PropertyList::Dictionary::find(QStringView key) const {
    const auto entry = std::ranges::lower_bound(m_entries, key, std::less(), keyOf);
    return entry != m_entries.end() && keyOf(*entry) == key ? &entry->value : nullptr;
}

PropertyList* PropertyList::Dictionary::find(QStringView key) {
    return const_cast<PropertyList*>(std::as_const(*this).find(key));
}

void PropertyList::Dictionary::set(const PropertyListKey& key, PropertyList value) {
    const QString& text = key;
    const auto entry = std::ranges::lower_bound(m_entries, text, {}, keyOf);
    if (entry != m_entries.end() && entry->key == key)
        entry->value = std::move(value);
    else
        m_entries.insert(entry, {key, std::move(value)});
}

bool PropertyList::operator==(const PropertyList& other) const {
    const auto* const a = as<double>();
    const auto* const b = other.as<double>();
    return a && b ? same(*a, *b) : m_value == other.m_value;
}

} // namespace vexa
