#pragma once

#include "property_list/Boxed.h"
#include "property_list/PropertyListKey.h"

#include <QByteArray>
#include <QString>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace vexa {

/// One value of a property list with its contents: boolean, integer, real, date, string, data,
/// array or dictionary. A value type: copies are deep, though strings and data share their text
/// until one changes. Moves are cheap; a moved-from value may only be assigned to or destroyed.
///
/// Copying, comparing and destroying recurse as deep as the value is nested. Readers nest at most
/// 512 values; code that builds values must stay within that too.
class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    class Dictionary;
    struct Entry;

    /// Which of several entries with the same key to keep.
    enum class Duplicates { keepFirst, keepLast };

    /// A point in time, in seconds since 2001-01-01 00:00:00 UTC.
    struct Date {
        double seconds = 0;

        bool operator==(const Date& other) const { return same(seconds, other.seconds); }
    };

    /// false
    PropertyList() = default;
    /// Booleans stay booleans. Other integers keep their value but not their type.
    template<std::integral T>
    explicit PropertyList(T value);
    explicit PropertyList(double value) : m_value(value) {}
    explicit PropertyList(Date value) : m_value(value) {}
    explicit PropertyList(QString value) : m_value(Boxed(std::move(value))) {}
    explicit PropertyList(QByteArray value) : m_value(Boxed(std::move(value))) {}
    explicit PropertyList(Array value) : m_value(Boxed(std::move(value))) {}
    explicit PropertyList(Dictionary value);

    /// The content if it is of exactly this kind, otherwise null. The kinds are bool, std::uint64_t
    /// (all integers from 0), std::int64_t (negative integers only), double, Date, QString,
    /// QByteArray, Array and Dictionary.
    template<typename T>
    const T* as() const {
        if constexpr (isBoxed<T>) {
            const auto* const box = std::get_if<Boxed<T>>(&m_value);
            return box ? &**box : nullptr;
        } else {
            return std::get_if<T>(&m_value);
        }
    }
    template<typename T>
    T* as() {
        return const_cast<T*>(std::as_const(*this).template as<T>());
    }

    /// Calls `visitor` with the content.
    template<typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit([&](const auto& held) { return visitor(unboxed(held)); }, m_value);
    }

    /// Same kind and, at every level, same content. NaN equals NaN, so every value equals its copy.
    bool operator==(const PropertyList& other) const;

private:
    template<typename T>
    static constexpr bool isBoxed = std::is_class_v<T> && !std::same_as<T, Date>;

    template<typename T>
    static const T& unboxed(const T& value) {
        return value;
    }
    template<typename T>
    static const T& unboxed(const Boxed<T>& box) {
        return *box;
    }

    static bool same(double a, double b) { return a == b || (a != a && b != b); }

    // Two words per value: larger content is boxed.
    std::variant<bool, std::uint64_t, std::int64_t, double, Date, Boxed<QString>, Boxed<QByteArray>,
                 Boxed<Array>, Boxed<Dictionary>>
        m_value;
};

struct PropertyList::Entry {
    PropertyListKey key;
    PropertyList value;

    bool operator==(const Entry&) const = default;
};

/// Entries in ascending order of their keys, by UTF-16 code unit; keys are unique.
class PropertyList::Dictionary {
public:
    Dictionary() = default;
    /// Accepts entries in any order.
    Dictionary(std::vector<Entry> entries, Duplicates duplicates);

    /// The value of a key, or null. Valid until the next set().
    const PropertyList* find(QStringView key) const;
    PropertyList* find(QStringView key);
    /// Adds the key or replaces its value.
    void set(const PropertyListKey& key, PropertyList value);

    std::size_t size() const { return m_entries.size(); }
    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }

    bool operator==(const Dictionary&) const = default;

private:
    std::vector<Entry> m_entries;
};

template<std::integral T>
PropertyList::PropertyList(T value) {
    if constexpr (std::same_as<T, bool>)
        m_value = value;
    else if (std::in_range<std::uint64_t>(value))
        m_value = static_cast<std::uint64_t>(value);
    else
        m_value = static_cast<std::int64_t>(value);
}

inline PropertyList::PropertyList(Dictionary value) : m_value(Boxed(std::move(value))) {}

} // namespace vexa
