#include "defaults/BackgroundWrites.h"
#include "defaults/user_defaults.h"
#include "support/CleanDefaults.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <future>
#include <thread>
#include <vector>

using namespace vexa;
using namespace vexa::test;

namespace {

struct BackgroundWrites : testing::Test {
    const CleanDefaults clean;
    std::vector<Preferences> written;
    const defaults::BackgroundWrites::Store note = [this](const Preferences& change) {
        written.push_back(change);
    };
};

TEST_F(BackgroundWrites, AreReadBackBeforeTheyAreOnDisk) {
    const defaults::BackgroundWrites background;
    defaults::write({.delayInSeconds = 3});
    EXPECT_EQ(defaults::readSettingsFile(), Preferences());
    EXPECT_EQ(defaults::read(), Preferences{.delayInSeconds = 3});
}

TEST_F(BackgroundWrites, AreOnDiskWhenTheyEnd) {
    {
        const defaults::BackgroundWrites background;
        defaults::write({.delayInSeconds = 3});
        QCoreApplication::processEvents();
        defaults::write({.windowWidth = 800});
    }
    EXPECT_EQ(defaults::readSettingsFile(), (Preferences{.delayInSeconds = 3, .windowWidth = 800}));
}

TEST_F(BackgroundWrites, OfOneEventAreOne) {
    {
        const defaults::BackgroundWrites background(note);
        defaults::write({.delayInSeconds = 3});
        defaults::write({.windowWidth = 800});
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(written, std::vector({Preferences{.delayInSeconds = 3, .windowWidth = 800}}));
}

TEST_F(BackgroundWrites, OfTheLastEventAreWrittenAtTheEnd) {
    {
        const defaults::BackgroundWrites background(note);
        defaults::write({.delayInSeconds = 3});
    }
    EXPECT_EQ(written, std::vector({Preferences{.delayInSeconds = 3}}));
}

TEST_F(BackgroundWrites, KeepAThreadOfTheirOwnWaiting) {
    std::promise<std::thread::id> begun;
    std::promise<void> diskIsReady;
    {
        const defaults::BackgroundWrites background([&](const Preferences& change) {
            if (written.empty()) {
                begun.set_value(std::this_thread::get_id());
                diskIsReady.get_future().wait();
            }
            written.push_back(change);
        });
        defaults::write({.delayInSeconds = 3});
        QCoreApplication::processEvents();
        EXPECT_NE(begun.get_future().get(), std::this_thread::get_id());
        EXPECT_EQ(defaults::read(), Preferences{.delayInSeconds = 3}) << "being written";
        defaults::write({.delayInSeconds = 4});
        EXPECT_EQ(defaults::read(), Preferences{.delayInSeconds = 4});
        diskIsReady.set_value();
    }
    EXPECT_EQ(written,
              std::vector({Preferences{.delayInSeconds = 3}, Preferences{.delayInSeconds = 4}}));
}

} // namespace
