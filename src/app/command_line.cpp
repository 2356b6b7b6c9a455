#include "app/command_line.h"

#include "app/midi_choice.h"
#include "arguments/option_values.h"
#include "document/file_uris.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

namespace vexa {

namespace {

QStringList midiNames() {
    QStringList names;
    for (const auto& choice : midiChoices())
        names += QString::fromUtf8(choice.name.data(), static_cast<qsizetype>(choice.name.size()));
    return names;
}

const QCommandLineOption midiOption{
    QStringLiteral("midi"), QStringLiteral("MIDI system to use: %1.").arg(oneOf(midiNames())),
    QStringLiteral("system")};
const QCommandLineOption destinationOption{
    QStringLiteral("destination"),
    QStringLiteral("Destination: its position in the list, its ID, or any part of its name."),
    QStringLiteral("name")};
const QCommandLineOption destinationsOption{
    QStringLiteral("destinations"),
    QStringLiteral("List positions, IDs, names and whereabouts, and exit.")};
const QCommandLineOption stripeOption{QStringLiteral("stripe"),
                                      QStringLiteral("Stripe in the terminal, without a window.")};
const QCommandLineOption startOption{
    QStringLiteral("start"), QStringLiteral("Start time, hh:mm:ss:ff."), QStringLiteral("time")};
const QCommandLineOption stopOption{QStringLiteral("stop"),
                                    QStringLiteral("Stop time; without one, the stripe runs on."),
                                    QStringLiteral("time")};
const QCommandLineOption rateOption{
    QStringLiteral("rate"), QStringLiteral("Frame rate: %1.").arg(oneOf(quoted(rateNames()))),
    QStringLiteral("rate")};
const QCommandLineOption typeOption{QStringLiteral("type"),
                                    QStringLiteral("Sync type: %1.").arg(oneOf(syncTypeNames())),
                                    QStringLiteral("type")};
const QCommandLineOption rowsOption{QStringLiteral("rows"),
                                    QStringLiteral("Rows of the list to stripe, such as 1,3-5."),
                                    QStringLiteral("rows")};
const QCommandLineOption progressOption{
    QStringLiteral("progress"),
    QStringLiteral("How to show the progress: text, or json with one object per line."),
    QStringLiteral("form")};
const QCommandLineOption logOption{
    QStringLiteral("log"),
    QStringLiteral("Append a line of comma-separated values to this file as each row ends."),
    QStringLiteral("file")};
const QCommandLineOption importOption{
    QStringLiteral("import"),
    QStringLiteral("Add the rows of a file to a list: CSV, TSV, or a CMX 3600 edit list."),
    QStringLiteral("file")};
const QCommandLineOption toOption{
    QStringLiteral("to"), QStringLiteral("The list to import into; created if it does not exist."),
    QStringLiteral("list")};
const QCommandLineOption timesOption{
    QStringLiteral("times"),
    QStringLiteral("Times of an edit list to import: source (the reels') or record."),
    QStringLiteral("times")};
const QCommandLineOption checkOption{
    QStringLiteral("check"), QStringLiteral("Check the list: overlaps, times, rates, lengths.")};
const QCommandLineOption tapeOption{QStringLiteral("tape"),
                                    QStringLiteral("Length of a tape in minutes, for --check."),
                                    QStringLiteral("minutes")};
const QCommandLineOption helpOption{{QStringLiteral("h"), QStringLiteral("help")},
                                    QStringLiteral("Show this help, and exit.")};
const QCommandLineOption versionOption{QStringLiteral("version"),
                                       QStringLiteral("Show the version, and exit.")};

const QList<QCommandLineOption> timeOptions{startOption, stopOption};
const QList<QCommandLineOption> codeOptions{rateOption, typeOption};

void describeOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QStringLiteral("Remote control of a timecode generator over MIDI."));
    parser.addPositionalArgument(QStringLiteral("file"),
                                 QStringLiteral("Batch list to open, to --stripe or to --check."),
                                 QStringLiteral("[file]"));
    parser.addOptions({midiOption, destinationOption, destinationsOption, stripeOption, startOption,
                       stopOption, rateOption, typeOption, rowsOption, progressOption, logOption,
                       importOption, toOption, timesOption, checkOption, tapeOption, helpOption,
                       versionOption});
}

QString nameOf(const QCommandLineOption& option) {
    return QStringLiteral("--") + option.names().constLast();
}

const MidiChoice* midiNamed(const QString& name) {
    const auto choices = midiChoices();
    const auto found = std::ranges::find(choices, name.toStdString(), &MidiChoice::name);
    if (found != choices.end())
        return &*found;
    throw Refusal{QStringLiteral("--midi takes %1, not \"%2\"").arg(oneOf(midiNames()), name)};
}

CommandLine::Mode modeOf(const QCommandLineParser& parser) {
    if (parser.isSet(helpOption))
        return CommandLine::Mode::help;
    if (parser.isSet(versionOption))
        return CommandLine::Mode::version;
    if (parser.isSet(destinationsOption))
        return CommandLine::Mode::destinations;
    if (parser.isSet(importOption))
        return CommandLine::Mode::importRows;
    if (parser.isSet(checkOption))
        return CommandLine::Mode::checkList;
    return parser.isSet(stripeOption) ? CommandLine::Mode::stripe : CommandLine::Mode::window;
}

/// The argument may be a path or a URI; desktops pass either.
QString localPath(const QString& argument) {
    const bool isUri = argument.startsWith(QLatin1String("file:"));
    auto path = isUri ? firstLocalFile({QUrl(argument)}) : argument;
    if (path.isEmpty())
        throw Refusal{QStringLiteral("\"%1\" is not a file on this machine").arg(argument)};
    return path;
}

bool isJson(const QString& form) {
    if (form == QLatin1String("json"))
        return true;
    if (form == QLatin1String("text"))
        return false;
    throw Refusal{QStringLiteral("--progress takes text or json, not \"%1\"").arg(form)};
}

bool areOneFile(const QString& a, const QString& b) {
    const auto path = QFileInfo(a).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(b).canonicalFilePath();
}

bool recordTimesNamed(const QString& name) {
    if (name == QLatin1String("source") || name == QLatin1String("record"))
        return name == QLatin1String("record");
    throw Refusal{QStringLiteral("--times takes source or record, not \"%1\"").arg(name)};
}

std::uint64_t minutesFrom(const QString& text) {
    bool isNumber = false;
    const auto minutes = text.toUInt(&isNumber);
    if (!isNumber)
        throw Refusal{QStringLiteral("--tape takes a number of minutes, not \"%1\"").arg(text)};
    return minutes;
}

/// Refuses options that do not go with --import or --check, or that need them.
void checkListModes(const QCommandLineParser& parser, const CommandLine& line) {
    const bool imports = line.mode == CommandLine::Mode::importRows;
    const bool checks = line.mode == CommandLine::Mode::checkList;
    if ((imports || checks) && parser.isSet(stripeOption))
        throw Refusal{QStringLiteral("--stripe goes with neither --import nor --check")};
    if (imports != parser.isSet(toOption))
        throw Refusal{QStringLiteral("--import and --to go together")};
    if (imports && !parser.positionalArguments().isEmpty())
        throw Refusal{QStringLiteral("--import takes one file, and --to one list")};
    if (parser.isSet(timesOption) && !imports)
        throw Refusal{QStringLiteral("--times goes with --import")};
    if (parser.isSet(tapeOption) && !checks)
        throw Refusal{QStringLiteral("--tape goes with --check")};
    if (checks && line.file.isNull())
        throw Refusal{QStringLiteral("--check needs a batch list")};
}

void checkCombination(const QCommandLineParser& parser, const CommandLine& line) {
    const bool stripes = line.mode == CommandLine::Mode::stripe;
    if (stripes && line.file.isNull() && !line.start)
        throw Refusal{QStringLiteral("--stripe needs a --start time, or a batch list")};
    const bool imports = line.mode == CommandLine::Mode::importRows;
    const bool stripesOne = stripes && line.file.isNull();
    for (const auto& option : imports ? timeOptions : timeOptions + codeOptions)
        if (parser.isSet(option) && !stripesOne)
            throw Refusal{
                QStringLiteral("%1 goes with --stripe%2")
                    .arg(nameOf(option), stripes ? QStringLiteral(" without a file") : QString())};
    for (const auto& option : {progressOption, logOption})
        if (parser.isSet(option) && !stripes)
            throw Refusal{QStringLiteral("%1 goes with --stripe").arg(nameOf(option))};
    if (areOneFile(line.log, line.file))
        throw Refusal{QStringLiteral("--log would write to the batch list")};
    if (parser.isSet(rowsOption) && (!stripes || line.file.isNull()))
        throw Refusal{QStringLiteral("--rows goes with --stripe and a batch list")};
}

CommandLine interpreted(const QCommandLineParser& parser) {
    CommandLine line;
    line.mode = modeOf(parser);
    const auto files = parser.positionalArguments();
    if (files.size() > 1)
        throw Refusal{QStringLiteral("one file at most, but there is also \"%1\"").arg(files[1])};
    if (!files.isEmpty())
        line.file = localPath(files.constFirst());
    if (parser.isSet(midiOption))
        line.midi = midiNamed(parser.value(midiOption));
    if (parser.isSet(destinationOption))
        line.destination = parser.value(destinationOption);
    if (parser.isSet(startOption))
        line.start = timeFrom(nameOf(startOption), parser.value(startOption));
    if (parser.isSet(stopOption))
        line.stop = timeFrom(nameOf(stopOption), parser.value(stopOption));
    if (parser.isSet(rateOption))
        line.rate = rateCodeFrom(nameOf(rateOption), parser.value(rateOption));
    if (parser.isSet(typeOption))
        line.type = syncTypeCodeFrom(nameOf(typeOption), parser.value(typeOption));
    if (parser.isSet(rowsOption))
        line.rows = rowsFrom(nameOf(rowsOption), parser.value(rowsOption));
    if (parser.isSet(progressOption))
        line.progressAsJson = isJson(parser.value(progressOption));
    if (parser.isSet(logOption))
        line.log = parser.value(logOption);
    if (parser.isSet(importOption))
        line.importFile = localPath(parser.value(importOption));
    if (parser.isSet(toOption))
        line.file = localPath(parser.value(toOption));
    if (parser.isSet(timesOption))
        line.recordTimes = recordTimesNamed(parser.value(timesOption));
    if (parser.isSet(tapeOption))
        line.tapeMinutes = minutesFrom(parser.value(tapeOption));
    checkListModes(parser, line);
    checkCombination(parser, line);
    if (line.start && line.stop && pack(*line.stop) <= pack(*line.start))
        throw Refusal{QStringLiteral("--stop must be after --start")};
    return line;
}

} // namespace

std::variant<CommandLine, CommandLineError> parseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    describeOptions(parser);
    if (!parser.parse(QStringList{QStringLiteral("vexa-remote")} + arguments))
        return CommandLineError{parser.errorText()};
    try {
        return interpreted(parser);
    } catch (const Refusal& refusal) {
        return CommandLineError{refusal.message};
    }
}

QString commandLineHelp() {
    QCommandLineParser parser;
    describeOptions(parser);
    return parser.helpText();
}

} // namespace vexa
