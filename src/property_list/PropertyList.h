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

/// One value of a property list with all that it holds: boolean, integer, real, date, string,
/// data, array or dictionary. A plain value: copies are deep (strings and data share their text
/// until one is changed), moves are cheap, and a value moved from may only be assigned to or
/// destroyed.
///
/// Copying, comparing and destroying go as deep as the value does. Readers make nothing deeper
/// than 512 values, one in the other; whoever builds values by hand keeps to that as well.
class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    class Dictionary;
    struct Entry;

    /// Which of several entries with the same key stays.
    enum class Duplicates { keepFirst, keepLast };

    /// A moment, in seconds since 2001-01-01 00:00:00 UTC.
    struct Date {
        double seconds = 0;

        bool operator==(const Date& other) const { return same(seconds, other.seconds); }
    };

    /// false
    PropertyList() = default;
    /// Booleans stay booleans. Other integers are kept by their value, whatever their type.
    template<std::integral T>
    explicit PropertyList(T value);
    explicit PropertyList(double value) : m_value(value) {}
    explicit PropertyList(Date value) : m_value(value) {}
    explicit PropertyList(QString value) : m_value(Boxed(std::move(value))) {}
    explicit PropertyList(QByteArray value) : m_value(Boxed(std::move(value))) {}
    explicit PropertyList(Array value) : m_value(Boxed(std::move(value))) {}
    explicit PropertyList(Dictionary value);

    /// What the value holds if it is of exactly this kind, else null. The kinds are bool,
    /// std::uint64_t (every integer from 0 on), std::int64_t (negative integers only), double,
    /// Date, QString, QByteArray, Array and Dictionary.
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

    /// Calls `visitor` with what the value holds.
    template<typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit([&](const auto& held) { return visitor(unboxed(held)); }, m_value);
    }

    /// Equal in kind and, all the way down, in content. A NaN equals a NaN, so that every value
    /// equals its copy.
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

    // Two words a value: all that is larger has a box of its own.
    std::variant<bool, std::uint64_t, std::int64_t, double, Date, Boxed<QString>, Boxed<QByteArray>,
                 Boxed<Array>, Boxed<Dictionary>>
        m_value;
};

struct PropertyList::Entry {
    PropertyListKey key;
    PropertyList value;

    bool operator==(const Entry&) const = default;
};

/// Entries in ascending order of their keys, compared by UTF-16 code unit; no key twice.
class PropertyList::Dictionary {
public:
    Dictionary() = default;
    /// Takes entries in any order.
    Dictionary(std::vector<Entry> entries, Duplicates duplicates);

    /// The value of a key, null if there is none. Valid until the next set().
    const PropertyList* find(QStringView key) const;
    PropertyList* find(QStringView key);
    /// Replaces the value of the key or adds it.
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
