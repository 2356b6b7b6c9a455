#include "app/command_line.h"
#include "app/midi_choice.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

#include <gmock/gmock.h>

using namespace vexa;
using testing::HasSubstr;

namespace {

QStringList words(std::initializer_list<const char*> arguments) {
    QStringList list;
    for (const auto* argument : arguments)
        list += QString::fromUtf8(argument);
    return list;
}

CommandLine accepted(std::initializer_list<const char*> arguments) {
    const auto parsed = parseCommandLine(words(arguments));
    if (const auto* error = std::get_if<CommandLineError>(&parsed))
        ADD_FAILURE() << error->message.toStdString();
    const auto* line = std::get_if<CommandLine>(&parsed);
    return line ? *line : CommandLine{};
}

TEST(CommandLine, WithoutArgumentsOpensTheWindow) {
    const auto line = accepted({});
    EXPECT_EQ(line.mode, CommandLine::Mode::window);
    EXPECT_EQ(line.midi, nullptr);
    EXPECT_FALSE(line.destination);
}

TEST(CommandLine, ReadsAWholeStripe) {
    const auto line =
        accepted({"--stripe", "--start", "01:02:03:04", "--stop", "02:00:00:00", "--rate", "25 fps",
                  "--type", "DTL", "--destination", "Box", "--midi", "jack"});
    EXPECT_EQ(line.mode, CommandLine::Mode::stripe);
    EXPECT_EQ(line.start, (Timecode{1, 2, 3, 4}));
    EXPECT_EQ(line.stop, (Timecode{2, 0, 0, 0}));
    EXPECT_EQ(line.rate, rate::fps25);
    EXPECT_EQ(line.type, sync::dtl);
    EXPECT_EQ(line.destination, QStringLiteral("Box"));
    ASSERT_TRUE(line.midi);
    EXPECT_EQ(line.midi->name, "jack");
}

TEST(CommandLine, NamesOfRatesAndTypesAreFreeInBlanksAndCase) {
    const auto rateOf = [](const char* name) {
        return accepted({"--stripe", "--start=01:00:00:00", "--rate", name}).rate;
    };
    EXPECT_EQ(rateOf("24 fps"), rate::fps24);
    EXPECT_EQ(rateOf("30fps"), rate::fps30);
    EXPECT_EQ(rateOf("25"), rate::fps25);
    EXPECT_EQ(rateOf("30"), rate::fps30);
    EXPECT_EQ(rateOf("30 DF"), rate::fps30Drop);
    EXPECT_EQ(accepted({"--stripe", "--start=01:00:00:00", "--type", "fsk"}).type, sync::fsk);
}

TEST(CommandLine, ReadsAListAndItsRows) {
    EXPECT_EQ(accepted({"My list.vexaB"}).file, QStringLiteral("My list.vexaB"));
    EXPECT_EQ(accepted({"file:///tmp/100%25%20%23.vexaB"}).file,
              QStringLiteral("/tmp/100% #.vexaB"));
    EXPECT_EQ(accepted({"file://localhost/tmp/a.vexaB"}).file, QStringLiteral("/tmp/a.vexaB"));
    const auto line = accepted({"--stripe", "a.vexaB", "--rows", "1,3-5,4"});
    EXPECT_EQ(line.mode, CommandLine::Mode::stripe);
    EXPECT_EQ(line.rows, (RowIndexes{0, 2, 3, 4}));
    EXPECT_FALSE(line.progressAsJson);
    EXPECT_TRUE(line.log.isNull());
    const auto told = accepted({"--stripe", "a.vexaB", "--progress", "json", "--log", "a.csv"});
    EXPECT_TRUE(told.progressAsJson);
    EXPECT_EQ(told.log, QStringLiteral("a.csv"));
}

TEST(CommandLine, KnowsItsOtherModes) {
    EXPECT_EQ(accepted({"--help"}).mode, CommandLine::Mode::help);
    EXPECT_EQ(accepted({"-h"}).mode, CommandLine::Mode::help);
    EXPECT_EQ(accepted({"--version"}).mode, CommandLine::Mode::version);
    EXPECT_EQ(accepted({"--destinations", "--midi", "alsa"}).mode, CommandLine::Mode::destinations);
}

TEST(CommandLine, ReadsAnImport) {
    const auto line = accepted({"--import", "cues.csv", "--to", "file:///tmp/a.vexaB", "--rate",
                                "25", "--type", "DTL", "--times", "record"});
    EXPECT_EQ(line.mode, CommandLine::Mode::importRows);
    EXPECT_EQ(line.importFile, QStringLiteral("cues.csv"));
    EXPECT_EQ(line.file, QStringLiteral("/tmp/a.vexaB"));
    EXPECT_EQ(line.rate, rate::fps25);
    EXPECT_EQ(line.type, sync::dtl);
    EXPECT_TRUE(line.recordTimes);
    EXPECT_FALSE(accepted({"--import", "cues.csv", "--to", "a", "--times", "source"}).recordTimes);
}

TEST(CommandLine, ReadsACheck) {
    const auto line = accepted({"--check", "a.vexaB", "--tape", "62"});
    EXPECT_EQ(line.mode, CommandLine::Mode::checkList);
    EXPECT_EQ(line.file, QStringLiteral("a.vexaB"));
    EXPECT_EQ(line.tapeMinutes, 62u);
    EXPECT_EQ(accepted({"--check", "a.vexaB"}).tapeMinutes, 0u);
}

struct Wrong {
    std::vector<const char*> arguments;
    const char* message;
};

class WrongArguments : public testing::TestWithParam<Wrong> {};

TEST_P(WrongArguments, GetOneLineThatSaysWhat) {
    QStringList arguments;
    for (const auto* argument : GetParam().arguments)
        arguments += QString::fromUtf8(argument);
    const auto parsed = parseCommandLine(arguments);
    const auto* error = std::get_if<CommandLineError>(&parsed);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->message.toStdString(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, WrongArguments,
    testing::Values(
        Wrong{{"--fast"}, "Unknown option 'fast'."},
        Wrong{{"--midi"}, "Missing value after '--midi'."},
        Wrong{{"--midi", "oss"}, "--midi takes alsa, jack or none, not \"oss\""},
        Wrong{{"--stripe"}, "--stripe needs a --start time, or a batch list"},
        Wrong{{"--import", "a.csv"}, "--import and --to go together"},
        Wrong{{"--to", "a.vexaB"}, "--import and --to go together"},
        Wrong{{"--import", "a.csv", "--to", "a.vexaB", "b.vexaB"},
              "--import takes one file, and --to one list"},
        Wrong{{"--import", "a.csv", "--to", "a.vexaB", "--times", "both"},
              "--times takes source or record, not \"both\""},
        Wrong{{"--import", "a.csv", "--to", "a.vexaB", "--start", "01:00:00:00"},
              "--start goes with --stripe"},
        Wrong{{"--stripe", "--check", "a.vexaB"},
              "--stripe goes with neither --import nor --check"},
        Wrong{{"--times", "source"}, "--times goes with --import"},
        Wrong{{"--tape", "60"}, "--tape goes with --check"},
        Wrong{{"--check", "a.vexaB", "--tape", "long"},
              "--tape takes a number of minutes, not \"long\""},
        Wrong{{"--check"}, "--check needs a batch list"},
        Wrong{{"--check", "a.vexaB", "--rate", "25"}, "--rate goes with --stripe"},
        Wrong{{"a.vexaB", "b.vexaB"}, "one file at most, but there is also \"b.vexaB\""},
        Wrong{{""}, "\"\" is not a file on this machine"},
        Wrong{{"--stripe", ""}, "\"\" is not a file on this machine"},
        Wrong{{"file://elsewhere.example.org/a.vexaB"},
              "\"file://elsewhere.example.org/a.vexaB\" is not a file on this machine"},
        Wrong{{"file:///caf%E9.vexaB"}, "\"file:///caf%E9.vexaB\" is not a file on this machine"},
        Wrong{{"--stripe", "a.vexaB", "--start", "01:00:00:00"},
              "--start goes with --stripe without a file"},
        Wrong{{"a.vexaB", "--rows", "1"}, "--rows goes with --stripe and a batch list"},
        Wrong{{"a.vexaB", "--progress", "json"}, "--progress goes with --stripe"},
        Wrong{{"a.vexaB", "--log", "a.csv"}, "--log goes with --stripe"},
        Wrong{{"--stripe", "a.vexaB", "--progress", "xml"},
              "--progress takes text or json, not \"xml\""},
        Wrong{{"--stripe", "/", "--log", "/."}, "--log would write to the batch list"},
        Wrong{{"--stripe", "a.vexaB", "--rows", "0"},
              "--rows: \"0\" is not a list of rows such as 1,3-5"},
        Wrong{{"--stripe", "a.vexaB", "--rows", "3-1"},
              "--rows: \"3-1\" is not a list of rows such as 1,3-5"},
        Wrong{{"--stripe", "a.vexaB", "--rows", "1-2-3"},
              "--rows: \"1-2-3\" is not a list of rows such as 1,3-5"},
        Wrong{{"--stripe", "a.vexaB", "--rows", "1-4000000000"},
              "--rows: \"1-4000000000\" is not a list of rows such as 1,3-5"},
        Wrong{{"--stripe", "a.vexaB", "--rows", ""},
              "--rows: \"\" is not a list of rows such as 1,3-5"},
        Wrong{{"--stripe", "--start", "1:00"},
              "--start: \"1:00\" is not a time of the form hh:mm:ss:ff"},
        Wrong{{"--stripe", "--start", "01:00:00:00", "--stop", "x"},
              "--stop: \"x\" is not a time of the form hh:mm:ss:ff"},
        Wrong{{"--stripe", "--start", "01:00:00:00", "--stop", "01:00:00:00"},
              "--stop must be after --start"},
        Wrong{{"--stripe", "--start", "01:00:00:00", "--rate", "29.97"},
              "--rate takes 24 fps, 25 fps, 30 fps or 30 df, not \"29.97\""},
        Wrong{{"--stripe", "--start", "01:00:00:00", "--rate", "fps"},
              "--rate takes 24 fps, 25 fps, 30 fps or 30 df, not \"fps\""},
        Wrong{{"--stripe", "--start", "01:00:00:00", "--type", "LTC"},
              "--type takes MTC, DTL or FSK, not \"LTC\""},
        Wrong{{"--start", "01:00:00:00"}, "--start goes with --stripe"},
        Wrong{{"--rate", "25 fps"}, "--rate goes with --stripe"}));

TEST(CommandLineHelp, NamesEveryRateAndType) {
    const auto help = commandLineHelp().simplified().toStdString();
    for (const auto& rate : frameRates)
        EXPECT_THAT(help, HasSubstr('"' + std::string(rate.name) + '"'));
    for (std::uint64_t code = 0; code < sync::count; ++code)
        EXPECT_THAT(help, HasSubstr(std::string(syncTypeName(code))));
}

} // namespace
