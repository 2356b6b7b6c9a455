#include "files/atomic_file.h"
#include "support/FileSizeLimit.h"
#include "support/WithoutPrivileges.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <random>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

class ReplaceFile : public testing::Test {
protected:
    QString path(const QString& name = u"list"_s) const { return m_directory.filePath(name); }

    static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
    }

    struct stat status() const { return status(path()); }
    static struct stat status(const QString& path) {
        struct stat result{};
        EXPECT_EQ(stat(QFile::encodeName(path).constData(), &result), 0);
        return result;
    }

    QStringList entries() const {
        return QDir(m_directory.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir m_directory;
};

TEST_F(ReplaceFile, MakesANewFileAndReplacesAnOldOne) {
    EXPECT_TRUE(replaceFile(path(), "a longer text"));
    EXPECT_EQ(read(path()), "a longer text");
    EXPECT_TRUE(replaceFile(path(), "short"));
    EXPECT_EQ(read(path()), "short");
    EXPECT_TRUE(replaceFile(path(), ""));
    EXPECT_EQ(read(path()), "");
    EXPECT_EQ(entries(), QStringList{u"list"_s});
}

TEST_F(ReplaceFile, GivesANewFileThePermissionsOfTheUmask) {
    for (const mode_t mask : {0022u, 0077u, 0002u}) {
        QFile::remove(path());
        const mode_t before = umask(mask);
        EXPECT_TRUE(replaceFile(path(), "x"));
        umask(before);
        EXPECT_EQ(status().st_mode & 07777, 0666 & ~mask);
    }
}

TEST_F(ReplaceFile, KeepsThePermissionsOfAnOldFileWhateverTheUmask) {
    ASSERT_TRUE(replaceFile(path(), "old"));
    const mode_t before = umask(0027);
    for (const mode_t mode : {0600u, 0640u, 0664u, 0666u}) {
        ASSERT_EQ(chmod(QFile::encodeName(path()).constData(), mode), 0);
        EXPECT_TRUE(replaceFile(path(), "new"));
        EXPECT_EQ(status().st_mode & 07777, mode);
    }
    umask(before);
}

// Only root can create a file of another owner; for others, it is their own.
TEST_F(ReplaceFile, KeepsTheOwnerAndGroupOfAnOldFile) {
    ASSERT_TRUE(replaceFile(path(), "old"));
    const bool root = geteuid() == 0;
    const uid_t owner = root ? 1234 : geteuid();
    const gid_t group = root ? 5678 : getegid();
    ASSERT_EQ(chown(QFile::encodeName(path()).constData(), owner, group), 0);
    EXPECT_TRUE(replaceFile(path(), "new"));
    EXPECT_EQ(status().st_uid, owner);
    EXPECT_EQ(status().st_gid, group);
    EXPECT_EQ(read(path()), "new");
}

TEST_F(ReplaceFile, ReplacesTheTargetOfALinkAndKeepsTheLink) {
    ASSERT_TRUE(QDir(m_directory.path()).mkdir(u"elsewhere"_s));
    const QString target = path(u"elsewhere/target"_s);
    ASSERT_TRUE(replaceFile(target, "old"));
    ASSERT_TRUE(QFile::link(u"elsewhere/target"_s, path(u"first"_s)));
    ASSERT_TRUE(QFile::link(u"first"_s, path()));
    EXPECT_TRUE(replaceFile(path(), "new"));
    EXPECT_EQ(read(target), "new");
    EXPECT_EQ(QFileInfo(path()).symLinkTarget(), path(u"first"_s));
    EXPECT_EQ(QFileInfo(path(u"first"_s)).symLinkTarget(), target);
}

TEST_F(ReplaceFile, MakesTheMissingTargetOfALink) {
    ASSERT_TRUE(QFile::link(u"target"_s, path()));
    EXPECT_TRUE(replaceFile(path(), "new"));
    EXPECT_EQ(read(path(u"target"_s)), "new");
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_F(ReplaceFile, FailsWhereNoFileCanBe) {
    EXPECT_FALSE(replaceFile(path(u"missing/list"_s), "x"));
    EXPECT_FALSE(replaceFile(m_directory.path(), "x"));
    EXPECT_FALSE(replaceFile({}, "x"));
    EXPECT_EQ(entries(), QStringList());
}

TEST_F(ReplaceFile, ANewFileCanBePrivate) {
    EXPECT_TRUE(replaceFile(path(), "secret", 0600));
    EXPECT_EQ(status().st_mode & 07777, 0600u);
}

// Nothing can be added to the longest name that the system allows, nor to the longest path.
TEST_F(ReplaceFile, TakesNamesAndPathsOfAnyLengthThatTheSystemTakes) {
    for (const qsizetype length : {248, 249, 255}) {
        const QString name(length, u'n');
        EXPECT_TRUE(replaceFile(path(name), "old")) << length;
        EXPECT_TRUE(replaceFile(path(name), "new")) << length;
        EXPECT_EQ(read(path(name)), "new") << length;
        EXPECT_TRUE(QFile::remove(path(name)));
    }
    EXPECT_FALSE(replaceFile(path(QString(256, u'n')), "x"));
    EXPECT_EQ(entries(), QStringList());

    const QString shortName = u"/n"_s;
    QString folder = m_directory.path();
    while (folder.size() + shortName.size() < PATH_MAX - 1)
        folder += u'/' +
                  QString(std::min<qsizetype>(100, PATH_MAX - 2 - folder.size() - shortName.size()),
                          u'f');
    ASSERT_TRUE(QDir().mkpath(folder));
    EXPECT_TRUE(replaceFile(folder + shortName, "new"));
    EXPECT_EQ(read(folder + shortName), "new");
}

TEST_F(ReplaceFile, AFileThatMayOnlyBeReadStays) {
    ASSERT_TRUE(replaceFile(path(), "old"));
    ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner));
    const WithoutPrivileges user(m_directory.path());
    EXPECT_FALSE(replaceFile(path(), "new"));
    EXPECT_EQ(read(path()), "old");
}

// The test makes its own nodes: a pipe and, as root, a device like the null device.
TEST_F(ReplaceFile, WhatIsNoRegularFileStaysAlsoBehindALink) {
    struct Node {
        mode_t type;
        dev_t device;
    };
    for (const Node& node : {Node{S_IFIFO, 0}, Node{S_IFCHR, makedev(1, 3)}, Node{S_IFSOCK, 0}}) {
        const QString special = path(u"node"_s);
        if (mknod(QFile::encodeName(special).constData(), node.type | 0666, node.device) != 0) {
            ASSERT_EQ(errno, EPERM);
            continue;
        }
        ASSERT_TRUE(QFile::link(u"node"_s, path()));
        EXPECT_FALSE(replaceFile(special, "x")) << node.type;
        EXPECT_FALSE(replaceFile(path(), "x")) << node.type;
        EXPECT_EQ(status().st_mode & S_IFMT, node.type);
        EXPECT_EQ(entries(), (QStringList{u"list"_s, u"node"_s}));
        ASSERT_TRUE(QFile::remove(path()) && QFile::remove(special));
    }
}

TEST_F(ReplaceFile, LinksThatGoInACircleLeadToNoFile) {
    ASSERT_TRUE(QFile::link(u"list"_s, path(u"other"_s)) && QFile::link(u"other"_s, path()));
    EXPECT_FALSE(replaceFile(path(), "x"));
    EXPECT_EQ(entries(), (QStringList{u"list"_s, u"other"_s}));
}

class ReplaceFileOnAFullDisk : public ReplaceFile, public testing::WithParamInterface<qsizetype> {};

TEST_P(ReplaceFileOnAFullDisk, FailsAndLeavesTheOldFileAndNothingElse) {
    ASSERT_TRUE(replaceFile(path(), "old"));
    {
        const FileSizeLimit limit(static_cast<rlim_t>(GetParam() - 1));
        EXPECT_FALSE(replaceFile(path(), QByteArray(GetParam(), 'x')));
        EXPECT_FALSE(replaceFile(path(u"new"_s), QByteArray(GetParam(), 'x')));
    }
    EXPECT_EQ(read(path()), "old");
    EXPECT_EQ(entries(), QStringList{u"list"_s});
    EXPECT_TRUE(replaceFile(path(), QByteArray(GetParam(), 'x')));
    EXPECT_EQ(read(path()), QByteArray(GetParam(), 'x'));
}

// Sizes around that of the write buffer.
INSTANTIATE_TEST_SUITE_P(Sizes, ReplaceFileOnAFullDisk,
                         testing::Values(1, 1000, 16384, 16385, 1000000));

// An alarm kills the saving process at a random moment. Before and after, a reader finds one of the
// two texts.
TEST_F(ReplaceFile, IsOldOrNewWheneverASavingProcessIsKilled) {
    const QByteArray texts[] = {QByteArray(300000, 'a'), QByteArray(400000, 'b')};
    ASSERT_TRUE(replaceFile(path(), texts[0]));
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        const auto microseconds = std::uniform_int_distribution<suseconds_t>(1, 20000)(random);
        const pid_t saver = fork();
        ASSERT_GE(saver, 0);
        if (saver == 0) {
            const itimerval moment{{0, 0}, {0, microseconds}};
            setitimer(ITIMER_REAL, &moment, nullptr);
            for (int save = round;; ++save)
                if (!replaceFile(path(), texts[save % 2]))
                    _exit(1);
        }
        int status = 0;
        do {
            const QByteArray found = read(path());
            ASSERT_TRUE(found == texts[0] || found == texts[1]) << found.size() << " bytes";
        } while (waitpid(saver, &status, WNOHANG) == 0);
        const QByteArray found = read(path());
        ASSERT_TRUE(found == texts[0] || found == texts[1]) << found.size() << " bytes";
        ASSERT_TRUE(WIFSIGNALED(status)) << "a save failed";
    }
}

} // namespace
