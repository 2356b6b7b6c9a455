#include "files/Successor.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <fcntl.h>

#include <cerrno>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

class SuccessorTest : public testing::Test {
protected:
    QStringList entries() const {
        return QDir(m_directory.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void make(const QString& name) const {
        QFile file(m_directory.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("old");
    }

    qint64 size(const QString& name) const { return QFile(m_directory.filePath(name)).size(); }

    QTemporaryDir m_directory;
    FileDescriptor m_folder{
        open(QFile::encodeName(m_directory.path()).constData(), O_PATH | O_DIRECTORY)};
};

TEST_F(SuccessorTest, LeavesNothingWhenItIsGivenUp) {
    {
        const Successor successor(m_folder, 0600);
        EXPECT_GE(successor.file(), 0);
        EXPECT_EQ(entries().size(), 1);
    }
    EXPECT_EQ(entries(), QStringList());
}

TEST_F(SuccessorTest, TakesThePlaceOfAnother) {
    make(u"tape"_s);
    {
        Successor successor(m_folder, 0600);
        EXPECT_TRUE(successor.takePlaceOf("tape"));
    }
    EXPECT_EQ(entries(), QStringList(u"tape"_s));
    EXPECT_EQ(size(u"tape"_s), 0);
}

TEST_F(SuccessorTest, TakesAFreePlaceOnly) {
    make(u"tape"_s);
    {
        Successor successor(m_folder, 0600);
        EXPECT_FALSE(successor.takeFreePlace("tape"));
        EXPECT_EQ(errno, EEXIST);
    }
    EXPECT_EQ(size(u"tape"_s), 3);
    {
        Successor successor(m_folder, 0600);
        EXPECT_TRUE(successor.takeFreePlace("another"));
    }
    EXPECT_EQ(entries(), (QStringList{u"another"_s, u"tape"_s}));
}

TEST_F(SuccessorTest, TellsThatItCannotBeMade) {
    const FileDescriptor none(-1);
    EXPECT_LT(Successor(none, 0600).file(), 0);
}

} // namespace
