#include "batch/VexaBatchStripeData.h"
#include "document/list_file.h"
#include "property_list/BinaryFile.h"
#include "support/PeakMemory.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <memory>
#include <ostream>
#include <random>
#include <string>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointee;

namespace {

QString data(const QString& name) { return QStringLiteral(VEXA_TEST_DATA "/") + name; }

BatchItemRef item(const BatchItem& fields) { return std::make_shared<BatchItem>(fields); }

const BatchItem opening{7, u"Opening"_s, 0x003B3A1D, 0x01000000, 3, 1, 1};
const BatchItem second{12, u"Second reel"_s, 0x01000000, 0x02000000, 0, 2, 0};

class ListFile : public testing::Test {
protected:
    QString path() const { return m_directory.filePath(u"list.vexaB"_s); }

    static QByteArray read(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    BatchItems readBytes(const QByteArray& bytes) const {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        return readListFile(path());
    }

    BatchItems readBack(const BatchItems& items) const {
        EXPECT_TRUE(writeListFile(path(), items));
        return readListFile(path());
    }

    QTemporaryDir m_directory;
};

TEST_F(ListFile, HoldsTwoItemsWithAllTheirValues) {
    ASSERT_TRUE(writeListFile(path(), {item(opening), item(second)}));
    EXPECT_EQ(read(path()), read(data(u"two_items.vexaB"_s)));
    EXPECT_THAT(readListFile(path()), ElementsAre(Pointee(opening), Pointee(second)));
}

TEST_F(ListFile, WritesTimesInDecimal) {
    EXPECT_EQ(opening.start, 3881501u);
    EXPECT_EQ(opening.stop, 16777216u);
    ASSERT_TRUE(writeListFile(path(), {item(opening)}));
    EXPECT_TRUE(read(path()).contains("<key>vexastart</key>\n\t\t\t<integer>3881501</integer>"));
    EXPECT_TRUE(read(path()).contains("<key>vexastop</key>\n\t\t\t<integer>16777216</integer>"));
}

TEST_F(ListFile, HoldsAnEmptyList) {
    ASSERT_TRUE(writeListFile(path(), {}));
    EXPECT_EQ(read(path()), read(data(u"empty.vexaB"_s)));
    EXPECT_THAT(readListFile(path()), IsEmpty());
}

TEST_F(ListFile, IsToldFromWhatIsNoList) {
    EXPECT_EQ(listInFile(data(u"empty.vexaB"_s)), BatchItems());
    EXPECT_EQ(listInFile(path()), std::nullopt);
    readBytes("no list");
    EXPECT_EQ(listInFile(path()), std::nullopt);
    readBytes("<plist><dict/></plist>");
    EXPECT_EQ(listInFile(path()), std::nullopt);
}

TEST_F(ListFile, IsReadInItsBinaryFormAndBesideOtherKeys) {
    EXPECT_THAT(readListFile(data(u"two_items_binary.vexaB"_s)),
                ElementsAre(Pointee(opening), Pointee(second)));
}

TEST_F(ListFile, KeepsAnOrderThatIsNotTheLists) {
    const auto items = readBack({item(second), item(opening)});
    EXPECT_THAT(items, ElementsAre(Pointee(second), Pointee(opening)));

    VexaBatchStripeData list(nullptr);
    list.replaceBatchList(items);
    EXPECT_THAT(list.batchList(), ElementsAre(Pointee(second), Pointee(opening)));
    const auto third = list.addItemWithReel(99, u"Third"_s, {0, 0, 0, 0});
    EXPECT_THAT(list.batchList(), ElementsAre(Pointee(opening), Pointee(second), third));
}

TEST_F(ListFile, KeepsIdsAndDoesNotAdvanceTheCountOfThem) {
    VexaBatchStripeData list(nullptr);
    list.replaceBatchList(readListFile(data(u"two_items.vexaB"_s)));
    EXPECT_EQ(list.batchList()[0]->id, 1u);
    EXPECT_EQ(list.addItemWithReel(1, {}, {0, 0, 0, 0})->id, 0u);
}

TEST_F(ListFile, GivesItemsWhoseTitlesCanBeEdited) {
    VexaBatchStripeData list(nullptr);
    list.replaceBatchList(readListFile(data(u"two_items.vexaB"_s)));
    list.setObjectValue(u"Closing"_s, item_key::title, 0);
    EXPECT_EQ(readBack(list.batchList())[0]->title, u"Closing"_s);
}

class GoldenListFile : public ListFile, public testing::WithParamInterface<const char*> {};

TEST_P(GoldenListFile, IsWrittenBackByteForByte) {
    const QString golden = data(QString::fromLatin1(GetParam()));
    ASSERT_TRUE(writeListFile(path(), readListFile(golden)));
    EXPECT_EQ(read(path()).toStdString(), read(golden).toStdString());
}

INSTANTIATE_TEST_SUITE_P(Files, GoldenListFile,
                         testing::Values("empty.vexaB", "two_items.vexaB", "titles.vexaB",
                                         "odd_items.vexaB"));

TEST_F(ListFile, GivesOddItemsTheRowsThatCanBeMadeOfThem) {
    VexaBatchStripeData list(nullptr);
    list.replaceBatchList(readListFile(data(u"odd_items.vexaB"_s)));
    ASSERT_EQ(list.numItems(), 6u);
    const auto cell = [&](const QString& column, std::size_t row) {
        return list.objectValueForTableColumn(column, row).toStdString();
    };
    EXPECT_EQ(cell(item_key::reel, 0), "");
    EXPECT_EQ(cell(item_key::title, 0), "no reel");
    EXPECT_EQ(cell(item_key::reel, 1), "12");
    EXPECT_EQ(cell(item_key::title, 1), "1984");
    EXPECT_EQ(cell(item_key::start, 1), "00:00:00:00");
    EXPECT_EQ(cell(item_key::reel, 2), "-3");
    EXPECT_EQ(cell(item_key::start, 2), "01:00:00:00");
    EXPECT_EQ(cell(item_key::type, 2), "MTC");
    EXPECT_EQ(cell(item_key::title, 3), "");
    EXPECT_EQ(cell(item_key::title, 4), "more");
    EXPECT_EQ(cell(item_key::title, 5), "ordinary");
}

// A binary file may contain values that XML cannot represent.
TEST_F(ListFile, KeepsTheNumberOfADateThatIsNone) {
    BinaryFile binary;
    binary.objects = {"\xD1\1\2",
                      "\x5D"
                      "vexabatchlist",
                      "\xA1\3",
                      "\xD2\4\5\6\7",
                      "\x51"
                      "k",
                      "\x51"
                      "l",
                      "\x33\x7F\xF8" + std::string(6, '\0'),
                      "\x33\x7E\x37\xE4\x3C\x88\x00\x75\x9C"s};
    ASSERT_TRUE(writeListFile(path(), readBytes(binary.bytes())));
    const auto written = read(path());
    EXPECT_TRUE(written.contains("<key>k</key>\n\t\t\t<real>nan</real>")) << written.toStdString();
    EXPECT_TRUE(written.contains("<key>l</key>\n\t\t\t<real>1.0000000000000001e+300</real>"));
}

TEST_F(ListFile, HasNoItemsWhereThereIsNoFile) {
    EXPECT_THAT(readListFile(path()), IsEmpty());
    EXPECT_THAT(readListFile({}), IsEmpty());
    EXPECT_THAT(readListFile(m_directory.path()), IsEmpty());
}

TEST_F(ListFile, HasNoItemsWhereReadingWouldNeverEnd) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_THAT(readListFile(path()), IsEmpty());
    EXPECT_THAT(readListFile(u"/dev/zero"_s), IsEmpty());
    EXPECT_THAT(readListFile(u"/proc/self/pagemap"_s), IsEmpty());
}

TEST_F(ListFile, TakesNoMoreThanAGibibyteWhateverItNames) {
    if (!isMemoryOurs)
        GTEST_SKIP() << "a sanitizer takes memory of its own";
    // One byte per row, and the same element in every row.
    constexpr std::uint64_t rows = 8'300'000;
    for (const std::string element : {"\xD0", "\xD1\1\1", "\x09", "\x50"}) {
        BinaryFile binary{{}, 4, 1};
        binary.objects = {"\xD1\1\2", "\x5D" + "vexabatchlist"s,
                          "\xAF\x12" + bigEndianBytes(rows, 4) + std::string(rows, '\3'), element};
        const auto bytes = binary.bytes();
        EXPECT_LT(peakMemory([&] { readBytes(bytes); }), 1024) << "MiB";
    }
}

TEST_F(ListFile, HasNoItemsInAnythingElse) {
    EXPECT_THAT(readListFile(data(u"no_list.vexaB"_s)), IsEmpty());
    for (const char* bytes :
         {"", "no property list", "<plist><array/></plist>", "<plist><dict/></plist>",
          "<plist><dict><key>vexabatchlist</key><string>x</string></dict></plist>",
          "<plist><dict><key>vexabatchlist</key><dict/></dict></plist>",
          "<plist><dict><key>vexabatchlist</key><array/></dict>", "bplist00"})
        EXPECT_THAT(readBytes(bytes), IsEmpty()) << bytes;
}

TEST_F(ListFile, HasNoItemsWhenItIsCutOffAnywhere) {
    const QByteArray whole = read(data(u"two_items.vexaB"_s)).trimmed();
    ASSERT_EQ(readBytes(whole).size(), 2u);
    for (qsizetype size = 0; size < whole.size(); ++size)
        ASSERT_THAT(readBytes(whole.first(size)), IsEmpty()) << size << " bytes";
}

TEST_F(ListFile, IsNotWrittenWhereItCannotBe) {
    EXPECT_FALSE(writeListFile(m_directory.filePath(u"missing/list.vexaB"_s), {item(opening)}));
}

class RandomListFile : public ListFile, public testing::WithParamInterface<std::uint32_t> {
protected:
    std::uint64_t number() {
        const auto bits = std::uniform_int_distribution<unsigned>(0, 63)(m_random);
        return std::uniform_int_distribution<std::uint64_t>()(m_random) >> bits;
    }
    /// Random characters, including control characters of XML 1.0 and surrogate pairs.
    QString title() {
        QString text;
        for (auto left = number() % 30; left > 0; --left) {
            const auto c = static_cast<char32_t>(number() % 0x110000);
            if (c != 0 && !QChar::isSurrogate(c))
                text += QString::fromUcs4(&c, 1);
        }
        return text;
    }

    std::mt19937_64 m_random{GetParam()};
};

TEST_P(RandomListFile, GivesBackItsItems) {
    BatchItems items(number() % 200);
    for (auto& each : items)
        each = item({number(), title(), number(), number(), number(), number(), number()});
    const auto found = readBack(items);
    ASSERT_EQ(found.size(), items.size());
    for (std::size_t row = 0; row < items.size(); ++row)
        EXPECT_EQ(*found[row], *items[row]) << "row " << row;
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomListFile, testing::Range(1u, 31u));

} // namespace
