#include "files/regular_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct RegularFile : testing::Test {
    void write(const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    const QTemporaryDir folder;
    const QString path = folder.filePath(u"file"_s);
};

TEST_F(RegularFile, IsReadUpToTheLimit) {
    for (const qsizetype size : {0, 1, 99, 100}) {
        write(QByteArray(size, 'x'));
        EXPECT_EQ(readRegularFile(path, 100), QByteArray(size, 'x'));
    }
    write(QByteArray(101, 'x'));
    EXPECT_EQ(readRegularFile(path, 100), std::nullopt);
}

TEST_F(RegularFile, IsReadOverALink) {
    write("bytes");
    const QString link = folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_EQ(readRegularFile(link, 100), QByteArray("bytes"));
}

TEST_F(RegularFile, NothingIsReadOfAnythingElse) {
    EXPECT_EQ(readRegularFile(path, 100), std::nullopt);
    EXPECT_EQ(readRegularFile({}, 100), std::nullopt);
    EXPECT_EQ(readRegularFile(folder.path(), 100), std::nullopt);
    EXPECT_EQ(readRegularFile(u"/dev/zero"_s, 100), std::nullopt);
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_EQ(readRegularFile(path, 100), std::nullopt);
}

// Regular files in /proc may claim to be empty and yet never end.
TEST_F(RegularFile, WhatItSaysOfItsSizeIsNotTrusted) {
    const QString endless = u"/proc/self/pagemap"_s;
    struct stat status{};
    ASSERT_EQ(stat(QFile::encodeName(endless).constData(), &status), 0);
    ASSERT_TRUE(S_ISREG(status.st_mode) && status.st_size == 0);
    EXPECT_EQ(readRegularFile(endless, (1 << 20) - 1), std::nullopt);
    EXPECT_EQ(readRegularFile(endless, 100), std::nullopt) << "it is read by eights";

    const auto name = readRegularFile(u"/proc/self/comm"_s, 100);
    ASSERT_TRUE(name);
    EXPECT_TRUE(name->endsWith('\n'));
}

} // namespace
