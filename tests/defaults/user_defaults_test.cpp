#include "defaults/user_defaults.h"
#include "support/FileSizeLimit.h"
#include "support/WithoutPrivileges.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <limits>
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

    /// Whether group and others have no permissions.
    static bool isPrivate(const QString& name) {
        const auto theirs = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther |
                            QFile::WriteOther | QFile::ExeGroup | QFile::ExeOther;
        return (QFile::permissions(name) & theirs) == QFile::Permissions();
    }

    const QTemporaryDir home;

private:
    const QByteArray m_before = qgetenv("XDG_CONFIG_HOME");
};

TEST_F(UserDefaults, OfAnAbsentFileAreNone) { EXPECT_EQ(defaults::read(), Preferences()); }

TEST_F(UserDefaults, WhatIsWrittenIsOnDiskAtOnce) {
    defaults::write({.delayInSeconds = 7.5});
    defaults::write({.midiDestination = std::numeric_limits<std::int32_t>::min()});
    defaults::write({.pauseForReelChange = false});
    EXPECT_EQ(contentOf(path()),
              "[General]\nvexadelay=7.5\nvexamididest=-2147483648\nvexapauseforreel=false\n");
}

TEST_F(UserDefaults, AreReadBackAsTheyWereWritten) {
    const Preferences all{
        .delayInSeconds = 7.5,
        .defaultFrameRate = ~std::uint64_t{0},
        .defaultSyncType = 1,
        .pauseForReelChange = true,
        .midiDestination = -5,
        .windowWidth = 800,
        .windowHeight = 600,
        .recentFiles = QStringList({QStringLiteral("/a, b.vexaB"), QStringLiteral("/\"ü\n.vexaB")}),
        .columnWidths = {{QStringLiteral("vexareel"), 80}, {QStringLiteral("vexatitle"), 300}}};
    defaults::write(all);
    EXPECT_EQ(defaults::read(), all);
}

TEST_F(UserDefaults, OnesThatTheProgramDoesNotKnowStayAsTheyAre) {
    const QByteArray before = "[Later%20version]\nlist=1, \"a;b\"\npicture=@Variant(\\0\\0\\x1)\n"
                              "\n[General]\nother=@Invalid()\n";
    writeFile(before);
    defaults::write({.delayInSeconds = 7.5});
    EXPECT_EQ(contentOf(path()), before + "vexadelay=7.5\n");
}

TEST_F(UserDefaults, AGarbageFileCountsAsEmptyAndIsKeptBesideTheNewOne) {
    const QByteArray garbage("\0\1\2[[[\xff\xfe\nno\n", 12);
    writeFile(garbage);
    EXPECT_EQ(defaults::read().delayInSeconds, std::nullopt);
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(defaults::read().delayInSeconds, 3);
    EXPECT_EQ(contentOf(copyPath()), garbage);
}

TEST_F(UserDefaults, NothingOfAFileOfAllBytesStays) {
    QByteArray garbage;
    for (int i = 0; i < 4096; ++i)
        garbage += static_cast<char>(i);
    writeFile(garbage);
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(contentOf(path()), "[General]\nvexadelay=3\n");
    EXPECT_EQ(contentOf(copyPath()), garbage);
}

TEST_F(UserDefaults, WhatCanBeReadOfABrokenFileIsKept) {
    writeFile("[General]\nvexadelay=9\nbroken line\nunknown=yes\n[Other]\nx=1\n");
    EXPECT_EQ(defaults::read().delayInSeconds, 9);
    defaults::write({.defaultFrameRate = 1});
    EXPECT_EQ(contentOf(path()), "[General]\nunknown=yes\nvexadefaultrate=1\nvexadelay=9\n\n"
                                 "[Other]\nx=1\n");
    EXPECT_TRUE(contentOf(copyPath()).contains("broken line"));
    defaults::write({.defaultFrameRate = 2});
    EXPECT_TRUE(contentOf(copyPath()).contains("broken line"));
}

TEST_F(UserDefaults, AWholeFileIsNotCopied) {
    writeFile("[General]\nvexadelay=9\n");
    defaults::write({.delayInSeconds = 3});
    EXPECT_FALSE(QFile::exists(copyPath()));
}

TEST_F(UserDefaults, AFileThatMayOnlyBeReadKeepsItsContent) {
    writeFile("[General]\nvexadelay=9\n");
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner));
    const WithoutPrivileges user(home.path());
    EXPECT_EQ(defaults::read().delayInSeconds, 9);
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(contentOf(path()), "[General]\nvexadelay=9\n");
}

TEST_F(UserDefaults, AFileThatMayNotBeReadCountsAsEmptyAndKeepsItsContent) {
    writeFile("[General]\nvexadelay=9\n");
    ASSERT_TRUE(QFile::setPermissions(path(), {}));
    {
        const WithoutPrivileges user(home.path());
        EXPECT_EQ(defaults::read().delayInSeconds, std::nullopt);
        defaults::write({.delayInSeconds = 3});
    }
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner));
    EXPECT_EQ(contentOf(path()), "[General]\nvexadelay=9\n");
}

TEST_F(UserDefaults, ADirectoryInPlaceOfTheFileCountsAsEmptyAndStays) {
    ASSERT_TRUE(QDir().mkpath(path()));
    EXPECT_EQ(defaults::read().delayInSeconds, std::nullopt);
    defaults::write({.delayInSeconds = 3});
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

TEST_F(UserDefaults, APipeInPlaceOfTheFileCountsAsEmptyAndStays) {
    QDir().mkpath(QFileInfo(path()).path());
    ASSERT_EQ(mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_EQ(defaults::read().delayInSeconds, std::nullopt);
    EXPECT_EQ(defaults::read().recentFiles, std::nullopt);
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(defaults::read().delayInSeconds, std::nullopt);
    EXPECT_TRUE(QFile::exists(path()) && !QFileInfo(path()).isFile());
}

TEST_F(UserDefaults, AFileOfFiftyMegabytesCountsAsEmptyAndIsPutAsideForANewOne) {
    const QByteArray line = "key=" + QByteArray(95, 'x') + '\n';
    const QByteArray huge = "[General]\nvexadelay=9\n" + line.repeated(500'000);
    writeFile(huge);
    EXPECT_EQ(defaults::read().delayInSeconds, std::nullopt);
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(defaults::read().delayInSeconds, 3);
    EXPECT_EQ(contentOf(copyPath()), huge);
    EXPECT_LT(QFileInfo(path()).size(), 1000);
}

TEST_F(UserDefaults, AreNobodyElsesBusiness) {
    const auto before = umask(0);
    defaults::write({.recentFiles = QStringList(QStringLiteral("/reels/secret.vexaB"))});
    umask(before);
    EXPECT_TRUE(isPrivate(path()));

    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner |
                                                  QFile::ReadGroup | QFile::ReadOther));
    defaults::write({.delayInSeconds = 3});
    EXPECT_TRUE(isPrivate(path()));

    writeFile("no settings\n");
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner |
                                                  QFile::ReadGroup | QFile::ReadOther));
    defaults::write({.delayInSeconds = 3});
    EXPECT_TRUE(isPrivate(path()));
    EXPECT_TRUE(isPrivate(copyPath()));
}

TEST_F(UserDefaults, AFileInPlaceOfTheDirectoryStays) {
    const auto directory = QFileInfo(path()).path();
    QFile file(directory);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    defaults::write({.delayInSeconds = 3});
    EXPECT_TRUE(QFileInfo(directory).isFile());
}

TEST_F(UserDefaults, AFileOnAFullDiskKeepsItsContent) {
    const QByteArray before = "[General]\nother=" + QByteArray(1000, 'x') + "\nvexadelay=9\n";
    writeFile(before);
    for (const rlim_t room : {1, 500, 1040}) {
        const FileSizeLimit limit(room);
        defaults::write({.defaultFrameRate = 3});
        EXPECT_EQ(contentOf(path()), before) << room;
    }
    EXPECT_EQ(QDir(QFileInfo(path()).path()).entryList(QDir::Files).size(), 1);
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(defaults::read().delayInSeconds, 3);
}

TEST_F(UserDefaults, AProgramThatHoldsTheFileForeverIsNotWaitedFor) {
    const QByteArray before = "[General]\nvexadelay=9\n";
    writeFile(before);
    QLockFile other(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(other.lock());
    QElapsedTimer time;
    time.start();
    defaults::write({.delayInSeconds = 3});
    EXPECT_LT(time.elapsed(), 5000) << "milliseconds";
    EXPECT_EQ(defaults::read().delayInSeconds, 9);
    EXPECT_EQ(contentOf(path()), before);
    other.unlock();
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(defaults::read().delayInSeconds, 3);
}

TEST_F(UserDefaults, ProgramsThatWriteAtOnceLoseNothing) {
    constexpr int times = 50;
    const auto each = [](int setting, int value) -> Preferences {
        switch (setting) {
        case 0:
            return {.delayInSeconds = value};
        case 1:
            return {.midiDestination = value};
        default:
            return {.columnWidths = {{QStringLiteral("vexareel"), value}}};
        }
    };
    Preferences last;
    std::vector<pid_t> programs;
    for (int setting = 0; setting < 3; ++setting) {
        programs.push_back(fork());
        if (programs.back() == 0) {
            for (int i = 1; i <= times; ++i)
                defaults::write(each(setting, i));
            _exit(0);
        }
        append(last, each(setting, times));
    }
    for (const auto program : programs)
        waitpid(program, nullptr, 0);
    EXPECT_EQ(defaults::read(), last);
}

} // namespace
