#include "generator/command_line.h"

#include <gmock/gmock.h>

#include <stdexcept>

using namespace vexa;
using testing::HasSubstr;

namespace {

TEST(CommandLine, RunsOnWhateverMidiThereIsByDefault) {
    const auto commandLine = readCommandLine({});
    EXPECT_EQ(commandLine.action, CommandLine::Action::Run);
    EXPECT_EQ(commandLine.midi, MidiChoice::Automatic);
    EXPECT_EQ(commandLine.logFile, std::nullopt);
}

TEST(CommandLine, TakesValuesInEitherForm) {
    EXPECT_EQ(readCommandLine({"--midi", "alsa"}).midi, MidiChoice::Alsa);
    const auto commandLine = readCommandLine({"--log=a file", "--midi=jack"});
    EXPECT_EQ(commandLine.midi, MidiChoice::Jack);
    EXPECT_EQ(commandLine.logFile, "a file");
}

TEST(CommandLine, HelpAndVersionAreActions) {
    EXPECT_EQ(readCommandLine({"--help"}).action, CommandLine::Action::Help);
    EXPECT_EQ(readCommandLine({"--midi", "jack", "--version"}).action,
              CommandLine::Action::Version);
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

INSTANTIATE_TEST_SUITE_P(All, WrongArguments,
                         testing::Values(Mistake{{"--midi", "oss"},
                                                 "--midi takes alsa or jack, not 'oss'"},
                                         Mistake{{"--midi="}, "--midi takes alsa or jack, not ''"},
                                         Mistake{{"--midi"}, "--midi needs a value"},
                                         Mistake{{"--help", "--log"}, "--log needs a value"},
                                         Mistake{{"--verbose"}, "unknown argument '--verbose'"},
                                         Mistake{{"-x"}, "unknown argument '-x'"},
                                         Mistake{{"--help=1"}, "unknown argument '--help=1'"},
                                         Mistake{{"file"}, "unknown argument 'file'"}));

TEST(CommandLine, HelpNamesEveryOption) {
    for (const char* name : {"--midi", "--log", "--help", "--version"})
        EXPECT_THAT(helpText(), HasSubstr(name));
}

} // namespace
