#include "controls/RowsMimeData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace vexa;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

BatchItemRef item(const QString& title) {
    return std::make_shared<BatchItem>(BatchItem{7, title, 0x01000000, 0x010A0000, 1, 0, 0});
}

TEST(RowsMimeData, OffersTheRowsBetweenTabsAndCommas) {
    const RowsMimeData data({item(u"Part, one"_s)});
    EXPECT_THAT(data.formats(),
                ElementsAre(u"text/tab-separated-values"_s, u"text/csv"_s, u"text/plain"_s));
    EXPECT_EQ(data.text(), u"Reel\tTitle\tStart\tStop\tRate\tSync\n"
                           "7\tPart, one\t01:00:00:00\t01:10:00:00\t25 fps\tMTC\n"_s);
    EXPECT_EQ(QString::fromUtf8(data.data(u"text/csv"_s)),
              u"Reel,Title,Start,Stop,Rate,Sync\n"
              "7,\"Part, one\",01:00:00:00,01:10:00:00,25 fps,MTC\n"_s);
    EXPECT_TRUE(data.data(u"text/html"_s).isEmpty());
}

TEST(RowsMimeData, KeepsTheRowsAsTheyWere) {
    const auto copied = item(u"before"_s);
    const RowsMimeData data({copied});
    copied->title = u"after"_s;
    EXPECT_TRUE(data.text().contains(u"before"_s));
}

TEST(RowsMimeData, GivesItsTextEvenWhenItIsGone) {
    auto data = std::make_unique<RowsMimeData>(BatchItems{item(u"Part one"_s)});
    const auto text = data->text();
    const auto offered = RowsMimeData::rowsText(*data);
    data.reset();
    EXPECT_EQ(offered.text(), text);
}

TEST(RowsMimeData, TakesTheBestOfWhatIsOffered) {
    QMimeData data;
    data.setText(u"plain"_s);
    EXPECT_EQ(RowsMimeData::rowsText(data).text(), u"plain"_s);
    data.setData(u"text/csv"_s, "commas \xE9");
    EXPECT_EQ(RowsMimeData::rowsText(data).text(), u"commas é"_s);
    data.setData(u"text/tab-separated-values"_s, "tabs");
    EXPECT_EQ(RowsMimeData::rowsText(data).text(), u"tabs"_s);
}

} // namespace
