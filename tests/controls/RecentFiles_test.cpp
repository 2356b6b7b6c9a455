#include "controls/RecentFiles.h"
#include "document/recently_used.h"
#include "support/CleanDefaults.h"

#include <QDir>
#include <QFile>
#include <gmock/gmock.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;
using testing::HasSubstr;

namespace {

struct RecentList : testing::Test {
    RecentList() { QFile::remove(recentlyUsedFile()); }
    ~RecentList() override { QFile::remove(recentlyUsedFile()); }

    const CleanDefaults defaults;
};

TEST_F(RecentList, HoldsEachFileOnceNewestFirst) {
    RecentFiles files;
    for (const auto* path : {"/a.vexaB", "/b.vexaB", "/b.vexaB", "/a.vexaB"})
        files.noteNewRecentDocument(QString::fromLatin1(path));
    EXPECT_EQ(files.paths(), QStringList({u"/a.vexaB"_s, u"/b.vexaB"_s}));
}

TEST_F(RecentList, HoldsTenFilesAtMost) {
    RecentFiles files;
    for (int i = 1; i <= 12; ++i)
        files.noteNewRecentDocument(u"/%1.vexaB"_s.arg(i));
    EXPECT_EQ(files.paths().size(), 10);
    EXPECT_EQ(files.paths().constFirst(), u"/12.vexaB"_s);
    EXPECT_EQ(files.paths().constLast(), u"/3.vexaB"_s);
}

TEST_F(RecentList, OutlivesTheProgramWhateverTheNames) {
    const QStringList names{u"/100% #1.vexaB"_s, u"/a, b; \"c\".vexaB"_s, u"/@Плёнка\\n.vexaB"_s,
                            u"/tab\tand\nnewline.vexaB"_s};
    {
        RecentFiles files;
        for (const auto& name : names)
            files.noteNewRecentDocument(name);
    }
    const QStringList newestFirst(names.crbegin(), names.crend());
    EXPECT_EQ(RecentFiles().paths(), newestFirst);
}

TEST_F(RecentList, KnowsRelativePathsByTheirPlace) {
    RecentFiles files;
    files.noteNewRecentDocument(u"reels/../a.vexaB"_s);
    EXPECT_EQ(files.paths(), QStringList(QDir::current().filePath(u"a.vexaB"_s)));
}

TEST_F(RecentList, IsCleared) {
    RecentFiles files;
    files.noteNewRecentDocument(u"/a.vexaB"_s);
    files.clear();
    EXPECT_EQ(files.paths(), QStringList());
    EXPECT_EQ(RecentFiles().paths(), QStringList());
}

TEST_F(RecentList, TellsTheDesktopOnceOfAFileNotedTwice) {
    {
        RecentFiles files;
        files.noteNewRecentDocument(u"/a.vexaB"_s);
        files.noteNewRecentDocument(u"/a.vexaB"_s);
        EXPECT_FALSE(QFile::exists(recentlyUsedFile())) << "later, in the background";
    }
    QFile list(recentlyUsedFile());
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    const auto text = list.readAll().toStdString();
    EXPECT_THAT(text, HasSubstr("file:///a.vexaB"));
    EXPECT_THAT(text, HasSubstr("count=\"1\""));
}

} // namespace
