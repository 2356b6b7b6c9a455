#include "engine/run_line.h"

#include "engine/counted.h"
#include "text/duration_text.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <QStringList>

#include <cmath>
#include <string_view>

namespace vexa {

namespace {

const QString separator = QStringLiteral(" · ");

QString timeText(std::uint64_t packed) { return QString::fromStdString(timecodeText(packed)); }

/// For example "25 fps MTC"; FSK carries no rate.
QString codes(const StripeSettings& settings) {
    const auto type = QString::fromLatin1(syncTypeName(settings.syncType));
    return settings.syncType == sync::fsk
               ? type
               : QString::fromLatin1(frameRateForCode(settings.frameRate).name) + QLatin1Char(' ') +
                     type;
}

QString timeLeft(RunLoop::Seconds time) { return QString::fromStdString(timeLeftText(time)); }

QString joined(const QStringList& parts, const QString& between = separator) {
    QStringList said;
    for (const auto& part : parts)
        if (!part.isEmpty())
            said += part;
    return said.join(between);
}

QString place(const RunSituation& now) {
    return QStringLiteral("item %1 of %2 · reel %3")
        .arg(now.number)
        .arg(now.items)
        .arg(static_cast<std::int64_t>(now.reel));
}

QString endOf(const RunSituation& now) {
    if (!now.leftOfRun || now.asksForReels || now.phase == Phase::awaitingReel)
        return {};
    const auto seconds = static_cast<int>(std::lround(now.leftOfRun->count()));
    return QStringLiteral("ends %1").arg(
        now.now.addSecs(seconds).toString(QStringLiteral("HH:mm")));
}

QString wholeOf(const RunSituation& now) {
    if (!now.leftOfRun)
        return QStringLiteral("the run does not end");
    const auto time = QStringLiteral("%1 of the run").arg(timeLeft(*now.leftOfRun));
    return now.asksForReels ? time + QStringLiteral(" + reel changes")
                            : joined({time, endOf(now)}, QStringLiteral(", "));
}

QString leftOf(const std::optional<RunLoop::Seconds>& time) {
    return time ? QStringLiteral("%1 left").arg(timeLeft(*time)) : QString();
}

RunLine readyForItems(const RunSituation& now) {
    RunLine line{.words = QStringLiteral("ready: %1 · %2")
                              .arg(counted(now.items, QStringLiteral("item")),
                                   counted(now.reels, QStringLiteral("reel"))),
                 .left = now.leftOfRun ? timeLeft(*now.leftOfRun) : QString()};
    line.sentence = joined({line.words, line.left});
    return line;
}

RunLine readyForStripe(const RunSituation& now) {
    const auto start = timeText(now.settings.startTime);
    RunLine line{
        .words = now.stopTimeSet
                     ? QStringLiteral("ready: %1 → %2").arg(start, timeText(now.settings.stopTime))
                     : QStringLiteral("ready: %1 →").arg(start),
        .left = codes(now.settings),
        .place = now.stopTimeSet ? QString() : QStringLiteral("no stop time")};
    line.sentence = joined({joined({line.words, line.left}, QStringLiteral(", ")), line.place});
    return line;
}

RunLine item(const RunSituation& now, const QString& words) {
    RunLine line{words, leftOf(now.leftOfItem), place(now), wholeOf(now)};
    const auto left = line.left.isEmpty() ? QString() : line.left + QStringLiteral(" of it");
    line.sentence =
        joined({joined({words, now.title}, QStringLiteral(" ")), line.place, left, line.whole});
    return line;
}

RunLine stripe(const RunSituation& now, const QString& words) {
    RunLine line{.words = words,
                 .left = leftOf(now.leftOfItem),
                 .place = now.leftOfItem ? QString() : QStringLiteral("no stop time"),
                 .whole = now.phase == Phase::running ? endOf(now) : QString()};
    line.sentence =
        joined({words, joined({line.left, line.whole}, QStringLiteral(", ")), line.place});
    return line;
}

RunLine interruptedRun(const RunSituation& now) {
    RunLine line{.words = QStringLiteral("paused"),
                 .place = QStringLiteral("Play begins the run again")};
    line.sentence = joined({joined({line.words, now.title}, QStringLiteral(" ")), line.place});
    return line;
}

RunLine pause(const RunSituation& now) {
    const auto seconds = std::ceil(now.leftOfPause.value_or(RunLoop::Seconds{}).count());
    const auto next = now.nextTitle.isEmpty() ? QStringLiteral("item") : now.nextTitle;
    RunLine line{.words = QStringLiteral("next %1 in %2 s").arg(next, QString::number(seconds)),
                 .place = place(now),
                 .whole = wholeOf(now)};
    line.sentence = joined({line.words, line.place, line.whole});
    return line;
}

RunLine reelDue(const RunSituation& now) {
    const auto then =
        now.nextTitle.isEmpty() ? QString() : QStringLiteral("then %1").arg(now.nextTitle);
    RunLine line{.words = QStringLiteral("LOAD REEL %1").arg(static_cast<std::int64_t>(now.reel)),
                 .place = joined({then, place(now)}),
                 .whole = wholeOf(now)};
    line.sentence = joined({line.words, line.place, line.whole});
    return line;
}

} // namespace

RunLine runLine(const RunSituation& now) {
    switch (now.phase) {
    case Phase::stopped:
        return now.isBatch ? readyForItems(now) : readyForStripe(now);
    case Phase::running:
        return now.isBatch ? item(now, QStringLiteral("playing"))
                           : stripe(now, QStringLiteral("playing"));
    case Phase::paused:
        return now.isBatch ? interruptedRun(now) : stripe(now, QStringLiteral("paused"));
    case Phase::betweenItems:
        return pause(now);
    case Phase::awaitingReel:
        return reelDue(now);
    }
    return {};
}

} // namespace vexa
