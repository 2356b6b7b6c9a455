#include "engine/status_line.h"

#include "engine/counted.h"
#include "text/duration_text.h"

#include <QStringList>

namespace vexa {

namespace {

QString listTotal(const StatusSituation& now) {
    if (now.items == 0)
        return QStringLiteral("no items");
    QStringList parts{counted(now.items, QStringLiteral("item")),
                      counted(now.reels, QStringLiteral("reel"))};
    if (now.time)
        parts += QString::fromStdString(durationText(*now.time));
    return parts.join(QStringLiteral(" · "));
}

} // namespace

StatusLine statusLine(const StatusSituation& now) {
    for (const auto& concern : {now.entry, now.rows})
        if (!concern.isEmpty())
            return {concern, true};
    if (now.fileTrouble == FileTrouble::unwritten)
        return {QStringLiteral("%1 could not be written").arg(now.file), true};
    if (now.fileTrouble == FileTrouble::unread)
        return {QStringLiteral("%1 could not be read").arg(now.file), true};
    if (now.items != 0 && !now.useBatch && !now.stopTimeSet)
        return {QStringLiteral("batch striping off: no stop time"), true};
    return {listTotal(now), false};
}

} // namespace vexa
