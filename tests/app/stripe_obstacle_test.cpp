#include "app/stripe_obstacle.h"
#include "defaults/user_defaults.h"
#include "document/list_file.h"
#include "support/CleanDefaults.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;

namespace {

struct StripeObstacle : testing::Test {
    std::string obstacle() const {
        const auto found = obstacleToStripe(line);
        return found ? found->message.toStdString() : std::string{};
    }

    const CleanDefaults clean;
    CommandLine line;
};

struct StripeOfTimes : StripeObstacle {
    StripeOfTimes() { line.start = Timecode{1, 0, 0, 24}; }
};

TEST_F(StripeOfTimes, IsATimeThatDoesNotExistAtTheRate) {
    line.rate = rate::fps24;
    EXPECT_EQ(obstacle(), "there is no start time 01:00:00:24 at 24 fps");
    line.rate = rate::fps25;
    EXPECT_EQ(obstacle(), "");
    line.stop = Timecode{2, 0, 0, 25};
    EXPECT_EQ(obstacle(), "there is no stop time 02:00:00:25 at 25 fps");
    line.rate = rate::fps30Drop;
    EXPECT_EQ(obstacle(), "");
    line.stop = Timecode{2, 1, 0, 0};
    EXPECT_EQ(obstacle(), "there is no stop time 02:01:00:00 at 30 df");
}

TEST_F(StripeOfTimes, WithoutARateIsSeenAtThatOfThePreferences) {
    EXPECT_EQ(obstacle(), "");
    defaults::write({.defaultFrameRate = rate::fps24});
    EXPECT_EQ(obstacle(), "there is no start time 01:00:00:24 at 24 fps");
    line.rate = rate::fps30;
    EXPECT_EQ(obstacle(), "");
}

struct StripeOfList : StripeObstacle {
    StripeOfList() { line.file = folder.filePath(u"Day 1.vexaB"_s); }

    void writeList(std::size_t items) const {
        ASSERT_TRUE(writeListFile(line.file, BatchItems(items, std::make_shared<BatchItem>())));
    }
    /// The message without the file name it begins with.
    std::string fault() const {
        const auto text = obstacle();
        const auto name = '"' + line.file.toStdString() + "\" ";
        EXPECT_TRUE(text.empty() || text.starts_with(name)) << text;
        return text.empty() ? text : text.substr(name.size());
    }

    QTemporaryDir folder;
};

TEST_F(StripeOfList, IsAFileThatIsNoList) {
    EXPECT_EQ(fault(), "does not exist");
    QFile file(line.file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no list");
    file.close();
    EXPECT_EQ(fault(), "is not a batch list, or is empty");
    writeList(0);
    EXPECT_EQ(fault(), "is not a batch list, or is empty");
    line.file = folder.path();
    EXPECT_EQ(fault(), "is not a file");
}

TEST_F(StripeOfList, IsARowThatIsNotThere) {
    writeList(3);
    EXPECT_EQ(fault(), "");
    line.rows = {0, 2};
    EXPECT_EQ(fault(), "");
    line.rows = {0, 3};
    EXPECT_EQ(fault(), "has 3 rows: there is no row 4");
}

} // namespace
