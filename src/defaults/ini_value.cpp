#include "defaults/ini_value.h"

#include <algorithm>
#include <string_view>

namespace vexa {

namespace {

constexpr std::string_view noTexts = "@Invalid()";
constexpr std::string_view escapes = "abfnrtv\"?'\\";
constexpr std::string_view escaped = "\a\b\f\n\r\t\v\"?'\\";

bool isSpace(char c) { return c == ' ' || c == '\t'; }

int digitValue(char c, int base) {
    const int digit = c >= '0' && c <= '9'   ? c - '0'
                      : c >= 'a' && c <= 'f' ? c - 'a' + 10
                      : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                             : base;
    return digit < base ? digit : -1;
}

/// Splits a value from front to back.
class ValueReader {
public:
    explicit ValueReader(std::string_view value) : m_rest(value) {}

    QStringList texts() {
        QStringList texts{nextText()};
        while (!m_rest.empty()) {
            m_rest.remove_prefix(1); // the comma
            texts += nextText();
        }
        return texts;
    }

private:
    /// Reads up to the next comma outside quotes.
    QString nextText() {
        while (!m_rest.empty() && isSpace(m_rest.front()))
            m_rest.remove_prefix(1);
        QByteArray text;
        qsizetype kept = 0; // the length without unquoted blanks at the end
        bool inQuotes = false;
        while (!m_rest.empty() && (inQuotes || m_rest.front() != ',')) {
            const char c = m_rest.front();
            m_rest.remove_prefix(1);
            if (c == '"')
                inQuotes = !inQuotes;
            else if (c == '\\')
                text += escapedCharacter();
            else
                text += c;
            if (inQuotes || c == '"' || !isSpace(c))
                kept = text.size();
        }
        text.truncate(kept);
        return QString::fromUtf8(text.startsWith("@@") ? text.sliced(1) : text);
    }

    /// Reads the rest of an escape, after the backslash.
    QByteArray escapedCharacter() {
        if (m_rest.empty())
            return {};
        const char c = m_rest.front();
        if (digitValue(c, 8) >= 0)
            return number(8);
        m_rest.remove_prefix(1);
        if (c == 'x')
            return number(16);
        const auto known = escapes.find(c);
        return known == std::string_view::npos ? QByteArray() : QByteArray(1, escaped[known]);
    }

    /// Reads a character code, which ends at the first other character.
    QByteArray number(int base) {
        char16_t character = 0;
        while (!m_rest.empty() && digitValue(m_rest.front(), base) >= 0) {
            character = static_cast<char16_t>(character * base + digitValue(m_rest.front(), base));
            m_rest.remove_prefix(1);
        }
        return QString(QChar(character)).toUtf8();
    }

    std::string_view m_rest;
};

QByteArray quoted(const QString& text) {
    const auto bytes = text.toUtf8();
    QByteArray result = bytes.startsWith('@') ? "\"@" : "\"";
    bool isAfterNumber = false;
    for (const char c : bytes) {
        const bool isControl = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
        const bool wouldExtend = isAfterNumber && digitValue(c, 16) >= 0;
        isAfterNumber = isControl || wouldExtend;
        if (isAfterNumber)
            result += "\\x" + QByteArray::number(static_cast<int>(c), 16);
        else if (c == '"' || c == '\\')
            result += QByteArray("\\") + c;
        else
            result += c;
    }
    return result + '"';
}

bool isPlain(const QString& text) {
    const auto isWordCharacter = [](QChar c) {
        return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'.' || c == u'-' || c == u'+');
    };
    return !text.isEmpty() && std::ranges::all_of(text, isWordCharacter);
}

} // namespace

QStringList iniTexts(const QByteArray& value) {
    const std::string_view escapedTexts(value.data(), static_cast<std::size_t>(value.size()));
    return escapedTexts == noTexts ? QStringList() : ValueReader(escapedTexts).texts();
}

QByteArray iniValue(const QStringList& texts) {
    if (texts.isEmpty())
        return QByteArray(noTexts.data(), static_cast<qsizetype>(noTexts.size()));
    QByteArrayList parts;
    for (const auto& text : texts)
        parts += isPlain(text) ? text.toUtf8() : quoted(text);
    return parts.join(", ");
}

} // namespace vexa
