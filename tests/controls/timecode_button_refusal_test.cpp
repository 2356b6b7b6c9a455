#include "controls/TimecodeButtonTest.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

using TimecodeButton = TimecodeButtonTest;

struct Entry {
    std::uint64_t rate;
    const char* digits;
    bool accepted;
    const char* fieldsAfter;
};

class Validation : public TimecodeButton, public testing::WithParamInterface<Entry> {};

TEST_P(Validation, WritesFieldsAsItGoesAndStopsAtTheFirstBadOne) {
    const auto& given = GetParam();
    rig.controller.setFrameRate(given.rate);
    button.setBcdValue(tc("01:02:03:04"));
    button.setState(1);
    type(given.digits);
    EXPECT_EQ(button.handleKey(QStringLiteral("\r")), given.accepted);
    EXPECT_EQ(timecodeText(button.bcdValue()), given.fieldsAfter);
    EXPECT_EQ(button.state(), given.accepted ? 0 : 1);
    EXPECT_EQ(title(), given.accepted ? given.fieldsAfter : "01:02:03:04");
    EXPECT_EQ(committed(), tc(given.accepted ? given.fieldsAfter : "01:00:00:00"));
}

INSTANTIATE_TEST_SUITE_P(Entries, Validation,
                         testing::Values(Entry{rate::fps30, "23595929", true, "23:59:59:29"},
                                         Entry{rate::fps30, "24000000", false, "24:02:03:04"},
                                         Entry{rate::fps30, "00600000", false, "00:60:03:04"},
                                         Entry{rate::fps30, "00006000", false, "00:00:60:04"},
                                         Entry{rate::fps30, "00000030", false, "00:00:00:30"},
                                         Entry{rate::fps30, "99999999", false, "99:02:03:04"},
                                         Entry{rate::fps25, "00000025", false, "00:00:00:25"},
                                         Entry{rate::fps25, "00000024", true, "00:00:00:24"},
                                         Entry{rate::fps24, "00000024", false, "00:00:00:24"},
                                         Entry{rate::fps30Drop, "00010000", false, "00:01:00:00"},
                                         Entry{rate::fps30Drop, "00010001", false, "00:01:00:01"},
                                         Entry{rate::fps30Drop, "00010002", true, "00:01:00:02"},
                                         Entry{rate::fps30Drop, "00100000", true, "00:10:00:00"},
                                         Entry{rate::fps30Drop, "00010100", true, "00:01:01:00"}));

TEST_F(TimecodeButton, AnInvalidEntryCannotBeSwitchedOff) {
    button.setState(1);
    type("24000000");
    button.setState(0);
    EXPECT_EQ(button.state(), 1);
    EXPECT_EQ(entry(), "24:00:00:00");
    EXPECT_EQ(button.hours(), 24u);
    type("\x08\x08\x08\x08\x08\x08\x08");
    EXPECT_EQ(entry(), "00:00:00:02");
    button.setState(0);
    EXPECT_EQ(committed(), tc("00:00:00:02"));
}

struct Refusal {
    const char* digits;
    const char* reason;
};

class RefusedTime : public TimecodeButton, public testing::WithParamInterface<Refusal> {};

TEST_P(RefusedTime, SaysWhyToAssistiveTechnologyUntilItIsTypedAfresh) {
    rig.controller.setFrameRate(rate::fps25);
    button.setState(1);
    type(GetParam().digits);
    const auto shown = button.accessibleDescription();
    EXPECT_FALSE(button.handleKey(QStringLiteral("\r")));
    EXPECT_EQ(button.refusal().toStdString(), GetParam().reason);
    EXPECT_EQ(button.accessibleDescription(), shown + QStringLiteral(", ") + button.refusal());
    button.setState(0);
    EXPECT_FALSE(button.refusal().isEmpty());
    type("8");
    EXPECT_EQ(button.refusal(), QString());
    EXPECT_EQ(button.accessibleDescription(), button.alternateTitle());
}

INSTANTIATE_TEST_SUITE_P(Digits, RefusedTime,
                         testing::Values(Refusal{"24000000", "no hour 24"},
                                         Refusal{"99999999", "no hour 99"},
                                         Refusal{"00600000", "no minute 60"},
                                         Refusal{"00007500", "no second 75"},
                                         Refusal{"00000059", "no frame 59 at 25 fps"}));

TEST_F(TimecodeButton, BegunAfreshItIsClearedByTheNextDigitOnly) {
    button.setState(1);
    type("5959");
    EXPECT_FALSE(button.handleKey(QStringLiteral("\r")));
    button.beginAfresh();
    EXPECT_EQ(entry(), "00:00:59:59");
    type("1100000");
    EXPECT_EQ(entry(), "01:10:00:00");
}

} // namespace
