#include "property_list/property_list_xml_writer.h"

#include "property_list/utf8.h"
#include "property_list/xml_scalars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>

namespace vexa {
namespace {

constexpr std::string_view header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                    "<plist version=\"1.0\">\n";

std::string_view escape(char16_t unit) {
    switch (unit) {
    case u'<':
        return "&lt;";
    case u'>':
        return "&gt;";
    case u'&':
        return "&amp;";
    default:
        return {};
    }
}
constexpr qsizetype longestEscape = 5; // a code unit takes at most three bytes of UTF-8

class Writer {
public:
    QByteArray document(const PropertyList& root);

private:
    void write(const PropertyList& value);
    void content(bool value) { append(value ? "<true/>\n" : "<false/>\n"); }
    void content(std::uint64_t value) { integer(value); }
    void content(std::int64_t value) { integer(value); }
    void content(double value) { element("real", xml::realText(value)); }
    void content(PropertyList::Date value);
    void content(const QString& value) { element("string", value); }
    void content(const QByteArray& value);
    void content(const PropertyList::Array& value);
    void content(const PropertyList::Dictionary& value);

    template<typename Integer>
    void integer(Integer value);
    template<typename Text>
    void element(std::string_view name, const Text& text);
    void indent(qsizetype tabs);
    void append(std::string_view text);
    void append(QStringView text);
    char* room(qsizetype bytes);

    QByteArray m_xml; // bytes after m_size are not written yet
    qsizetype m_size = 0;
    qsizetype m_depth = 0;
};

QByteArray Writer::document(const PropertyList& root) {
    append(header);
    write(root);
    append("</plist>\n");
    m_xml.truncate(m_size);
    return std::move(m_xml);
}

void Writer::write(const PropertyList& value) {
    indent(m_depth);
    value.visit([this](const auto& held) { content(held); });
}

template<typename Integer>
void Writer::integer(Integer value) {
    std::array<char, 24> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    element("integer", std::string_view(text.data(), end));
}

template<typename Text>
void Writer::element(std::string_view name, const Text& text) {
    append("<");
    append(name);
    append(">");
    append(text);
    append("</");
    append(name);
    append(">\n");
}

/// The write position, with room for that many bytes.
char* Writer::room(qsizetype bytes) {
    if (m_xml.size() - m_size < bytes)
        m_xml.resize(std::max(2 * m_xml.size(), m_size + bytes));
    return m_xml.data() + m_size;
}

void Writer::indent(qsizetype tabs) {
    std::fill_n(room(tabs), tabs, '\t');
    m_size += tabs;
}

void Writer::append(std::string_view text) {
    const auto size = static_cast<qsizetype>(text.size());
    std::ranges::copy(text, room(size));
    m_size += size;
}

void Writer::append(QStringView text) {
    char* out = room(text.size() * longestEscape);
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t character = text[i].unicode();
        if (const auto escaped = escape(text[i].unicode()); !escaped.empty()) {
            out = std::ranges::copy(escaped, out).out;
            continue;
        }
        if (QChar::isSurrogate(character)) {
            const bool pair = QChar::isHighSurrogate(character) && i + 1 < text.size() &&
                              text[i + 1].isLowSurrogate();
            character = pair ? QChar::surrogateToUcs4(text[i], text[i + 1])
                             : char32_t{QChar::ReplacementCharacter};
            i += pair ? 1 : 0;
        }
        out = writeUtf8(character, out);
    }
    m_size = out - m_xml.constData();
}

void Writer::content(PropertyList::Date value) {
    if (const auto text = xml::dateText(value))
        element("date", *text);
    else
        content(value.seconds); // any date would be wrong
}

void Writer::content(const QByteArray& value) {
    constexpr qsizetype lineWidth = 76;
    constexpr qsizetype tabWidth = 8;
    const auto tabs = std::min<qsizetype>(m_depth, 8);
    const auto base64 = value.toBase64();
    append("<data>\n");
    for (std::string_view rest(base64.constData(), static_cast<std::size_t>(base64.size()));
         !rest.empty();) {
        const auto line = rest.substr(0, static_cast<std::size_t>(lineWidth - tabWidth * tabs));
        indent(tabs);
        append(line);
        append("\n");
        rest.remove_prefix(line.size());
    }
    indent(m_depth);
    append("</data>\n");
}

void Writer::content(const PropertyList::Array& value) {
    if (value.empty())
        return append("<array/>\n");
    append("<array>\n");
    ++m_depth;
    for (const auto& element : value)
        write(element);
    --m_depth;
    indent(m_depth);
    append("</array>\n");
}

void Writer::content(const PropertyList::Dictionary& value) {
    if (value.size() == 0)
        return append("<dict/>\n");
    append("<dict>\n");
    ++m_depth;
    for (const auto& entry : value) {
        indent(m_depth);
        element<QString>("key", entry.key);
        write(entry.value);
    }
    --m_depth;
    indent(m_depth);
    append("</dict>\n");
}

} // namespace

QByteArray xmlPropertyList(const PropertyList& value) { return Writer().document(value); }

} // namespace vexa
