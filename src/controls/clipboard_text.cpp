#include "controls/clipboard_text.h"

#include "interchange/text_encoding.h"

namespace vexa {

QString clipboardText(const QMimeData& data, const QStringList& formats) {
    const auto offered = data.formats();
    for (const auto& format : formats)
        if (offered.contains(format))
            return decodedText(data.data(format));
    return offered.isEmpty() ? QString() : data.text();
}

} // namespace vexa
