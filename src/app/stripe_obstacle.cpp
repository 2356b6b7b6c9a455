#include "app/stripe_obstacle.h"

#include "defaults/user_defaults.h"
#include "document/list_file.h"
#include "timecode/frame_rate.h"

#include <QFileInfo>

namespace vexa {

namespace {

using Obstacle = std::optional<CommandLineError>;

Obstacle obstacleInTime(const char* what, const Timecode& time, const FrameRate& rate) {
    if (isValid(time, rate))
        return {};
    return CommandLineError{QStringLiteral("there is no %1 time %2 at %3")
                                .arg(QString::fromLatin1(what),
                                     QString::fromStdString(timecodeText(time)),
                                     QString::fromStdString(std::string(rate.name)))};
}

Obstacle obstacleInTimes(const CommandLine& line) {
    const auto standard = defaults::read().defaultFrameRate.value_or(rate::fps30);
    const auto& rate = frameRateForCode(line.rate.value_or(standard));
    auto obstacle = obstacleInTime("start", *line.start, rate);
    if (!obstacle && line.stop)
        obstacle = obstacleInTime("stop", *line.stop, rate);
    return obstacle;
}

Obstacle obstacleInList(const CommandLine& line) {
    const QFileInfo file(line.file);
    const auto isWrong = [&line](const QString& fault) {
        return CommandLineError{QStringLiteral("\"%1\" %2").arg(line.file, fault)};
    };
    if (!file.exists())
        return isWrong(QStringLiteral("does not exist"));
    if (!file.isFile())
        return isWrong(QStringLiteral("is not a file"));
    if (!file.isReadable())
        return isWrong(QStringLiteral("cannot be read"));
    const auto items = readListFile(line.file).size();
    if (items == 0)
        return isWrong(QStringLiteral("is not a batch list, or is empty"));
    if (!line.rows.empty() && *line.rows.rbegin() >= items)
        return isWrong(QStringLiteral("has %1 rows: there is no row %2")
                           .arg(QString::number(items), QString::number(*line.rows.rbegin() + 1)));
    return {};
}

} // namespace

std::optional<CommandLineError> obstacleToStripe(const CommandLine& line) {
    return line.file.isNull() ? obstacleInTimes(line) : obstacleInList(line);
}

} // namespace vexa
