#pragma once

#include <QByteArray>
#include <QString>

namespace vexa {

/// The text of a file, whose encoding may be stated by a byte-order mark. It is UTF-16 if there is
/// such a mark or every other byte is mostly zero, UTF-8 if the bytes are valid, and otherwise
/// windows-1252. The text excludes the mark. Every file has a text.
QString decodedText(const QByteArray& bytes);

} // namespace vexa
