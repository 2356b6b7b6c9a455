#include "property_list/property_list_xml_reader.h"

#include "property_list/KeyCache.h"
#include "property_list/property_list_limits.h"
#include "property_list/utf8.h"
#include "property_list/xml_encoding.h"
#include "property_list/xml_entities.h"
#include "property_list/xml_scalars.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace vexa {
namespace {

using xml::isBlank;

/// Moves the elements from `first` on into a new vector of exactly their size.
template<typename T>
std::vector<T> takenFrom(std::vector<T>& all, std::size_t first) {
    const auto begin = all.begin() + static_cast<std::ptrdiff_t>(first);
    std::vector<T> taken(std::make_move_iterator(begin), std::make_move_iterator(all.end()));
    all.erase(begin, all.end());
    return taken;
}

/// Scans the text once, from its start to the end of the property list. Every read function leaves
/// the position after what it read; a failure ends the scan.
class XmlReader {
public:
    XmlReader(std::string_view utf8, MemoryBudget& budget) : m_rest(utf8), m_budget(budget) {}

    std::optional<PropertyList> propertyList();

private:
    struct Tag {
        std::string_view name;
        bool empty; ///< <name/>: an element without content or end tag
    };

    bool take(std::string_view text);
    bool skipPast(std::string_view text);
    void skipBlanks();
    bool skipBetweenElements();
    bool skipDocumentType();
    std::optional<Tag> startTag();
    bool endTag(std::string_view name);

    std::optional<std::string_view> plainText(const Tag& tag);
    std::optional<std::string_view> text(const Tag& tag);
    std::optional<PropertyList> value(int depth);
    std::optional<PropertyList> scalar(const Tag& tag);
    std::optional<PropertyList> string(const Tag& tag);
    std::optional<PropertyList> array(const Tag& tag, int depth);
    std::optional<PropertyList> dictionary(const Tag& tag, int depth);
    template<typename ReadElement>
    bool elements(const Tag& tag, ReadElement readElement);
    std::optional<PropertyListKey> key();

    std::string_view m_rest;
    std::string m_unescaped;
    KeyCache m_keys;
    MemoryBudget& m_budget;
    // Elements of arrays and dictionaries that are still open.
    PropertyList::Array m_values;
    std::vector<PropertyList::Entry> m_entries;
};

bool XmlReader::take(std::string_view text) {
    const bool found = m_rest.starts_with(text);
    m_rest.remove_prefix(found ? text.size() : 0);
    return found;
}

bool XmlReader::skipPast(std::string_view text) {
    const auto found = m_rest.find(text);
    if (found == std::string_view::npos)
        return false;
    m_rest.remove_prefix(found + text.size());
    return true;
}

void XmlReader::skipBlanks() {
    const auto blanks = std::ranges::find_if_not(m_rest, isBlank) - m_rest.begin();
    m_rest.remove_prefix(static_cast<std::size_t>(blanks));
}

/// Skips blanks, comments and processing instructions.
bool XmlReader::skipBetweenElements() {
    for (;;) {
        skipBlanks();
        if (take("<!--")) {
            if (!skipPast("-->"))
                return false;
        } else if (take("<?")) {
            if (!skipPast("?>"))
                return false;
        } else {
            return true;
        }
    }
}

bool XmlReader::skipDocumentType() {
    if (!take("<!DOCTYPE"))
        return true;
    const auto end = m_rest.find_first_of("[>");
    if (end == std::string_view::npos || m_rest[end] == '[')
        return false;
    m_rest.remove_prefix(end + 1);
    return skipBetweenElements();
}

std::optional<XmlReader::Tag> XmlReader::startTag() {
    if (!take("<"))
        return std::nullopt;
    const auto end = m_rest.find('>');
    if (end == std::string_view::npos)
        return std::nullopt;
    auto name = m_rest.substr(0, end);
    m_rest.remove_prefix(end + 1);

    const bool empty = name.ends_with('/');
    name.remove_suffix(empty ? 1 : 0);
    const auto nameEnd = std::ranges::find_if(name, isBlank) - name.begin();
    return Tag{name.substr(0, static_cast<std::size_t>(nameEnd)), empty};
}

bool XmlReader::endTag(std::string_view name) {
    if (!take("</") || !take(name))
        return false;
    skipBlanks();
    return take(">");
}

/// The raw content of an element, up to the next tag, which must be its end tag.
std::optional<std::string_view> XmlReader::plainText(const Tag& tag) {
    const auto content = m_rest.substr(0, tag.empty ? 0 : m_rest.find('<'));
    m_rest.remove_prefix(content.size());
    return tag.empty || endTag(tag.name) ? std::optional(content) : std::nullopt;
}

/// The content of an element, with references and CDATA sections resolved. Valid until the next
/// call.
std::optional<std::string_view> XmlReader::text(const Tag& tag) {
    if (tag.empty)
        return std::string_view();
    m_unescaped.clear();
    for (;;) {
        const auto piece = m_rest.substr(0, m_rest.find('<'));
        m_rest.remove_prefix(piece.size());
        const bool verbatim = piece.find('&') == std::string_view::npos;
        if (verbatim && m_unescaped.empty() && m_rest.starts_with("</"))
            return endTag(tag.name) ? std::optional(piece) : std::nullopt;

        if (!m_budget.takeBytes(piece.size()) || !xml::appendUnescaped(piece, m_unescaped))
            return std::nullopt;
        if (!take("<![CDATA["))
            return endTag(tag.name) ? std::optional<std::string_view>(m_unescaped) : std::nullopt;
        const auto data = m_rest.substr(0, m_rest.find("]]>"));
        if (!skipPast("]]>") || !m_budget.takeBytes(data.size()))
            return std::nullopt;
        m_unescaped += data;
    }
}

std::optional<PropertyList> XmlReader::propertyList() {
    if (!skipBetweenElements() || !skipDocumentType())
        return std::nullopt;
    const auto start = m_rest;
    const auto tag = startTag();
    const bool wrapped = tag && tag->name == "plist" && !tag->empty;
    if (!wrapped)
        m_rest = start;
    auto root = value(1);
    const bool ended = !wrapped || (skipBetweenElements() && endTag("plist"));
    return ended ? std::move(root) : std::nullopt;
}

std::optional<PropertyList> XmlReader::value(int depth) {
    const auto tag = skipBetweenElements() ? startTag() : std::nullopt;
    if (!tag || depth > property_list::maximumDepth || !m_budget.takeValues(1))
        return std::nullopt;
    if (tag->name == "array")
        return array(*tag, depth);
    if (tag->name == "dict")
        return dictionary(*tag, depth);
    return tag->name == "string" ? string(*tag) : scalar(*tag);
}

std::optional<PropertyList> XmlReader::scalar(const Tag& tag) {
    const auto content = plainText(tag);
    if (!content)
        return std::nullopt;
    if (tag.name == "integer")
        return xml::integerFromText(*content);
    if (tag.name == "real")
        return xml::realFromText(*content);
    if (tag.name == "date")
        return xml::dateFromText(*content);
    if (tag.name == "data" && m_budget.takeText(content->size()))
        return PropertyList(QByteArray::fromBase64(
            QByteArray::fromRawData(content->data(), static_cast<qsizetype>(content->size()))));
    if ((tag.name == "true" || tag.name == "false") && content->empty())
        return PropertyList(tag.name == "true");
    return std::nullopt;
}

std::optional<PropertyList> XmlReader::string(const Tag& tag) {
    const auto content = text(tag);
    if (!content || !m_budget.takeText(content->size() * sizeof(char16_t)))
        return std::nullopt;
    return PropertyList(stringFromUtf8(*content));
}

/// Calls readElement() at each element, until the array or dictionary ends.
template<typename ReadElement>
bool XmlReader::elements(const Tag& tag, ReadElement readElement) {
    while (!tag.empty) {
        if (!skipBetweenElements())
            return false;
        if (m_rest.starts_with("</"))
            return endTag(tag.name);
        if (!readElement())
            return false;
    }
    return true;
}

std::optional<PropertyList> XmlReader::array(const Tag& tag, int depth) {
    const auto first = m_values.size();
    const bool whole = elements(tag, [&] {
        auto element = value(depth + 1);
        if (element)
            m_values.push_back(std::move(*element));
        return element.has_value();
    });
    return whole ? std::optional(PropertyList(takenFrom(m_values, first))) : std::nullopt;
}

std::optional<PropertyList> XmlReader::dictionary(const Tag& tag, int depth) {
    const auto first = m_entries.size();
    const bool whole = elements(tag, [&] {
        auto entryKey = key();
        auto entryValue = entryKey ? value(depth + 1) : std::nullopt;
        if (entryValue)
            m_entries.push_back({std::move(*entryKey), std::move(*entryValue)});
        return entryValue.has_value();
    });
    if (!whole)
        return std::nullopt;
    return PropertyList(
        PropertyList::Dictionary(takenFrom(m_entries, first), PropertyList::Duplicates::keepLast));
}

std::optional<PropertyListKey> XmlReader::key() {
    const auto tag = startTag();
    const auto content = tag && tag->name == "key" ? text(*tag) : std::nullopt;
    if (!content || !m_budget.takeBytes(content->size() * sizeof(char16_t)))
        return std::nullopt;
    const auto make = [this](std::string_view utf8) {
        return m_budget.takeKey() ? std::optional<PropertyListKey>(stringFromUtf8(utf8))
                                  : std::nullopt;
    };
    const bool verbatim = content->data() != m_unescaped.data();
    return verbatim ? m_keys.key(*content, make) : make(*content);
}

} // namespace

std::optional<PropertyList> readXmlPropertyList(QByteArrayView bytes, MemoryBudget& budget) {
    if (bytes.size() > property_list::maximumInput)
        return std::nullopt;
    const auto utf8 = utf8FromXml(bytes, budget);
    if (!utf8)
        return std::nullopt;
    return XmlReader({utf8->constData(), static_cast<std::size_t>(utf8->size())}, budget)
        .propertyList();
}

} // namespace vexa
