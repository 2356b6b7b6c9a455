#pragma once

#include <QExplicitlySharedDataPointer>
#include <QSharedData>
#include <QString>

namespace vexa {

/// A dictionary key: a string that its copies share, the size of a pointer. The items of a list all
/// have the same few keys.
class PropertyListKey {
public:
    PropertyListKey(const QString& text) : m_text(new Text(text)) {}

    operator const QString&() const { return m_text->text; }

    bool operator==(const PropertyListKey& other) const {
        return m_text == other.m_text || *this == other.m_text->text;
    }
    bool operator==(const QString& other) const { return m_text->text == other; }

private:
    struct Text : QSharedData {
        explicit Text(const QString& string) : text(string) {}
        const QString text;
    };

    QExplicitlySharedDataPointer<const Text> m_text;
};

} // namespace vexa
