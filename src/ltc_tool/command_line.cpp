#include "ltc_tool/command_line.h"

#include "arguments/option_values.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace vexa::ltc_tool {

namespace {

using Action = CommandLine::Action;

enum Commands { ofRender = 1, ofCheck = 2, ofBoth = 3 };

/// An option in the table, which the reader and the help share.
struct Option {
    QString name;
    QString value; ///< its name in the help; null if the option has none
    QString help;
    Commands commands;
    std::function<void(CommandLine&, const QString& name, const QString& value)> take;
};

double numberFrom(const QString& option, const QString& text, double lowest, double highest) {
    bool isNumber = false;
    const auto number = text.toDouble(&isNumber);
    if (!isNumber || !(number >= lowest && number <= highest))
        throw Refusal{QStringLiteral("%1 takes a number from %2 to %3, not \"%4\"")
                          .arg(option, QString::number(lowest), QString::number(highest), text)};
    return number;
}

int wholeNumberFrom(const QString& option, const QString& text, int lowest, int highest) {
    const auto number = numberFrom(option, text, lowest, highest);
    if (number != std::floor(number))
        throw Refusal{QStringLiteral("%1 takes a whole number, not \"%2\"").arg(option, text)};
    return static_cast<int>(number);
}

int bitsFrom(const QString& option, const QString& text) {
    if (text != QLatin1String("16") && text != QLatin1String("24"))
        throw Refusal{QStringLiteral("%1 takes 16 or 24, not \"%2\"").arg(option, text)};
    return text.toInt();
}

QString q(const char* text) { return QString::fromLatin1(text); }

const std::vector<Option>& options() {
    using Line = CommandLine;
    using Text = const QString&;
    static const std::vector<Option> table{
        {q("--to"), q("FOLDER"), q("the folder for the files"), ofRender,
         [](Line& line, Text, Text value) { line.folder = value; }},
        {q("--reels"),
         {},
         q("a file for each reel, not for each row"),
         ofRender,
         [](Line& line, Text, Text) { line.filePerReel = true; }},
        {q("--pause"), q("SECONDS"), q("between rows of a reel (default: the preferences')"),
         ofRender,
         [](Line& line, Text name, Text value) { line.pause = numberFrom(name, value, 0, 3600); }},
        {q("--start"), q("TIME"), q("the first frame of a single file, hh:mm:ss:ff"), ofRender,
         [](Line& line, Text name, Text value) { line.start = timeFrom(name, value); }},
        {q("--stop"), q("TIME"), q("the frame after its last"), ofRender,
         [](Line& line, Text name, Text value) { line.stop = timeFrom(name, value); }},
        {q("--rate"), q("RATE"), oneOf(quoted(rateNames())) + q(" (default: 30 fps)"), ofRender,
         [](Line& line, Text name, Text value) { line.rate = rateCodeFrom(name, value); }},
        {q("--level"), q("DBFS"), q("the peak level, -60 to 0 (default: -18)"), ofRender,
         [](Line& line, Text name, Text value) {
             line.options.level = numberFrom(name, value, RenderOptions::lowestLevel, 0);
         }},
        {q("--clock"), q("HZ"), q("samples a second, 8000 to 192000 (default: 48000)"), ofRender,
         [](Line& line, Text name, Text value) {
             line.options.format.sampleRate =
                 static_cast<std::uint32_t>(wholeNumberFrom(name, value, 8000, 192000));
         }},
        {q("--bits"), q("BITS"), q("of a sample, 16 or 24 (default)"), ofRender,
         [](Line& line, Text name, Text value) {
             line.options.format.bits = bitsFrom(name, value);
         }},
        {q("--force"),
         {},
         q("replace files that exist"),
         ofRender,
         [](Line& line, Text, Text) { line.options.existing = Existing::replace; }},
        {q("--rows"), q("ROWS"), q("of the list, such as 1,3-5 (default: all)"), ofBoth,
         [](Line& line, Text name, Text value) { line.rows = rowsFrom(name, value); }},
        {q("--jack"),
         {},
         q("listen to a running JACK server until interrupted"),
         ofCheck,
         [](Line& line, Text, Text) { line.jack = true; }},
        {q("--connect"), q("PORT"), q("connect this JACK port to the input"), ofCheck,
         [](Line& line, Text, Text value) { line.port = value; }},
        {q("--channel"), q("N"), q("read this channel only (default: the one with most frames)"),
         ofCheck,
         [](Line& line, Text name, Text value) {
             line.channel = wholeNumberFrom(name, value, 1, 1024);
         }},
        {q("--speed"), q("PERCENT"), q("how far off a speed may be (default: 0.05)"), ofCheck,
         [](Line& line, Text name, Text value) {
             line.speedTolerance = numberFrom(name, value, 0, 100);
         }},
        {q("--csv"),
         {},
         q("comma-separated values instead of tables"),
         ofCheck,
         [](Line& line, Text, Text) { line.csv = true; }},
    };
    return table;
}

Action actionFrom(const QString& word) {
    if (word == QLatin1String("render"))
        return Action::render;
    if (word == QLatin1String("check"))
        return Action::check;
    throw Refusal{QStringLiteral("the first argument is render or check, not \"%1\"").arg(word)};
}

/// Removes an option and its value from the front of the arguments.
void takeOption(CommandLine& line, QStringList& arguments) {
    const auto argument = arguments.takeFirst();
    const auto name = argument.section(QLatin1Char('='), 0, 0);
    const auto command = line.action == Action::render ? ofRender : ofCheck;
    const auto found = std::ranges::find(options(), name, &Option::name);
    if (found == options().end())
        throw Refusal{QStringLiteral("unknown option \"%1\"").arg(name)};
    if ((found->commands & command) == 0)
        throw Refusal{QStringLiteral("%1 goes with %2")
                          .arg(name, q(found->commands == ofRender ? "render" : "check"))};
    if (found->value.isNull()) {
        if (argument != name)
            throw Refusal{QStringLiteral("%1 takes no value").arg(name)};
        return found->take(line, name, {});
    }
    if (argument == name && arguments.isEmpty())
        throw Refusal{QStringLiteral("%1 needs a value").arg(name)};
    found->take(line, name,
                argument == name ? arguments.takeFirst() : argument.mid(name.size() + 1));
}

void checkRender(const CommandLine& line) {
    if (line.files.size() != 1)
        throw Refusal{line.start ? q("render --start needs one file to write")
                                 : q("render needs one batch list, or --start and --stop")};
    if (line.start.has_value() != line.stop.has_value())
        throw Refusal{q("--start and --stop go together")};
    if (line.start && (!line.folder.isNull() || line.filePerReel || !line.rows.empty()))
        throw Refusal{q("--to, --reels and --rows go with a batch list")};
    if (!line.start && line.folder.isNull())
        throw Refusal{q("render needs a folder: --to")};
}

void checkCheck(const CommandLine& line) {
    if (!line.port.isNull() && !line.jack)
        throw Refusal{q("--connect goes with --jack")};
    if (line.channel && line.jack)
        throw Refusal{q("--channel goes with recordings")};
    if (line.files.isEmpty() && !line.jack)
        throw Refusal{q("check needs a recording, or --jack")};
}

} // namespace

CommandLine readCommandLine(const QStringList& arguments) {
    CommandLine line;
    if (arguments.contains(q("--help")) || arguments.contains(q("-h")))
        return line;
    if (arguments.contains(q("--version"))) {
        line.action = Action::version;
        return line;
    }
    if (arguments.isEmpty())
        throw Refusal{q("render or check? See --help")};
    line.action = actionFrom(arguments.constFirst());
    auto rest = arguments.mid(1);
    while (!rest.isEmpty()) {
        if (rest.constFirst() == QLatin1String("--")) {
            line.files += rest.mid(1);
            break;
        }
        if (rest.constFirst().startsWith(QLatin1String("--")))
            takeOption(line, rest);
        else
            line.files += rest.takeFirst();
    }
    line.action == Action::render ? checkRender(line) : checkCheck(line);
    return line;
}

QString helpText() {
    auto text =
        q("Usage: vexa-ltc render LIST --to FOLDER [OPTION]...\n"
          "       vexa-ltc render --start TIME --stop TIME [OPTION]... FILE\n"
          "       vexa-ltc check [OPTION]... [LIST] RECORDING...\n"
          "       vexa-ltc check --jack [OPTION]... [LIST]\n"
          "\n"
          "Linear timecode to file and back: renders a batch list into WAV files, and checks\n"
          "recordings against the list, row by row.\n");
    for (const auto commands : {ofRender, ofCheck, ofBoth}) {
        text += commands == ofRender  ? q("\nOptions of render:\n")
                : commands == ofCheck ? q("\nOptions of check:\n")
                                      : q("\nOptions of both:\n");
        for (const auto& option : options())
            if (option.commands == commands)
                text += QStringLiteral("  %1  %2\n")
                            .arg(option.name +
                                     (option.value.isNull() ? QString() : u' ' + option.value),
                                 -17)
                            .arg(option.help);
    }
    return text +
           q("\n"
             "  --help             show this text and exit\n"
             "  --version          show the version and exit\n"
             "\n"
             "Exit status: 0 if all is good; 1 if check found faults or no timecode, or render\n"
             "left something out; 2 if the arguments are wrong or a file cannot be read.\n");
}

} // namespace vexa::ltc_tool
