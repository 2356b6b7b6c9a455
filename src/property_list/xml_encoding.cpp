#include "property_list/xml_encoding.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <array>

namespace vexa {
namespace {

struct ByteOrderMark {
    QByteArrayView bytes;
    QStringConverter::Encoding encoding;
};

/// UTF-32 comes first: its little-endian mark starts with that of UTF-16.
constexpr std::array<ByteOrderMark, 5> byteOrderMarks{{
    {{"\xFF\xFE\x00\x00", 4}, QStringConverter::Utf32LE},
    {{"\x00\x00\xFE\xFF", 4}, QStringConverter::Utf32BE},
    {{"\xFF\xFE", 2}, QStringConverter::Utf16LE},
    {{"\xFE\xFF", 2}, QStringConverter::Utf16BE},
    {{"\xEF\xBB\xBF", 3}, QStringConverter::Utf8},
}};

/// The encoding named in the XML declaration, empty if there is none.
QByteArray declaredEncoding(QByteArrayView file) {
    if (!file.startsWith("<?xml"))
        return {};
    const auto declaration = file.first(std::max<qsizetype>(file.indexOf("?>"), 0));
    const auto attribute = declaration.indexOf("encoding");
    if (attribute < 0)
        return {};
    auto rest = declaration.sliced(attribute + 8).trimmed();
    if (!rest.startsWith('='))
        return {};
    rest = rest.sliced(1).trimmed();
    if (!rest.startsWith('"') && !rest.startsWith('\''))
        return {};
    const auto end = rest.indexOf(rest.front(), 1);
    return end < 0 ? QByteArray() : rest.sliced(1, end - 1).toByteArray();
}

/// Calls take(utf8) for one piece of text after another, to avoid holding all of it as UTF-16.
/// Returns false if any byte is invalid.
template<typename Take>
bool transcode(QByteArrayView text, QStringDecoder& decoder, Take take) {
    constexpr qsizetype pieceSize = 1 << 16;
    QStringEncoder encoder(QStringConverter::Utf8);
    decoder.resetState();
    for (qsizetype i = 0; i < text.size() && !decoder.hasError(); i += pieceSize)
        take(QByteArray(encoder(decoder(text.sliced(i, std::min(pieceSize, text.size() - i))))));
    return decoder.isValid() && !decoder.hasError() && !encoder.hasError();
}

std::optional<QByteArray> transcoded(QByteArrayView text, QStringDecoder decoder,
                                     MemoryBudget& budget) {
    qsizetype size = 0;
    if (!transcode(text, decoder, [&size](const QByteArray& piece) { size += piece.size(); }) ||
        !budget.takeBytes(static_cast<std::size_t>(size)))
        return std::nullopt;
    QByteArray utf8;
    utf8.reserve(size); // growing step by step would take twice as much
    transcode(text, decoder, [&utf8](const QByteArray& piece) { utf8 += piece; });
    return utf8;
}

} // namespace

std::optional<QByteArray> utf8FromXml(QByteArrayView file, MemoryBudget& budget) {
    const auto mark = std::ranges::find_if(
        byteOrderMarks, [file](const auto& candidate) { return file.startsWith(candidate.bytes); });
    const bool marked = mark != byteOrderMarks.end();
    const auto declared = marked ? QByteArray() : declaredEncoding(file);
    const auto text = marked ? file.sliced(mark->bytes.size()) : file;

    const auto known = QStringConverter::encodingForName(declared.constData());
    const bool utf8 = marked ? mark->encoding == QStringConverter::Utf8
                             : declared.isEmpty() || known == QStringConverter::Utf8;
    if (!utf8)
        return transcoded(
            text, marked ? QStringDecoder(mark->encoding) : QStringDecoder(declared.constData()),
            budget);
    if (!text.isValidUtf8())
        return std::nullopt;
    return QByteArray::fromRawData(text.data(), text.size());
}

} // namespace vexa
