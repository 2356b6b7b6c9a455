#include "controls/OpenRecentMenu.h"
#include "controls/RecentFiles.h"
#include "support/CleanDefaults.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextDocument>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

struct RecentMenu : testing::Test {
    /// Creates a file and opens it.
    QString open(const char* name) {
        const auto path = folder.filePath(QString::fromUtf8(name));
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly));
        files.noteNewRecentDocument(path);
        return path;
    }
    /// The titles that the menu shows when it opens; disabled ones in parentheses.
    QStringList titles() {
        Q_EMIT menu.aboutToShow();
        QStringList texts;
        for (const auto* action : menu.actions())
            if (!action->isSeparator())
                texts += action->isEnabled() ? action->text() : u"(%1)"_s.arg(action->text());
        return texts;
    }

    const QTemporaryDir folder;
    const CleanDefaults defaults;
    RecentFiles files;
    OpenRecentMenu menu{files, nullptr};
    QSignalSpy chosen{&menu, &OpenRecentMenu::chosen};
};

TEST_F(RecentMenu, WithoutFilesHasNothingToClear) {
    EXPECT_EQ(titles(), QStringList(u"(&Clear Menu)"_s));
}

TEST_F(RecentMenu, ShowsTheNewestFirstAndOpensWhatIsChosen) {
    const auto older = open("Older.vexaB");
    open("Newer.vexaB");
    EXPECT_EQ(titles(), QStringList({u"Newer.vexaB"_s, u"Older.vexaB"_s, u"&Clear Menu"_s}));
    menu.actions().at(1)->trigger();
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0].toString(), older);
}

TEST_F(RecentMenu, ShowsNamesAsTheyAre) {
    open("Rock & Roll #1 100%.vexaB");
    open("tab\there.vexaB");
    EXPECT_EQ(titles(), QStringList({u"tab\uFFFDhere.vexaB"_s, u"Rock && Roll #1 100%.vexaB"_s,
                                     u"&Clear Menu"_s}));
}

TEST_F(RecentMenu, ToolTipsLoadNoPicturesThatNamesSpeakOf) {
    const auto path = open("Day 1<img src=file:%2fdev%2fzero>.vexaB");
    titles();
    QTextDocument shown;
    shown.setHtml(menu.actions().constFirst()->toolTip());
    EXPECT_EQ(shown.toPlainText().replace(QChar::Nbsp, u' '), path);
}

TEST_F(RecentMenu, TellsNamesakesApartByTheirFolders) {
    open("a/List.vexaB");
    open("R&B/List.vexaB");
    open("List 2.vexaB");
    EXPECT_EQ(titles(),
              QStringList({u"List 2.vexaB"_s, u"List.vexaB — %1/R&&B"_s.arg(folder.path()),
                           u"List.vexaB — %1/a"_s.arg(folder.path()), u"&Clear Menu"_s}));
}

TEST_F(RecentMenu, AFileThatIsGoneIsShownButCannotBeChosen) {
    QFile::remove(open("Gone.vexaB"));
    open("There.vexaB");
    EXPECT_EQ(titles(),
              QStringList({u"There.vexaB"_s, u"(Gone.vexaB (not found))"_s, u"&Clear Menu"_s}));
}

TEST_F(RecentMenu, AFileThatGoesWhileTheMenuIsOpenIsNotOpened) {
    const auto path = open("Going.vexaB");
    titles();
    QFile::remove(path);
    menu.actions().constFirst()->trigger();
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(RecentMenu, IsCleared) {
    open("List.vexaB");
    titles();
    menu.actions().constLast()->trigger();
    EXPECT_EQ(titles(), QStringList(u"(&Clear Menu)"_s));
}

TEST_F(RecentMenu, AFolderOfThatNameIsNotTheFile) {
    const auto path = open("Reels.vexaB");
    titles();
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    menu.actions().constFirst()->trigger();
    EXPECT_EQ(chosen.size(), 0) << "a menu that was filled before";
    EXPECT_EQ(titles().constFirst(), u"(Reels.vexaB (not found))"_s);
}

} // namespace
