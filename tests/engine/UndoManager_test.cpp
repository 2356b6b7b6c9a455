#include "engine/UndoManager.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

struct Undo : testing::Test {
    /// An edit like the controller's: it registers itself as its own inverse.
    void set(int& variable, int value, const QString& name = QStringLiteral("Change")) {
        const int old = variable;
        variable = value;
        undo.registerUndo([this, &variable, old, name] { set(variable, old, name); });
        undo.setActionName(name);
    }

    UndoManager undo;
    int a = 0;
    int b = 0;
};

TEST_F(Undo, HasNothingAtFirst) {
    EXPECT_FALSE(undo.canUndo());
    EXPECT_FALSE(undo.canRedo());
    EXPECT_EQ(undo.undoMenuItemTitle(), QStringLiteral("Undo"));
    EXPECT_EQ(undo.redoMenuItemTitle(), QStringLiteral("Redo"));
    undo.undo();
    undo.redo();
}

TEST_F(Undo, GoesBackAndForthWithTheSameName) {
    set(a, 1, QStringLiteral("Change Start Time"));
    EXPECT_EQ(undo.undoMenuItemTitle(), QStringLiteral("Undo Change Start Time"));
    for (int i = 0; i < 3; ++i) {
        undo.undo();
        EXPECT_EQ(a, 0);
        EXPECT_FALSE(undo.canUndo());
        EXPECT_EQ(undo.redoMenuItemTitle(), QStringLiteral("Redo Change Start Time"));
        undo.redo();
        EXPECT_EQ(a, 1);
        EXPECT_FALSE(undo.canRedo());
    }
}

TEST_F(Undo, WhatOneEventRegistersIsOneStep) {
    set(a, 1);
    set(a, 2);
    set(b, 5);
    undo.undo();
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    EXPECT_FALSE(undo.canUndo());
    undo.redo();
    EXPECT_EQ(a, 2);
    EXPECT_EQ(b, 5);
    undo.undo();
    EXPECT_EQ(a, 0);
}

TEST_F(Undo, EventsEndWhenTheLoopTakesOver) {
    set(a, 1);
    QCoreApplication::processEvents();
    set(a, 2);
    undo.undo();
    EXPECT_EQ(a, 1);
    undo.undo();
    EXPECT_EQ(a, 0);
}

using Keys = std::pair<QEvent::Type, QEvent::Type>;

class QueuedKeys : public Undo, public testing::WithParamInterface<Keys> {};

TEST_P(QueuedKeys, AreEventsOfTheirOwn) {
    struct Typist : QObject {
        bool event(QEvent* event) override {
            if (dynamic_cast<QKeyEvent*>(event))
                onKey();
            return QObject::event(event);
        }
        std::function<void()> onKey;
    } typist;
    typist.onKey = [this] { set(a, a + 1); };
    // Both are delivered in one pass, before anything posted in between.
    for (const auto type : {GetParam().first, GetParam().second})
        QCoreApplication::postEvent(&typist, new QKeyEvent(type, Qt::Key_1, Qt::NoModifier),
                                    Qt::HighEventPriority);
    QCoreApplication::sendPostedEvents(&typist);
    ASSERT_EQ(a, 2);
    undo.undo();
    EXPECT_EQ(a, 1);
    undo.undo();
    EXPECT_EQ(a, 0);
}

INSTANTIATE_TEST_SUITE_P(PressesAndReleases, QueuedKeys,
                         testing::Values(Keys{QEvent::KeyPress, QEvent::KeyPress},
                                         Keys{QEvent::KeyPress, QEvent::KeyRelease},
                                         Keys{QEvent::KeyRelease, QEvent::KeyRelease},
                                         Keys{QEvent::KeyRelease, QEvent::KeyPress}));

TEST_F(Undo, QueuedCallsAreEventsOfTheirOwn) {
    QObject called;
    for (int i = 0; i < 2; ++i)
        QMetaObject::invokeMethod(&called, [this] { set(a, a + 1); }, Qt::QueuedConnection);
    QCoreApplication::sendPostedEvents(&called);
    ASSERT_EQ(a, 2);
    undo.undo();
    EXPECT_EQ(a, 1);
    undo.undo();
    EXPECT_EQ(a, 0);
}

TEST_F(Undo, ANewEditForgetsWhatCouldBeRedone) {
    set(a, 1);
    undo.undo();
    set(b, 1);
    EXPECT_FALSE(undo.canRedo());
    undo.undo();
    EXPECT_EQ(b, 0);
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(Undo, AStepWhoseInverseRegistersNothingCannotBeRedone) {
    set(a, 1);
    undo.endEvent();
    undo.registerUndo([] {});
    undo.setActionName(QStringLiteral("Nothing"));
    undo.undo();
    EXPECT_FALSE(undo.canRedo());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Change"));
    undo.undo();
    EXPECT_EQ(a, 0);
}

TEST_F(Undo, KnowsTheDirectionWhileReplaying) {
    std::vector<QString> directions;
    std::function<void()> note = [&] {
        directions.push_back(undo.isUndoing()   ? QStringLiteral("undo")
                             : undo.isRedoing() ? QStringLiteral("redo")
                                                : QStringLiteral("neither"));
        undo.registerUndo(note);
    };
    note();
    undo.undo();
    undo.redo();
    EXPECT_EQ(directions, (std::vector{QStringLiteral("neither"), QStringLiteral("undo"),
                                       QStringLiteral("redo")}));
    EXPECT_FALSE(undo.isUndoing());
}

TEST_F(Undo, TellsOnceOfEveryChange) {
    int changes = 0;
    QObject::connect(&undo, &UndoManager::changed, [&] { ++changes; });
    set(a, 1);
    EXPECT_EQ(changes, 1);
    undo.undo();
    EXPECT_EQ(changes, 2);
    undo.redo();
    EXPECT_EQ(changes, 3);
}

TEST(UndoManagerAtItsEnd, TellsOfNoChange) {
    int changes = 0;
    {
        UndoManager manager;
        manager.registerUndo([] {});
        QObject::connect(&manager, &UndoManager::changed, [&] { ++changes; });
    }
    EXPECT_EQ(changes, 0);
}

} // namespace
