#include "desktop/FileDrops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct Drops : testing::Test {
    /// The action accepted by the window; none if it refuses.
    Qt::DropAction drop(QEvent::Type type, Qt::DropActions offered) {
        QDropEvent event({}, offered, &thing, Qt::LeftButton, Qt::NoModifier, type);
        event.ignore();
        QCoreApplication::sendEvent(&window, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    QWidget window;
    FileDrops drops{window};
    QSignalSpy dropped{&drops, &FileDrops::fileDropped};
    QMimeData thing;
};

TEST_F(Drops, AFileIsCopiedThoughMovingIsOffered) {
    thing.setUrls({QUrl(u"file:///a%20b.vexaB"_s), QUrl(u"file:///c.vexaB"_s)});
    const auto offered = Qt::MoveAction | Qt::CopyAction;
    EXPECT_EQ(drop(QEvent::DragEnter, offered), Qt::CopyAction);
    EXPECT_EQ(drop(QEvent::DragMove, offered), Qt::CopyAction);
    EXPECT_EQ(dropped.size(), 0);
    EXPECT_EQ(drop(QEvent::Drop, offered), Qt::CopyAction);
    ASSERT_EQ(dropped.size(), 1);
    EXPECT_EQ(dropped[0], QVariantList{u"/a b.vexaB"_s});
}

TEST_F(Drops, NothingElseIsTaken) {
    thing.setText(u"words"_s);
    EXPECT_EQ(drop(QEvent::DragEnter, Qt::CopyAction), Qt::IgnoreAction);
    thing.setUrls({QUrl(u"https://example.org/a.vexaB"_s)});
    EXPECT_EQ(drop(QEvent::DragMove, Qt::CopyAction), Qt::IgnoreAction);
    EXPECT_EQ(drop(QEvent::Drop, Qt::CopyAction), Qt::IgnoreAction);
    thing.setUrls({QUrl(u"file:///a.vexaB"_s)});
    EXPECT_EQ(drop(QEvent::Drop, Qt::MoveAction), Qt::IgnoreAction);
    EXPECT_EQ(dropped.size(), 0);
}

} // namespace
