#pragma once

#include <QByteArray>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

namespace vexa {

/// The contents of an INI file, as QSettings reads and writes it. What nobody asks for is kept as
/// it was written; only comments and broken lines are lost.
class IniFile {
public:
    explicit IniFile(const QByteArray& text);
    QByteArray text() const;

    /// Whether some line was none of an INI file.
    bool isBroken() const { return m_isBroken; }

    /// The value of "section/key", or of a key alone in the section "General": a list that commas
    /// part. Nothing when the key is absent.
    std::optional<QStringList> value(const QByteArray& key) const;
    void setValue(const QByteArray& key, const QStringList& value);

    /// The keys of a section, without its name.
    QStringList keysOf(const QByteArray& section) const;

private:
    using Keys = std::map<QByteArray, QByteArray>; ///< escaped, like their values
    struct Section {
        QByteArray name;
        Keys keys;
    };
    struct Place {
        QByteArray section;
        QByteArray key;
    };

    static Place placeOf(const QByteArray& key);
    const Section* find(const QByteArray& name) const;
    Keys& keysToChange(const QByteArray& section);

    std::vector<Section> m_sections; ///< in the order of the file
    bool m_isBroken = false;
};

} // namespace vexa
