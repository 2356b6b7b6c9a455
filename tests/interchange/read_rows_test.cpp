#include "batch/VexaBatchStripeData.h"
#include "interchange/printing.h"
#include "interchange/read_rows.h"

#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class TextFile : public testing::Test {
protected:
    QString write(const QByteArray& bytes) const {
        const auto path = m_directory.filePath(u"rows.csv"_s);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    QTemporaryDir m_directory;
};

TEST_F(TextFile, IsReadInItsEncoding) {
    const auto [text, fault] = readTextFile(write("1;Caf\xE9"));
    EXPECT_EQ(text, u"1;Café"_s);
    EXPECT_TRUE(fault.isNull());
}

TEST_F(TextFile, ThatIsTooLongIsRefusedWithoutReadingIt) {
    QFile file(m_directory.filePath(u"rows.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(1 << 30)); // uses no disk space
    EXPECT_EQ(readTextFile(file.fileName()).fault, u"it is longer than 64 MiB"_s);
}

TEST_F(TextFile, ThatCannotBeReadIsRefusedInWords) {
    EXPECT_EQ(readTextFile(m_directory.filePath(u"none.csv"_s)).fault, u"there is no such file"_s);
    EXPECT_EQ(readTextFile(m_directory.path()).fault, u"it is not a regular file"_s);
    EXPECT_EQ(readTextFile(u"/dev/zero"_s).fault, u"it is not a regular file"_s);
}

TEST(ReadRows, TellsAnEditListFromASpreadsheet) {
    EXPECT_THAT(rowTexts(readRows(u"TITLE: x\n"
                                  "001 7 V C 00:00:01:00 00:00:05:00 00:00:00:00 00:00:04:00\n"_s,
                                  {})),
                ElementsAre("2: 7 7 00:00:01:00-00:00:05:00 24 fps MTC"));
    EXPECT_THAT(rowTexts(readRows(u"7,a,00:00:01:00,00:00:05:00\n"_s, {})),
                ElementsAre("1: 7 a 00:00:01:00-00:00:05:00 24 fps MTC"));
}

TEST(ReadRows, BecomeItemsWithIdsOfTheList) {
    VexaBatchStripeData list(nullptr);
    list.setNextItemID(5);
    const auto read =
        readRows(u"7,a,00:00:01:00,00:00:05:00,25,FSK\n8,b,00:00:01:00,00:00:05:00"_s, {});
    const auto items = itemsOfRows(read, list);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(*items[0], (BatchItem{7, u"a"_s, 0x100, 0x500, 1, 2, 5}));
    EXPECT_EQ(items[1]->id, 6u);
    EXPECT_EQ(list.nextItemID(), 7u);
}

} // namespace
