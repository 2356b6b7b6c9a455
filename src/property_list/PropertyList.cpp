#include "property_list/PropertyList.h"

#include <algorithm>

namespace vexa {
namespace {

bool before(const PropertyList::Entry& entry, QStringView key) { return entry.key < key; }

} // namespace

PropertyList::Dictionary::Dictionary(std::vector<Entry> entries, Duplicates duplicates)
    : m_entries(std::move(entries)) {
    const auto byKey = [](const Entry& a, const Entry& b) { return a.key < b.key; };
    const auto notAscending = [](const Entry& a, const Entry& b) { return a.key >= b.key; };
    if (std::ranges::adjacent_find(m_entries, notAscending) == m_entries.end())
        return;

    if (duplicates == Duplicates::keepLast)
        std::ranges::reverse(m_entries);
    std::ranges::stable_sort(m_entries, byKey);
    const auto repeated = std::ranges::unique(m_entries, {}, &Entry::key);
    m_entries.erase(repeated.begin(), repeated.end());
}

const PropertyList* PropertyList::Dictionary::find(QStringView key) const {
    const auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), key, before);
    return entry != m_entries.end() && entry->key == key ? &entry->value : nullptr;
}

PropertyList* PropertyList::Dictionary::find(QStringView key) {
    return const_cast<PropertyList*>(std::as_const(*this).find(key));
}

void PropertyList::Dictionary::set(const QString& key, PropertyList value) {
    const auto entry =
        std::lower_bound(m_entries.begin(), m_entries.end(), QStringView(key), before);
    if (entry != m_entries.end() && entry->key == key)
        entry->value = std::move(value);
    else
        m_entries.insert(entry, {key, std::move(value)});
}

bool PropertyList::Dictionary::operator==(const Dictionary& other) const {
    return m_entries == other.m_entries;
}

bool PropertyList::operator==(const PropertyList& other) const {
    const auto* const a = as<double>();
    const auto* const b = other.as<double>();
    return a && b ? same(*a, *b) : m_value == other.m_value;
}

} // namespace vexa
