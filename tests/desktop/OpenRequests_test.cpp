#include "desktop/OpenRequests.h"

#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

/// Runs the action after everything that is already queued.
void soon(std::function<void()> action) { QTimer::singleShot(0, std::move(action)); }

struct FilesToOpen : testing::Test {
    /// Runs until that many files have been opened.
    void awaitOpened(qsizetype files) {
        wanted = files;
        program.exec();
    }

    QEventLoop program;
    qsizetype wanted = 0;
    QStringList opened;
    std::function<void()> whileOpening;
    bool goOn = true;
    OpenRequests requests{[this](const QString& path) {
        opened += path;
        if (whileOpening)
            whileOpening();
        if (opened.size() == wanted)
            program.quit();
        return goOn;
    }};
};

TEST_F(FilesToOpen, AreServedInTheirOrder) {
    requests.add(u"a"_s);
    requests.add(u"b"_s);
    EXPECT_TRUE(opened.isEmpty());
    awaitOpened(2);
    requests.add(u"c"_s);
    awaitOpened(3);
    EXPECT_EQ(opened, (QStringList{u"a"_s, u"b"_s, u"c"_s}));
}

TEST_F(FilesToOpen, WaitWhileACommandAsksSomething) {
    QStringList openedMeanwhile{u"nothing yet"_s};
    soon([&] {
        QEventLoop question;
        requests.add(u"a"_s);
        soon([&] { soon([&] { question.quit(); }); });
        question.exec();
        openedMeanwhile = opened;
    });
    awaitOpened(1);
    EXPECT_EQ(openedMeanwhile, QStringList());
    EXPECT_EQ(opened, QStringList{u"a"_s});
}

TEST_F(FilesToOpen, WaitWhileAnotherFileIsOpened) {
    whileOpening = [&] {
        whileOpening = nullptr;
        QEventLoop question;
        requests.add(u"b"_s);
        soon([&] { soon([&] { question.quit(); }); });
        question.exec();
        EXPECT_EQ(opened, QStringList{u"a"_s});
    };
    requests.add(u"a"_s);
    awaitOpened(2);
    EXPECT_EQ(opened, (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(FilesToOpen, AreLetGoWhenOneIsNotOpenedAfterAll) {
    whileOpening = [&] {
        requests.add(u"meanwhile"_s);
        goOn = false;
    };
    requests.add(u"a"_s);
    requests.add(u"b"_s);
    awaitOpened(1);
    whileOpening = nullptr;
    goOn = true;
    requests.add(u"later"_s);
    awaitOpened(2);
    EXPECT_EQ(opened, (QStringList{u"a"_s, u"later"_s}));
}

} // namespace
