#include "interchange/delimited_rows.h"
#include "timecode/frame_rate.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

BatchItemRef item(std::uint64_t reel, const QString& title, std::uint64_t rate = 1) {
    return std::make_shared<BatchItem>(BatchItem{reel, title, 0x01000000, 0x010A0000, rate, 2, 0});
}

TEST(DelimitedText, HasAHeaderAndARowForEachItem) {
    EXPECT_EQ(delimitedText({item(7, u"Part one"_s)}, u','),
              u"Reel,Title,Start,Stop,Rate,Sync\n"
              "7,Part one,01:00:00:00,01:10:00:00,25 fps,FSK\n"_s);
    EXPECT_EQ(delimitedText({}, u'\t'), u"Reel\tTitle\tStart\tStop\tRate\tSync\n"_s);
}

TEST(DelimitedText, QuotesWhatWouldBreakARow) {
    const auto title = [](const QString& text) {
        return delimitedText({item(1, text)}, u',')
            .section(u"Sync\n1,"_s, 1)
            .section(u",01:00"_s, 0, 0);
    };
    EXPECT_EQ(title(u"a,b"_s), u"\"a,b\""_s);
    EXPECT_EQ(title(u"say \"hm\""_s), u"\"say \"\"hm\"\"\""_s);
    EXPECT_EQ(title(u"two\nlines"_s), u"\"two\nlines\""_s);
    EXPECT_EQ(title(u"a;b"_s), u"a;b"_s);
}

TEST(DelimitedText, WritesFormulasAsText) {
    EXPECT_TRUE(delimitedText({item(1, u"=1+1"_s)}, u',').contains(u",'=1+1,"_s));
}

/// Expects the rows to read back as written.
void expectBack(const BatchItems& items, QChar delimiter) {
    const auto read = readDelimitedRows(delimitedText(items, delimiter), {});
    EXPECT_TRUE(read.refused.empty());
    ASSERT_EQ(read.rows.size(), items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto& row = read.rows[i];
        const auto& [start, stop, rate, type] = row.settings;
        EXPECT_EQ((BatchItem{row.reel, row.title, start, stop, rate, type, 0}), *items[i])
            << row.title.toStdString();
    }
}

TEST(DelimitedText, IsReadBackAsItWas) {
    BatchItems items;
    for (const auto& title :
         {u""_s, u" blanks "_s, u"a,b;c\td"_s, u"\""_s, u"\"\"\""_s, u"line\nbreak"_s, u"\r\n"_s,
          u"=1+1"_s, u"'=1"_s, u"'"_s, u"日本語"_s, u"שלום ‏"_s, u"🎬"_s, u"Start"_s,
          u"sep=;"_s, QString(u"\0"_s), u"\uFEFFmark"_s})
        items.push_back(item(items.size(), title, items.size() % rate::count));
    for (const auto delimiter : {u',', u';', u'\t'})
        expectBack(items, delimiter);
}

TEST(DelimitedText, IsReadBackThoughATitleLooksLikeRowsOfAnotherDelimiter) {
    for (const auto delimiter : {u',', u';', u'\t'})
        for (const auto& other : {u"Out,Clip,Tape\n01000000,1100000"_s,
                                  u"Out;Clip;Tape\n01000000;1100000;01:00:00:00"_s,
                                  u"Out\tClip\tTape\n01000000\t1100000"_s})
            expectBack({item(1, u"two\r\nlines, "_s + other)}, delimiter);
}

TEST(DelimitedText, IsReadBackWhateverTheTitles) {
    std::mt19937 random(17);
    constexpr QStringView letters = u"ab ,;\t\"\"'=\r\n+-@é日";
    BatchItems items;
    for (int i = 0; i < 2000; ++i) {
        QString title;
        for (auto length = random() % 8; length > 0; --length)
            title += letters[static_cast<qsizetype>(random() % letters.size())];
        items.push_back(item(random(), title, random() % rate::count));
    }
    for (const auto delimiter : {u',', u';', u'\t'})
        expectBack(items, delimiter);
}

} // namespace
