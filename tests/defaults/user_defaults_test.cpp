#include "defaults/user_defaults.h"
#include "support/FileSizeLimit.h"
#include "support/WithoutPrivileges.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

using namespace vexa;
using namespace vexa::test;

namespace {

struct UserDefaults : testing::Test {
    UserDefaults() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path())); }
    ~UserDefaults() override { qputenv("XDG_CONFIG_HOME", m_before); }

    QString path() const { return home.filePath(QStringLiteral("vexa-remote/vexa-remote.ini")); }
    QString copyPath() const { return path() + QLatin1Char('~'); }
    void writeFile(const QByteArray& content) const {
        QDir().mkpath(QFileInfo(path()).path());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    static QByteArray contentOf(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Whether group and others have no part in the file.
    static bool isPrivate(const QString& name) {
        const auto theirs = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther |
                            QFile::WriteOther | QFile::ExeGroup | QFile::ExeOther;
        return (QFile::permissions(name) & theirs) == QFile::Permissions();
    }

    const QTemporaryDir home;

private:
    const QByteArray m_before = qgetenv("XDG_CONFIG_HOME");
};

TEST_F(UserDefaults, AnAbsentKeyGivesNothing) {
    EXPECT_EQ(defaults::number(defaults::delayKey), std::nullopt);
    EXPECT_EQ(defaults::integer(defaults::midiDestinationKey), std::nullopt);
}

TEST_F(UserDefaults, WhatIsWrittenIsOnDiskAtOnce) {
    defaults::write({{"vexadelay", 7.5}});
    defaults::setInteger("vexamididest", -2147483647 - 1);
    defaults::write({{"vexapauseforreel", false}});
    EXPECT_TRUE(contentOf(path()).contains("vexadelay=7.5"));
    EXPECT_TRUE(contentOf(path()).contains("vexamididest=-2147483648"));
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

INSTANTIATE_TEST_SUITE_P(
    Values, WrongKind,
    testing::Values(Stored{"7.9", 7.9, 7}, Stored{"-7.9", -7.9, -7}, Stored{"seven", 0, 0},
                    Stored{"", 0, 0}, Stored{"12 seconds", 12, 12}, Stored{"true", 1, 1},
                    Stored{"false", 0, 0}, Stored{"yes", 1, 1}, Stored{"nan", 0, 0},
                    Stored{"inf", 0, 0}, Stored{"1e300", 1e300, 0}, Stored{"-1", -1, -1},
                    Stored{"9007199254740993", 9007199254740992, 9007199254740993},
                    Stored{"18446744073709551615", 0x1p64, -1}, Stored{"0.5", 0.5, 0},
                    Stored{"\" 7 \"", 7, 7}, Stored{"1, 2", 1, 1}, Stored{"7,9", 7, 7},
                    Stored{",9", 0, 0}, Stored{"+5", 5, 5}, Stored{"+5.5 s", 5.5, 5},
                    Stored{"+-5", 0, 0}, Stored{"++5", 0, 0}, Stored{"+", 0, 0}));

TEST_F(UserDefaults, SeveralAreWrittenAtOnce) {
    defaults::write({{"vexadelay", 7.5}, {"vexadefaultrate", 3LL}, {"vexapauseforreel", true}});
    EXPECT_EQ(defaults::number("vexadelay"), 7.5);
    EXPECT_EQ(defaults::integer("vexadefaultrate"), 3);
    EXPECT_EQ(defaults::number("vexapauseforreel"), 1);
}

TEST_F(UserDefaults, AGarbageFileCountsAsEmptyAndIsKeptBesideTheNewOne) {
    const QByteArray garbage("\0\1\2[[[\xff\xfe\nno\n", 12);
    writeFile(garbage);
    EXPECT_EQ(defaults::number("vexadelay"), std::nullopt);
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_EQ(defaults::number("vexadelay"), 3);
    EXPECT_EQ(contentOf(copyPath()), garbage);
}

TEST_F(UserDefaults, WhatCanBeReadOfABrokenFileIsKept) {
    writeFile("[General]\nvexadelay=9\nbroken line\nunknown=yes\n[Other]\nx=1\n");
    EXPECT_EQ(defaults::number("vexadelay"), 9);
    defaults::setInteger("vexadefaultrate", 1);
    EXPECT_EQ(contentOf(path()), "[General]\nunknown=yes\nvexadefaultrate=1\nvexadelay=9\n\n"
                                 "[Other]\nx=1\n");
    EXPECT_TRUE(contentOf(copyPath()).contains("broken line"));
    defaults::setInteger("vexadefaultrate", 2);
    EXPECT_TRUE(contentOf(copyPath()).contains("broken line"));
}

TEST_F(UserDefaults, AWholeFileIsNotCopied) {
    writeFile("[General]\nvexadelay=9\n");
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_FALSE(QFile::exists(copyPath()));
}

TEST_F(UserDefaults, AFileThatMayOnlyBeReadKeepsItsContent) {
    writeFile("[General]\nvexadelay=9\n");
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner));
    const WithoutPrivileges user(home.path());
    EXPECT_EQ(defaults::number("vexadelay"), 9);
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_EQ(contentOf(path()), "[General]\nvexadelay=9\n");
}

TEST_F(UserDefaults, AFileThatMayNotBeReadCountsAsEmptyAndKeepsItsContent) {
    writeFile("[General]\nvexadelay=9\n");
    ASSERT_TRUE(QFile::setPermissions(path(), {}));
    {
        const WithoutPrivileges user(home.path());
        EXPECT_EQ(defaults::number("vexadelay"), std::nullopt);
        defaults::write({{"vexadelay", 3.0}});
    }
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner));
    EXPECT_EQ(contentOf(path()), "[General]\nvexadelay=9\n");
}

TEST_F(UserDefaults, ADirectoryInPlaceOfTheFileCountsAsEmptyAndStays) {
    ASSERT_TRUE(QDir().mkpath(path()));
    EXPECT_EQ(defaults::number("vexadelay"), std::nullopt);
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

TEST_F(UserDefaults, APipeInPlaceOfTheFileCountsAsEmptyAndStays) {
    QDir().mkpath(QFileInfo(path()).path());
    ASSERT_EQ(mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_EQ(defaults::number(defaults::delayKey), std::nullopt);
    EXPECT_EQ(defaults::texts(defaults::recentFilesKey), QStringList());
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_EQ(defaults::number(defaults::delayKey), std::nullopt);
    EXPECT_TRUE(QFile::exists(path()) && !QFileInfo(path()).isFile());
}

TEST_F(UserDefaults, AFileOfFiftyMegabytesCountsAsEmptyAndIsPutAsideForANewOne) {
    const QByteArray line = "key=" + QByteArray(95, 'x') + '\n';
    const QByteArray huge = "[General]\nvexadelay=9\n" + line.repeated(500'000);
    writeFile(huge);
    EXPECT_EQ(defaults::number(defaults::delayKey), std::nullopt);
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_EQ(defaults::number(defaults::delayKey), 3);
    EXPECT_EQ(contentOf(copyPath()), huge);
    EXPECT_LT(QFileInfo(path()).size(), 1000);
}

TEST_F(UserDefaults, AreNobodyElsesBusiness) {
    const auto before = umask(0);
    defaults::setTexts(defaults::recentFilesKey, {QStringLiteral("/reels/secret.vexaB")});
    umask(before);
    EXPECT_TRUE(isPrivate(path()));

    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner |
                                                  QFile::ReadGroup | QFile::ReadOther));
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_TRUE(isPrivate(path()));

    writeFile("no settings\n");
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner |
                                                  QFile::ReadGroup | QFile::ReadOther));
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_TRUE(isPrivate(path()));
    EXPECT_TRUE(isPrivate(copyPath()));
}

TEST_F(UserDefaults, AFileInPlaceOfTheDirectoryStays) {
    const auto directory = QFileInfo(path()).path();
    QFile file(directory);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_TRUE(QFileInfo(directory).isFile());
}

TEST_F(UserDefaults, AFileOnAFullDiskKeepsItsContent) {
    const QByteArray before = "[General]\nother=" + QByteArray(1000, 'x') + "\nvexadelay=9\n";
    writeFile(before);
    for (const rlim_t room : {1, 500, 1100}) {
        const FileSizeLimit limit(room);
        defaults::write({{"vexadefaultrate", 3.0}});
        EXPECT_EQ(contentOf(path()), before) << room;
    }
    EXPECT_EQ(QDir(QFileInfo(path()).path()).entryList(QDir::Files).size(), 1);
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_EQ(defaults::number("vexadelay"), 3);
}

TEST_F(UserDefaults, AProgramThatHoldsTheFileForeverIsNotWaitedFor) {
    const QByteArray before = "[General]\nvexadelay=9\n";
    writeFile(before);
    QLockFile other(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(other.lock());
    QElapsedTimer time;
    time.start();
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_LT(time.elapsed(), 5000) << "milliseconds";
    EXPECT_EQ(defaults::number("vexadelay"), 9);
    EXPECT_EQ(contentOf(path()), before);
    other.unlock();
    defaults::write({{"vexadelay", 3.0}});
    EXPECT_EQ(defaults::number("vexadelay"), 3);
}

TEST_F(UserDefaults, ProgramsThatWriteAtOnceLoseNothing) {
    constexpr int times = 50;
    const char* const keys[] = {"vexadelay", "vexadefaultrate", "vexamididest"};
    std::vector<pid_t> programs;
    for (const auto* key : keys) {
        programs.push_back(fork());
        if (programs.back() == 0) {
            for (int i = 1; i <= times; ++i)
                defaults::setInteger(key, i);
            _exit(0);
        }
    }
    for (const auto program : programs)
        waitpid(program, nullptr, 0);
    for (const auto* key : keys)
        EXPECT_EQ(defaults::integer(key), times) << key;
}

} // namespace
