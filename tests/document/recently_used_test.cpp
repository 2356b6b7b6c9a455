#include "document/recently_used.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <sys/stat.h>

using namespace vexa;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Entries of another program: its own file, and one of ours that it has opened too.
const char* const othersBookmarks =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0"
      xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
      xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info"
>
  <bookmark href="file:///home/ann/tune%20%231.ogg" added="2024-02-03T10:00:00.123456Z" modified="2024-02-03T10:00:00.123456Z" visited="2024-02-03T10:00:00.123456Z">
    <title>Tune &amp; more</title>
    <info>
      <metadata owner="http://freedesktop.org">
        <mime:mime-type type="audio/ogg"/>
        <bookmark:groups>
          <bookmark:group>Music</bookmark:group>
        </bookmark:groups>
        <bookmark:applications>
          <bookmark:application name="Player" exec="&apos;player %u&apos;" modified="2024-02-03T10:00:00.123456Z" count="7"/>
        </bookmark:applications>
        <bookmark:private/>
      </metadata>
    </info>
  </bookmark>
  <bookmark href="file:///reels/a.vexaB" added="2024-02-03T10:00:00Z" modified="2024-02-03T10:00:00Z" visited="2024-02-03T10:00:00Z">
    <info>
      <metadata owner="http://freedesktop.org">
        <mime:mime-type type="application/xml"/>
        <bookmark:applications>
          <bookmark:application name="Editor" exec="&apos;editor %u&apos;" modified="2024-02-03T10:00:00Z" count="2"/>
        </bookmark:applications>
      </metadata>
    </info>
  </bookmark>
</xbel>)";

struct RecentlyUsed : testing::Test {
    bool add(const char* path) const { return addToRecentlyUsed({QString::fromUtf8(path)}, list); }
    void write(const QByteArray& bytes) const {
        QFile file(list);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray bytes() const {
        QFile file(list);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// The entry of a path as a desktop's own programs read it: a Python expression over "item".
    std::string read(const char* path, const char* expression) const {
        QProcess python;
        python.start(
            QStringLiteral("/usr/bin/python3"),
            {QStringLiteral("-c"),
             QStringLiteral("import gi, pathlib, sys, time\n"
                            "gi.require_version('Gtk', '3.0')\n"
                            "from gi.repository import Gtk\n"
                            "manager = Gtk.RecentManager(filename=sys.argv[1])\n"
                            "item = manager.lookup_item(pathlib.Path(sys.argv[2]).as_uri())\n"
                            "print(%1, end='')")
                 .arg(QLatin1String(expression)),
             list, QString::fromUtf8(path)});
        EXPECT_TRUE(python.waitForFinished());
        return (python.readAllStandardOutput() + python.readAllStandardError()).toStdString();
    }

    const QTemporaryDir folder;
    const QString list = folder.filePath(QStringLiteral("share/recently-used.xbel"));
};

const char* const use = "item.get_application_info('Vexa Remote')[:2]";

TEST_F(RecentlyUsed, ANewListIsMadeAndIsPrivate) {
    const char* path = "/reels/Ünï 100% #1 <2>.vexaB";
    ASSERT_TRUE(add(path));
    EXPECT_EQ(read(path, "item.get_display_name()"), "Ünï 100% #1 <2>.vexaB");
    EXPECT_EQ(read(path, "item.get_mime_type()"), "application/x-vexa-batch-list");
    EXPECT_EQ(read(path, use), "('vexa-remote "
                               "file:///reels/%C3%9Cn%C3%AF%20100%25%20%231%20%3C2%3E.vexaB', 1)");
    EXPECT_EQ(QFile::permissions(list) & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
}

TEST_F(RecentlyUsed, AFileUsedAgainIsCountedAndLatest) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("share")));
    write(othersBookmarks);
    const char* path = "/reels/a.vexaB";
    ASSERT_TRUE(add(path));
    ASSERT_TRUE(add(path));
    EXPECT_EQ(read(path, use), "('vexa-remote file:///reels/a.vexaB', 2)");
    EXPECT_EQ(read(path, "sorted(item.get_applications())"), "['Editor', 'Vexa Remote']");
    EXPECT_EQ(read(path, "item.get_mime_type()"), "application/x-vexa-batch-list");
    EXPECT_EQ(read(path, "abs(time.time() - item.get_modified()) < 60"), "True");
    EXPECT_EQ(read(path, "item.last_application()"), "Vexa Remote");
}

TEST_F(RecentlyUsed, WhatOthersHoldStays) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("share")));
    write(othersBookmarks);
    ASSERT_TRUE(add("/reels/b.vexaB"));
    const auto written = bytes().toStdString();
    const auto others = QByteArray(othersBookmarks);
    const auto body = others.mid(others.indexOf("<title>"),
                                 others.indexOf("</bookmark>") - others.indexOf("<title>"));
    EXPECT_THAT(written, HasSubstr(body.toStdString()));
    EXPECT_THAT(written, HasSubstr("file:///home/ann/tune%20%231.ogg\" "
                                   "added=\"2024-02-03T10:00:00.123456Z\""));
    EXPECT_THAT(written, HasSubstr("file:///reels/b.vexaB"));
}

TEST_F(RecentlyUsed, AListThatIsNoneIsLeftAlone) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("share")));
    for (const auto* garbage :
         {"", "garbage", "<html/>", "<xbel version=\"1.0\"><bookmark", "\xff\xfe\x00"}) {
        write(garbage);
        EXPECT_FALSE(add("/reels/b.vexaB")) << garbage;
        EXPECT_EQ(bytes(), QByteArray(garbage));
    }
}

TEST_F(RecentlyUsed, NobodyWaitsForAListThatWouldNeverBeRead) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("share")));
    ASSERT_EQ(mkfifo(QFile::encodeName(list).constData(), 0600), 0);
    EXPECT_FALSE(add("/reels/b.vexaB"));
}

TEST_F(RecentlyUsed, AListOfImmoderateLengthIsLeftAlone) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("share")));
    const auto comment = "<!--" + QByteArray(20'000'000, ' ') + "-->";
    const auto tooLong = QByteArray(othersBookmarks).replace("<title>", comment + "<title>");
    write(tooLong);
    EXPECT_FALSE(add("/reels/b.vexaB"));
    EXPECT_EQ(bytes(), tooLong);

    write(othersBookmarks);
    ASSERT_TRUE(QFile::resize(list, qint64{6} << 30));
    EXPECT_FALSE(add("/reels/b.vexaB"));
}

TEST_F(RecentlyUsed, AListThatCannotBeWrittenIsLeftAlone) {
    QFile inPlaceOfFolder(folder.filePath(QStringLiteral("share")));
    ASSERT_TRUE(inPlaceOfFolder.open(QIODevice::WriteOnly));
    EXPECT_FALSE(add("/reels/b.vexaB"));
    EXPECT_TRUE(QFileInfo(inPlaceOfFolder).isFile());
}

} // namespace
