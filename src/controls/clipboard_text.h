#pragma once

#include <QMimeData>
#include <QString>
#include <QStringList>

namespace vexa {

/// What a clipboard or a drag offers, in the first of these formats that is offered, or else as
/// plain text. Null if the program that offers it does not answer. Qt waits five seconds for each
/// answer, so such a program is asked only once.
QString clipboardText(const QMimeData& data, const QStringList& formats = {});

} // namespace vexa
