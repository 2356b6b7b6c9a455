#include "property_list/property_list_binary_reader.h"

#include "property_list/KeyCache.h"
#include "property_list/property_list_limits.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <string_view>

namespace vexa {
namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

std::uint64_t bigEndian(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char byte : bytes)
        value = value << 8 | static_cast<unsigned char>(byte);
    return value;
}

QString fromUtf16BigEndian(std::string_view bytes) {
    QString text(static_cast<qsizetype>(bytes.size() / 2), Qt::Uninitialized);
    qFromBigEndian<char16_t>(bytes.data(), text.size(), text.data());
    if (text.isValidUtf16())
        return text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair)
            ++i;
        else if (text[i].isSurrogate())
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

/// The high half of an object's first byte.
enum class Kind : std::uint8_t {
    simple = 0x0,
    integer = 0x1,
    real = 0x2,
    date = 0x3,
    data = 0x4,
    latin1 = 0x5,
    utf16 = 0x6,
    uid = 0x8,
    array = 0xA,
    dictionary = 0xD
};

std::size_t unitSize(Kind kind) { return kind == Kind::utf16 ? sizeof(char16_t) : 1; }

/// Size of a string or of data, given its bytes in the file.
std::size_t sizeInMemory(Kind kind, std::string_view bytes) {
    return bytes.size() * (kind == Kind::latin1 ? sizeof(char16_t) : 1);
}

QString stringFrom(Kind kind, std::string_view bytes) {
    return kind == Kind::latin1 ? QString::fromLatin1(bytes) : fromUtf16BigEndian(bytes);
}

class BinaryReader {
public:
    BinaryReader(std::string_view file, MemoryBudget& budget) : m_file(file), m_budget(budget) {}

    std::optional<PropertyList> propertyList();

private:
    /// An object: its kind, the low half of its first byte, and all bytes after that.
    struct Object {
        Kind kind;
        std::uint8_t size;
        std::string_view rest;
    };

    std::optional<Object> object(std::uint64_t reference) const;
    std::uint64_t referenceAt(std::string_view references, std::size_t index) const;

    /// Reads a number of 2^size bytes and removes them from the front of `rest`.
    static std::optional<std::string_view> number(std::uint8_t size, std::string_view& rest);
    /// The elements of `object`, elementSize bytes each, if it contains as many as it states.
    static std::optional<std::string_view> elements(const Object& object, std::size_t elementSize);

    std::optional<PropertyList> value(std::uint64_t reference, int depth);
    std::optional<PropertyList> scalar(const Object& object);
    std::optional<PropertyList> text(const Object& object);
    std::optional<PropertyList> uid(const Object& object);
    std::optional<PropertyList> array(const Object& object, int depth);
    std::optional<PropertyList> dictionary(const Object& object, int depth);
    std::optional<PropertyListKey> key(std::uint64_t reference);

    std::string_view m_file;
    std::string_view m_objects; // with the header, so offsets count from its start
    std::string_view m_offsets;
    std::size_t m_offsetSize = 0;
    std::size_t m_referenceSize = 0;
    KeyCache m_keys;
    MemoryBudget& m_budget;
};

std::optional<PropertyList> BinaryReader::propertyList() {
    if (m_file.size() < headerSize + trailerSize || !m_file.starts_with("bplist0") ||
        m_file[7] < '0' || m_file[7] > '9')
        return std::nullopt;

    const auto trailer = m_file.substr(m_file.size() - trailerSize);
    m_offsetSize = static_cast<unsigned char>(trailer[6]);
    m_referenceSize = static_cast<unsigned char>(trailer[7]);
    const auto count = bigEndian(trailer.substr(8, 8));
    const auto root = bigEndian(trailer.substr(16, 8));
    const auto tableStart = bigEndian(trailer.substr(24, 8));

    const auto isSize = [](std::size_t size) { return size >= 1 && size <= 8; };
    const auto tableEnd = m_file.size() - trailerSize;
    if (!isSize(m_offsetSize) || !isSize(m_referenceSize) || tableStart < headerSize ||
        tableStart > tableEnd || count > (tableEnd - tableStart) / m_offsetSize ||
        tableStart + count * m_offsetSize != tableEnd)
        return std::nullopt;

    m_objects = m_file.substr(0, tableStart);
    m_offsets = m_file.substr(tableStart, tableEnd - tableStart);
    if (!m_budget.takeValues(1))
        return std::nullopt;
    return value(root, 1);
}

std::optional<BinaryReader::Object> BinaryReader::object(std::uint64_t reference) const {
    if (reference >= m_offsets.size() / m_offsetSize)
        return std::nullopt;
    const auto offset = bigEndian(m_offsets.substr(reference * m_offsetSize, m_offsetSize));
    if (offset < headerSize || offset >= m_objects.size())
        return std::nullopt;
    const auto first = static_cast<unsigned char>(m_objects[offset]);
    return Object{Kind{static_cast<std::uint8_t>(first >> 4)},
                  static_cast<std::uint8_t>(first & 0xF), m_objects.substr(offset + 1)};
}

std::uint64_t BinaryReader::referenceAt(std::string_view references, std::size_t index) const {
    return bigEndian(references.substr(index * m_referenceSize, m_referenceSize));
}

std::optional<std::string_view> BinaryReader::number(std::uint8_t size, std::string_view& rest) {
    if (size > 4 || rest.size() < (std::size_t{1} << size))
        return std::nullopt;
    const auto bytes = rest.substr(0, std::size_t{1} << size);
    rest.remove_prefix(bytes.size());
    return bytes;
}

std::optional<std::string_view> BinaryReader::elements(const Object& object,
                                                       std::size_t elementSize) {
    std::uint64_t count = object.size;
    auto rest = object.rest;
    if (count == 0xF) {
        if (rest.empty() || Kind{static_cast<std::uint8_t>(rest[0] >> 4 & 0xF)} != Kind::integer)
            return std::nullopt;
        const auto size = static_cast<std::uint8_t>(rest[0] & 0xF);
        rest.remove_prefix(1);
        const auto bytes = number(size, rest);
        if (!bytes)
            return std::nullopt;
        count = bigEndian(*bytes);
    }
    if (count > rest.size() / elementSize)
        return std::nullopt;
    return rest.substr(0, count * elementSize);
}

std::optional<PropertyList> BinaryReader::value(std::uint64_t reference, int depth) {
    const auto opened = object(reference);
    if (!opened || depth > property_list::maximumDepth)
        return std::nullopt;
    switch (opened->kind) {
    case Kind::simple:
    case Kind::integer:
    case Kind::real:
    case Kind::date:
        return scalar(*opened);
    case Kind::data:
    case Kind::latin1:
    case Kind::utf16:
        return text(*opened);
    case Kind::uid:
        return uid(*opened);
    case Kind::array:
        return array(*opened, depth);
    case Kind::dictionary:
        return dictionary(*opened, depth);
    }
    return std::nullopt;
}

std::optional<PropertyList> BinaryReader::scalar(const Object& object) {
    if (object.kind == Kind::simple) {
        if (object.size != 8 && object.size != 9)
            return std::nullopt;
        return PropertyList(object.size == 9);
    }
    auto rest = object.rest;
    const auto bytes = number(object.size, rest);
    if (!bytes)
        return std::nullopt;
    const auto bits = bigEndian(*bytes);
    if (object.kind == Kind::integer)
        return bytes->size() == 8 ? PropertyList(static_cast<std::int64_t>(bits))
                                  : PropertyList(bits);
    if (object.kind == Kind::real && bytes->size() == 4)
        return PropertyList(double{std::bit_cast<float>(static_cast<std::uint32_t>(bits))});
    if (bytes->size() != 8)
        return std::nullopt;
    const auto number = std::bit_cast<double>(bits);
    if (object.kind == Kind::real)
        return PropertyList(number);
    return PropertyList(PropertyList::Date{number});
}

std::optional<PropertyList> BinaryReader::text(const Object& object) {
    const auto bytes = elements(object, unitSize(object.kind));
    if (!bytes || !m_budget.takeText(sizeInMemory(object.kind, *bytes)))
        return std::nullopt;
    if (object.kind == Kind::data)
        return PropertyList(QByteArray(bytes->data(), static_cast<qsizetype>(bytes->size())));
    return PropertyList(stringFrom(object.kind, *bytes));
}

/// The dictionary that represents a UID in XML.
std::optional<PropertyList> BinaryReader::uid(const Object& object) {
    static const PropertyListKey key(QStringLiteral("CF$UID"));
    const auto size = std::size_t{object.size} + 1;
    if (size > sizeof(std::uint64_t) || size > object.rest.size() || !m_budget.takeValues(1))
        return std::nullopt;
    PropertyList::Dictionary dictionary;
    dictionary.set(key, PropertyList(bigEndian(object.rest.substr(0, size))));
    return PropertyList(std::move(dictionary));
}

std::optional<PropertyListKey> BinaryReader::key(std::uint64_t reference) {
    const auto opened = object(reference);
    if (!opened || (opened->kind != Kind::latin1 && opened->kind != Kind::utf16))
        return std::nullopt;
    const auto bytes = elements(*opened, unitSize(opened->kind));
    if (!bytes || !m_budget.takeBytes(sizeInMemory(opened->kind, *bytes)))
        return std::nullopt;
    const auto make = [this, kind = opened->kind](std::string_view text) {
        return m_budget.takeKey() ? std::optional<PropertyListKey>(stringFrom(kind, text))
                                  : std::nullopt;
    };
    return opened->kind == Kind::latin1 ? m_keys.key(*bytes, make) : make(*bytes);
}

std::optional<PropertyList> BinaryReader::array(const Object& object, int depth) {
    const auto references = elements(object, m_referenceSize);
    if (!references)
        return std::nullopt;
    const auto count = references->size() / m_referenceSize;
    if (!m_budget.takeValues(count))
        return std::nullopt;

    PropertyList::Array values;
    values.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto element = value(referenceAt(*references, i), depth + 1);
        if (!element)
            return std::nullopt;
        values.push_back(std::move(*element));
    }
    return PropertyList(std::move(values));
}

std::optional<PropertyList> BinaryReader::dictionary(const Object& object, int depth) {
    const auto references = elements(object, 2 * m_referenceSize);
    if (!references)
        return std::nullopt;
    const auto count = references->size() / m_referenceSize / 2;
    if (!m_budget.takeValues(count))
        return std::nullopt;

    std::vector<PropertyList::Entry> entries;
    entries.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto entryKey = key(referenceAt(*references, i));
        if (!entryKey)
            return std::nullopt;
        auto entryValue = value(referenceAt(*references, count + i), depth + 1);
        if (!entryValue)
            return std::nullopt;
        entries.push_back({std::move(*entryKey), std::move(*entryValue)});
    }
    return PropertyList(
        PropertyList::Dictionary(std::move(entries), PropertyList::Duplicates::keepFirst));
}

} // namespace

std::optional<PropertyList> readBinaryPropertyList(QByteArrayView bytes, MemoryBudget& budget) {
    if (bytes.size() > property_list::maximumInput)
        return std::nullopt;
    return BinaryReader({bytes.data(), static_cast<std::size_t>(bytes.size())}, budget)
        .propertyList();
}

} // namespace vexa
