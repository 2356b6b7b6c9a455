#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace vexa {

/// The text of an XML file as UTF-8, without a byte-order mark. The encoding is what the
/// byte-order mark says, else what the XML declaration names, else UTF-8. Nothing if the encoding
/// is unknown or a byte is not valid in it. The answer shares the bytes given where these are
/// UTF-8 already, and must not outlive them.
std::optional<QByteArray> utf8FromXml(QByteArrayView file);

} // namespace vexa
