#include "app/run_report.h"

#include "text/duration_text.h"
#include "text/printable.h"
#include "timecode/sync_type.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace vexa {

namespace {

QString timeText(std::uint64_t packed) {
    return VexaBatchStripeData::timecodeStringFromBCDNumber(packed);
}
std::string plainTime(std::uint64_t packed) { return timeText(packed).toStdString(); }

QString json(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The current item or, if none is playing, the next; null if there is none.
BatchItemRef itemToTellOf(const StripeRun& run) {
    switch (run.progress().phase) {
    case Phase::betweenItems:
        return run.items().upcoming();
    case Phase::awaitingReel:
        return run.awaited();
    default:
        return run.progress().item;
    }
}

std::string timesText(const RunReport& report) {
    if (!report.itemLeft)
        return {};
    auto left = "  " + timeLeftText(*report.itemLeft) + " left";
    if (report.item && report.runLeft.time)
        left += ", " + timeLeftText(*report.runLeft.time) + " of the run";
    if (report.runLeft.reelChanges != 0)
        left += " + reel changes";
    return left;
}

std::string itemText(const RunReport::Item& item) {
    const auto title = printable(item.title.toStdString());
    return "  item " + std::to_string(item.number) + " of " + std::to_string(item.count) + ": " +
           (title.empty() ? "(no title)" : title);
}

QString stateName(Phase phase) {
    switch (phase) {
    case Phase::stopped:
        break;
    case Phase::running:
        return QStringLiteral("playing");
    case Phase::paused:
        return QStringLiteral("paused");
    case Phase::betweenItems:
        return QStringLiteral("between items");
    case Phase::awaitingReel:
        return QStringLiteral("reel due");
    }
    return QStringLiteral("stopped");
}

void insert(QJsonObject& object, const char* key, const std::optional<RunLoop::Seconds>& time) {
    if (time)
        object[QLatin1String(key)] = time->count();
}

void insert(QJsonObject& object, const RunReport::Item& item) {
    object[QLatin1String("item")] = static_cast<qint64>(item.number);
    object[QLatin1String("items")] = static_cast<qint64>(item.count);
    object[QLatin1String("reel")] = static_cast<qint64>(item.reel);
    object[QLatin1String("title")] = item.title;
}

void insert(QJsonObject& object, const DestinationStatus& status) {
    using Presence = DestinationStatus::Presence;
    if (status.presence == Presence::there || status.presence == Presence::away) {
        object[QLatin1String("destination")] = json(status.name);
        object[QLatin1String("destinationThere")] = status.presence == Presence::there;
    }
    if (status.sent)
        object[QLatin1String("sent")] = json(messageText(*status.sent));
}

} // namespace

RunReport reportOf(const StripeRun& run, RunTimes& times) {
    const auto& plan = run.plan();
    RunReport report{.phase = run.progress().phase,
                     .settings = plan.settings,
                     .hasStop = plan.useBatch || plan.stopTimeSet,
                     .time = run.currentTime(),
                     .itemLeft = times.leftOfItem(),
                     .pauseLeft = run.pauseLeft(),
                     .runLeft = times.leftOfRun()};
    const auto item = itemToTellOf(run);
    if (!item)
        return report;
    const bool isNext = report.phase == Phase::betweenItems;
    report.settings = {item->start, item->stop, item->rate, item->type};
    report.item = {run.items().row() + (isNext ? 2 : 1), run.items().count(), item->reel,
                   item->title};
    return report;
}

std::string progressText(const RunReport& report) {
    const auto& [start, stop, rate, type] = report.settings;
    return plainTime(report.time) + timesText(report) +
           (report.item ? itemText(*report.item) : "") + "  " + plainTime(start) +
           (report.hasStop ? " to " + plainTime(stop) : " on") + ", " +
           std::string(frameRateForCode(rate).name) + ", " + std::string(syncTypeName(type));
}

QByteArray progressJson(const RunReport& report, const DestinationStatus& destination) {
    QJsonObject object{
        {QStringLiteral("state"), stateName(report.phase)},
        {QStringLiteral("time"), timeText(report.time)},
        {QStringLiteral("start"), timeText(report.settings.startTime)},
        {QStringLiteral("rate"), json(frameRateForCode(report.settings.frameRate).name)},
        {QStringLiteral("type"), json(syncTypeName(report.settings.syncType))},
    };
    if (report.hasStop)
        object[QLatin1String("stop")] = timeText(report.settings.stopTime);
    if (report.item)
        insert(object, *report.item);
    insert(object, "itemLeft", report.itemLeft);
    insert(object, "pauseLeft", report.pauseLeft);
    insert(object, "runLeft", report.runLeft.time);
    if (report.runLeft.time)
        object[QLatin1String("reelChanges")] = static_cast<qint64>(report.runLeft.reelChanges);
    insert(object, destination);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace vexa
