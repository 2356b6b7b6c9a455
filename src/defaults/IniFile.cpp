#include "defaults/IniFile.h"

#include "defaults/ini_value.h"

#include <algorithm>
#include <string_view>

namespace vexa {

namespace {

constexpr auto general = "General";

/// Splits a text into lines, without comments. Quotes and backslashes escape the end of a line.
class LineReader {
public:
    explicit LineReader(std::string_view text) : m_rest(text) {}

    bool atEnd() const { return m_rest.empty(); }

    QByteArray next() {
        const bool isComment = m_rest.starts_with(';');
        const auto length = isComment ? m_rest.find_first_of("\r\n") : lengthOfLine();
        const auto line = m_rest.substr(0, length);
        m_rest.remove_prefix(line.size());
        if (!m_rest.empty() && m_rest.front() != ';')
            m_rest.remove_prefix(1);
        if (isComment)
            return {};
        return QByteArray(line.data(), static_cast<qsizetype>(line.size())).trimmed();
    }

private:
    static bool endsLine(char c) { return c == '\n' || c == '\r' || c == ';'; }

    std::size_t lengthOfLine() const {
        std::size_t length = 0;
        bool inQuotes = false;
        while (length < m_rest.size() && (inQuotes || !endsLine(m_rest[length]))) {
            if (m_rest[length] == '"')
                inQuotes = !inQuotes;
            else if (m_rest[length] == '\\')
                ++length; // skips the escaped character
            ++length;
        }
        return std::min(length, m_rest.size());
    }

    std::string_view m_rest;
};

/// Keys are escaped, so control characters show that the line is none of an INI file.
bool isKey(const QByteArray& text) {
    return std::ranges::none_of(text, [](unsigned char c) { return c < ' '; });
}

/// The name "General" is not case-sensitive.
QByteArray sectionNamed(const QByteArray& name) {
    return name.compare(general, Qt::CaseInsensitive) == 0 ? QByteArray(general) : name;
}

} // namespace

IniFile::IniFile(const QByteArray& text) {
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    std::string_view bytes(text.data(), static_cast<std::size_t>(text.size()));
    if (bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    LineReader lines(bytes);
    QByteArray section = general;
    while (!lines.atEnd()) {
        const auto line = lines.next();
        if (line.isEmpty())
            continue;
        const auto equals = line.indexOf('=');
        const auto key = line.first(std::max<qsizetype>(equals, 0)).trimmed();
        if (line.startsWith('[')) {
            const auto end = line.indexOf(']');
            m_isBroken = m_isBroken || end < 0;
            section = sectionNamed(line.first(end < 0 ? line.size() : end).sliced(1).trimmed());
        } else if (equals >= 0 && isKey(key)) {
            keysToChange(section)[key] = line.sliced(equals + 1).trimmed();
        } else {
            m_isBroken = true;
        }
    }
}

QByteArray IniFile::text() const {
    QByteArrayList sections;
    for (const auto& [name, keys] : m_sections) {
        QByteArray section = '[' + name + "]\n";
        for (const auto& [key, value] : keys)
            section += key + '=' + value + '\n';
        sections += section;
    }
    return sections.join('\n');
}

std::optional<QStringList> IniFile::value(const QByteArray& key) const {
    const auto place = placeOf(key);
    const auto* section = find(place.section);
    if (!section)
        return std::nullopt;
    const auto found = section->keys.find(place.key);
    return found == section->keys.end() ? std::nullopt : std::optional(iniTexts(found->second));
}

void IniFile::setValue(const QByteArray& key, const QStringList& value) {
    const auto place = placeOf(key);
    keysToChange(place.section)[place.key] = iniValue(value);
}

QStringList IniFile::keysOf(const QByteArray& name) const {
    QStringList keys;
    if (const auto* section = find(name))
        for (const auto& [key, value] : section->keys)
            keys += QString::fromUtf8(key);
    return keys;
}

IniFile::Place IniFile::placeOf(const QByteArray& key) {
    const auto slash = key.indexOf('/');
    return slash < 0 ? Place{general, key} : Place{key.first(slash), key.sliced(slash + 1)};
}

const IniFile::Section* IniFile::find(const QByteArray& name) const {
    const auto found = std::ranges::find(m_sections, name, &Section::name);
    return found == m_sections.end() ? nullptr : &*found;
}

IniFile::Keys& IniFile::keysToChange(const QByteArray& name) {
    const auto found = std::ranges::find(m_sections, name, &Section::name);
    return found == m_sections.end() ? m_sections.emplace_back(Section{name, {}}).keys
                                     : found->keys;
}

} // namespace vexa
