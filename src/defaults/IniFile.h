#pragma once

#include <QByteArray>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

namespace vexa {

/// The contents of an INI file in the format of QSettings. Unknown entries are kept as written;
/// only comments and broken lines are lost. QSettings itself would wait half a minute for another
/// program's lock, and would replace the file even if the disk was too full for all of it.
class IniFile {
public:
    explicit IniFile(const QByteArray& text);
    QByteArray text() const;

    /// Whether some line is not in that format.
    bool isBroken() const { return m_isBroken; }

    /// The comma-separated values under "section/key"; a key without a section is in "General".
    /// Nothing if the key is absent.
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
