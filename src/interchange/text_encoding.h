#pragma once

#include <QByteArray>
#include <QString>

namespace vexa {

/// The text of a file that says nothing of its encoding, or says it by a byte order mark: UTF-16
/// where there is a mark or every other byte is mostly zero, UTF-8 where the bytes can be that, and
/// else windows-1252. The mark is not part of the text. Every file has some text.
QString decodedText(const QByteArray& bytes);

} // namespace vexa
