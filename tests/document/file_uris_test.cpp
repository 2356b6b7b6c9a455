#include "document/file_uris.h"

#include <QDir>
#include <QSysInfo>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

struct File {
    const char* path;
    const char* uri;
};

class FileUri : public testing::TestWithParam<File> {};

TEST_P(FileUri, NamesThePathInAscii) {
    EXPECT_EQ(fileUri(QString::fromUtf8(GetParam().path)).toStdString(), GetParam().uri);
}

TEST_P(FileUri, LeadsBackToThePath) {
    const auto uri = QUrl(QString::fromUtf8(GetParam().uri));
    EXPECT_EQ(firstLocalFile({uri}).toStdString(), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FileUri,
    testing::Values(File{"/tmp/a b.vexaB", "file:///tmp/a%20b.vexaB"},
                    File{"/tmp/#1?.vexaB", "file:///tmp/%231%3F.vexaB"},
                    File{"/tmp/100%.vexaB", "file:///tmp/100%25.vexaB"},
                    File{"/tmp/%41.vexaB", "file:///tmp/%2541.vexaB"},
                    File{"/tmp/Ω磁.vexaB", "file:///tmp/%CE%A9%E7%A3%81.vexaB"},
                    File{"/tmp/a:b;c&d+e.vexaB", "file:///tmp/a:b;c&d+e.vexaB"}));

TEST(FileUris, ARelativePathStartsAtTheCurrentDirectory) {
    EXPECT_EQ(QUrl(fileUri(QStringLiteral("a.vexaB"))).toLocalFile(),
              QDir::current().absoluteFilePath(QStringLiteral("a.vexaB")));
}

TEST(FileUris, TheFirstLocalOneCounts) {
    const QUrl remote(QStringLiteral("https://example.org/a.vexaB"));
    const QUrl local(QStringLiteral("file:///b.vexaB"));
    const QUrl other(QStringLiteral("file:///c.vexaB"));
    EXPECT_EQ(firstLocalFile({remote, local, other}), QStringLiteral("/b.vexaB"));
    EXPECT_TRUE(firstLocalFile({remote, QUrl(), QUrl(QStringLiteral("nonsense"))}).isNull());
    EXPECT_TRUE(firstLocalFile({}).isNull());
}

TEST(FileUris, AMachineMayBeNamedAndHasToBeThisOne) {
    const auto on = [](const QString& host) {
        return firstLocalFile({QUrl(QStringLiteral("file://%1/a.vexaB").arg(host))});
    };
    EXPECT_EQ(on(QStringLiteral("localhost")), QStringLiteral("/a.vexaB"));
    EXPECT_EQ(on(QSysInfo::machineHostName()), QStringLiteral("/a.vexaB"));
    EXPECT_TRUE(on(QStringLiteral("elsewhere.example.org")).isNull());
}

TEST(FileUris, ANameThatIsNotUtf8IsNoFileHere) {
    const QUrl latin1(QStringLiteral("file:///caf%E9.vexaB"));
    const QUrl mangled(QStringLiteral("file:///caf%EF%BF%BD.vexaB"));
    EXPECT_TRUE(firstLocalFile({latin1}).isNull());
    EXPECT_EQ(firstLocalFile({latin1, mangled}), QString::fromUtf8("/caf\uFFFD.vexaB"));
}

TEST(FileUris, WhatTheSystemTakesForNoPathIsNone) {
    const auto path = [](qsizetype length) {
        return firstLocalFile({QUrl(QStringLiteral("file:///") + QString(length - 1, u'a'))});
    };
    EXPECT_EQ(path(4095).size(), 4095);
    EXPECT_TRUE(path(4096).isNull());
    EXPECT_TRUE(path(17'000'000).isNull());
    EXPECT_TRUE(firstLocalFile({QUrl(QStringLiteral("file:///reels%00.vexaB"))}).isNull());
    const QUrl next(QStringLiteral("file:///b"));
    EXPECT_EQ(firstLocalFile({QUrl(QStringLiteral("file:///a%00")), next}), QStringLiteral("/b"));
}

TEST(FileUris, AFileHasAPath) {
    const QUrl empty(QStringLiteral("file:"));
    EXPECT_TRUE(firstLocalFile({empty}).isNull());
    EXPECT_EQ(firstLocalFile({empty, QUrl(QStringLiteral("file:///a"))}), QStringLiteral("/a"));
}

} // namespace
