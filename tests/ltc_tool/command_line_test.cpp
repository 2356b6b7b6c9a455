#include "arguments/option_values.h"
#include "ltc_tool/command_line.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::ltc_tool;
using namespace Qt::StringLiterals;

namespace {

CommandLine accepted(const QString& words) { return readCommandLine(words.split(u' ')); }

TEST(LtcCommandLine, RendersAList) {
    const auto line = accepted(u"render a.vexaB --to tapes --reels --rows 1,3 --level=-10.5 "
                               "--clock 96000 --bits 16 --pause 2.5 --force"_s);
    EXPECT_EQ(line.action, CommandLine::Action::render);
    EXPECT_EQ(line.files, QStringList(u"a.vexaB"_s));
    EXPECT_EQ(line.folder, u"tapes"_s);
    EXPECT_TRUE(line.filePerReel);
    EXPECT_EQ(line.rows, (std::set<std::size_t>{0, 2}));
    EXPECT_EQ(line.options.level, -10.5);
    EXPECT_EQ(line.options.format.sampleRate, 96000U);
    EXPECT_EQ(line.options.format.bits, 16);
    EXPECT_EQ(line.pause, 2.5);
    EXPECT_EQ(line.options.existing, Existing::replace);
}

TEST(LtcCommandLine, HasDefaults) {
    const auto line = accepted(u"render a.vexaB --to tapes"_s);
    EXPECT_FALSE(line.filePerReel);
    EXPECT_TRUE(line.rows.empty());
    EXPECT_EQ(line.options.level, -18);
    EXPECT_EQ(line.options.format.sampleRate, 48000U);
    EXPECT_EQ(line.options.format.bits, 24);
    EXPECT_FALSE(line.pause);
    EXPECT_EQ(line.options.existing, Existing::keep);
}

TEST(LtcCommandLine, RendersASingleStripe) {
    const auto line =
        accepted(u"render --start 01:00:00:00 --stop 01:00:10:00 --rate 30df out.wav"_s);
    EXPECT_EQ(line.start, (Timecode{1, 0, 0, 0}));
    EXPECT_EQ(line.stop, (Timecode{1, 0, 10, 0}));
    EXPECT_EQ(line.rate, rate::fps30Drop);
    EXPECT_EQ(line.files, QStringList(u"out.wav"_s));
}

TEST(LtcCommandLine, ChecksRecordings) {
    const auto line = accepted(u"check --csv --channel 2 --speed 0.2 a.vexaB b.wav -- --c.wav"_s);
    EXPECT_EQ(line.action, CommandLine::Action::check);
    EXPECT_TRUE(line.csv);
    EXPECT_EQ(line.channel, 2);
    EXPECT_EQ(line.speedTolerance, 0.2);
    EXPECT_EQ(line.files, (QStringList{u"a.vexaB"_s, u"b.wav"_s, u"--c.wav"_s}));
    EXPECT_EQ(accepted(u"check --jack --connect a:b"_s).port, u"a:b"_s);
}

TEST(LtcCommandLine, ShowsHelpAndVersion) {
    EXPECT_EQ(accepted(u"--help"_s).action, CommandLine::Action::help);
    EXPECT_EQ(accepted(u"check --nonsense --help"_s).action, CommandLine::Action::help);
    EXPECT_EQ(accepted(u"--version"_s).action, CommandLine::Action::version);
}

TEST(LtcCommandLine, HelpNamesEveryRate) {
    for (const auto& name : quoted(rateNames()))
        EXPECT_TRUE(helpText().contains(name)) << name.toStdString();
}

TEST(LtcCommandLine, RefusesWhatItCannotDo) {
    const struct {
        QString words;
        std::string message;
    } cases[] = {
        {u"stripe"_s, "the first argument is render or check, not \"stripe\""},
        {u"render --to a"_s, "render needs one batch list, or --start and --stop"},
        {u"render a b --to c"_s, "render needs one batch list, or --start and --stop"},
        {u"render a"_s, "render needs a folder: --to"},
        {u"render a --to"_s, "--to needs a value"},
        {u"render a --to b --reels=yes"_s, "--reels takes no value"},
        {u"render a --to b --csv"_s, "--csv goes with check"},
        {u"check a --force"_s, "--force goes with render"},
        {u"check a --loud"_s, "unknown option \"--loud\""},
        {u"render --start 01:00:00:00 a"_s, "--start and --stop go together"},
        {u"render --start 01:00:00:00 --stop 01:00:00:01"_s,
         "render --start needs one file to write"},
        {u"render --start 01:00:00:00 --stop 01:00:00:01 --to a b"_s,
         "--to, --reels and --rows go with a batch list"},
        {u"render a --to b --level 3"_s, "--level takes a number from -60 to 0, not \"3\""},
        {u"render a --to b --level nan"_s, "--level takes a number from -60 to 0, not \"nan\""},
        {u"render a --to b --clock 44100.5"_s, "--clock takes a whole number, not \"44100.5\""},
        {u"render a --to b --bits 8"_s, "--bits takes 16 or 24, not \"8\""},
        {u"check"_s, "check needs a recording, or --jack"},
        {u"check a --connect b"_s, "--connect goes with --jack"},
        {u"check --jack --channel 1"_s, "--channel goes with recordings"},
    };
    for (const auto& each : cases) {
        std::string message = "none";
        try {
            accepted(each.words);
        } catch (const Refusal& refusal) {
            message = refusal.message.toStdString();
        }
        EXPECT_EQ(message, each.message);
    }
}

} // namespace
