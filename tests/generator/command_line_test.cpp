#include "generator/command_line.h"

#include <gmock/gmock.h>

#include <stdexcept>

using namespace vexa;
using testing::HasSubstr;

namespace {

TEST(CommandLine, RunsOnWhateverMidiThereIsByDefault) {
    const auto commandLine = readCommandLine({});
    EXPECT_EQ(commandLine.action, GeneratorCommandLine::Action::run);
    EXPECT_EQ(commandLine.midi, GeneratorMidi::automatic);
    EXPECT_EQ(commandLine.logFile, std::nullopt);
}

TEST(CommandLine, TakesValuesInEitherForm) {
    EXPECT_EQ(readCommandLine({"--midi", "alsa"}).midi, GeneratorMidi::alsa);
    const auto commandLine = readCommandLine({"--log=a file", "--midi=jack"});
    EXPECT_EQ(commandLine.midi, GeneratorMidi::jack);
    EXPECT_EQ(commandLine.logFile, "a file");
}

TEST(CommandLine, TakesALevelAndConnections) {
    EXPECT_EQ(readCommandLine({}).output.level, -18);
    EXPECT_THAT(readCommandLine({}).output.connections, testing::IsEmpty());
    EXPECT_EQ(readCommandLine({"--level", "-6.5"}).output.level, -6.5);
    EXPECT_EQ(readCommandLine({"--level=0"}).output.level, 0);
    EXPECT_THAT(readCommandLine({"--connect", "a:b", "--connect=c:d=e"}).output.connections,
                testing::ElementsAre("a:b", "c:d=e"));
}

TEST(CommandLine, HelpAndVersionAreActions) {
    EXPECT_EQ(readCommandLine({"--help"}).action, GeneratorCommandLine::Action::help);
    EXPECT_EQ(readCommandLine({"--midi", "jack", "--version"}).action,
              GeneratorCommandLine::Action::version);
}

struct Mistake {
    std::vector<std::string> arguments;
    const char* message;
};

class WrongArguments : public testing::TestWithParam<Mistake> {};

TEST_P(WrongArguments, AreNamed) {
    try {
        readCommandLine(GetParam().arguments);
        ADD_FAILURE() << "accepted";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), GetParam().message);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongArguments,
    testing::Values(Mistake{{"--midi", "oss"}, "--midi takes alsa or jack, not 'oss'"},
                    Mistake{{"--midi="}, "--midi takes alsa or jack, not ''"},
                    Mistake{{"--midi"}, "--midi needs a value"},
                    Mistake{{"--help", "--log"}, "--log needs a value"},
                    Mistake{{"--level", "1"}, "--level takes a number from -60 to 0, not '1'"},
                    Mistake{{"--level", "-61"}, "--level takes a number from -60 to 0, not '-61'"},
                    Mistake{{"--level", "nan"}, "--level takes a number from -60 to 0, not 'nan'"},
                    Mistake{{"--level", "-6dB"},
                            "--level takes a number from -60 to 0, not '-6dB'"},
                    Mistake{{"--level="}, "--level takes a number from -60 to 0, not ''"},
                    Mistake{{"--verbose"}, "unknown argument '--verbose'"},
                    Mistake{{"-x"}, "unknown argument '-x'"},
                    Mistake{{"--help=1"}, "unknown argument '--help=1'"},
                    Mistake{{"file"}, "unknown argument 'file'"}));

TEST(CommandLine, HelpNamesEveryOption) {
    for (const char* name : {"--midi", "--level", "--connect", "--log", "--help", "--version"})
        EXPECT_THAT(helpText(), HasSubstr(name));
}

} // namespace
