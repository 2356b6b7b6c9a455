#include "defaults/user_defaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

struct UserDefaults : testing::Test {
    UserDefaults() {
        QFile::remove(path());
        // Two files of one size written within a millisecond look the same to the reader.
        EXPECT_FALSE(defaults::number(defaults::delayKey));
    }
    ~UserDefaults() override { QFile::remove(path()); }

    static QString path() {
        return qEnvironmentVariable("XDG_CONFIG_HOME") +
               QStringLiteral("/vexa-remote/vexa-remote.ini");
    }
    static void writeFile(const QByteArray& content) {
        QDir().mkpath(QFileInfo(path()).path());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    static QByteArray fileContent() {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(UserDefaults, AnAbsentKeyGivesNothing) {
    EXPECT_EQ(defaults::number(defaults::delayKey), std::nullopt);
    EXPECT_EQ(defaults::integer(defaults::midiDestinationKey), std::nullopt);
}

TEST_F(UserDefaults, WhatIsWrittenIsOnDiskAtOnce) {
    defaults::setReal("vexadelay", 7.5);
    defaults::setInteger("vexamididest", -2147483647 - 1);
    defaults::setBoolean("vexapauseforreel", false);
    EXPECT_TRUE(fileContent().contains("vexadelay=7.5"));
    EXPECT_TRUE(fileContent().contains("vexamididest=-2147483648"));
    EXPECT_EQ(defaults::number("vexadelay"), 7.5);
    EXPECT_EQ(defaults::integer("vexamididest"), -2147483648);
    EXPECT_EQ(defaults::number("vexapauseforreel"), 0);
}

struct Stored {
    const char* text;
    double number;
    std::int64_t integer;
};

class WrongKind : public UserDefaults, public testing::WithParamInterface<Stored> {};

TEST_P(WrongKind, IsTakenAsTheNumberItBeginsWith) {
    writeFile(QByteArray("[General]\nvexadelay=") + GetParam().text + "\n");
    EXPECT_EQ(defaults::number("vexadelay"), GetParam().number);
    EXPECT_EQ(defaults::integer("vexadelay"), GetParam().integer);
}

INSTANTIATE_TEST_SUITE_P(Values, WrongKind,
                         testing::Values(Stored{"7.9", 7.9, 7}, Stored{"-7.9", -7.9, -7},
                                         Stored{"seven", 0, 0}, Stored{"", 0, 0},
                                         Stored{"12 seconds", 12, 12}, Stored{"true", 1, 1},
                                         Stored{"false", 0, 0}, Stored{"yes", 1, 1},
                                         Stored{"nan", 0, 0}, Stored{"inf", 0, 0},
                                         Stored{"1e300", 1e300, 0}));

TEST_F(UserDefaults, AGarbageFileCountsAsEmpty) {
    writeFile(QByteArray("\0\1\2[[[\xff\xfe=no\n", 14));
    EXPECT_EQ(defaults::number("vexadelay"), std::nullopt);
    defaults::setReal("vexadelay", 3);
    EXPECT_EQ(defaults::number("vexadelay"), 3);
}

} // namespace
