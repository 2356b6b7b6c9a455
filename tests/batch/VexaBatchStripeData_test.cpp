#include "batch/VexaBatchStripeData.h"
#include "timecode/frame_rate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <set>

using namespace vexa;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

BatchItemRef item(std::uint64_t reel, const QString& title = {}, std::uint64_t id = 0) {
    return std::make_shared<BatchItem>(BatchItem{reel, title, 0, 0, 0, 0, id});
}

class BatchList : public testing::Test {
protected:
    VexaBatchStripeData data{nullptr};
    const BatchItemRef a = item(1, u"A"_s);
    const BatchItemRef b = item(2, u"B"_s);
    const BatchItemRef c = item(3, u"C"_s);
};

TEST_F(BatchList, IsEmptyAtFirst) {
    EXPECT_EQ(data.numItems(), 0u);
    EXPECT_EQ(data.numSelectedItems(), 0u);
    EXPECT_EQ(data.numberOfRowsInTableView(), 0u);
    EXPECT_EQ(data.curItem(), 0u);
    EXPECT_FALSE(data.areMoreItemsAvailable());
    EXPECT_FALSE(data.areMoreSelectedItemsAvailable());
    EXPECT_EQ(data.firstItem(), nullptr);
    EXPECT_EQ(data.firstSelectedItem(), nullptr);
}

TEST_F(BatchList, NumbersTheItemsItMakesFromZero) {
    EXPECT_EQ(data.addItemWithReel(1, u"x"_s, {2, 3, 4, 5})->id, 0u);
    EXPECT_EQ(data.addItemWithReel(1, u"x"_s, {2, 3, 4, 5})->id, 1u);
    EXPECT_EQ(data.nextItemID(), 2u);
    EXPECT_EQ(data.nextItemID(), 3u);
    data.setNextItemID(10);
    EXPECT_EQ(data.addItemWithReel(1, u"x"_s, {2, 3, 4, 5})->id, 10u);
}

TEST_F(BatchList, MakesAnItemOfTheSixValues) {
    const auto made = data.addItemWithReel(1, u"x"_s, {2, 3, 4, 5});
    EXPECT_EQ(*made, (BatchItem{1, u"x"_s, 2, 3, 4, 5, 0}));
    EXPECT_THAT(data.batchList(), ElementsAre(made));
}

TEST_F(BatchList, EveryChangeOfTheRowsOrTheSelectionIsAnotherRevision) {
    std::set<std::uint64_t> revisions{data.revision()};
    const auto isNew = [&] { return revisions.insert(data.revision()).second; };
    data.addItem(a);
    EXPECT_TRUE(isNew());
    data.addItems({b, c});
    EXPECT_TRUE(isNew());
    data.setSelection({0});
    EXPECT_TRUE(isNew());
    data.setSelectedItems({a});
    EXPECT_TRUE(isNew());
    data.removeItem(a);
    EXPECT_TRUE(isNew());
    data.deleteIndexedItems({0});
    EXPECT_TRUE(isNew());
    data.replaceBatchList({a, b});
    EXPECT_TRUE(isNew());
    data.clearBatchList();
    EXPECT_TRUE(isNew());
    data.nextItem();
    EXPECT_FALSE(isNew()) << "the cursor is no change";
}

TEST_F(BatchList, ClearingOrReplacingDoesNotResetTheNumbers) {
    data.addItemWithReel(1, {}, {0, 0, 0, 0});
    data.clearBatchList();
    EXPECT_EQ(data.numItems(), 0u);
    EXPECT_EQ(data.addItemWithReel(1, {}, {0, 0, 0, 0})->id, 1u);
    data.replaceBatchList({item(1, {}, 77)});
    EXPECT_EQ(data.addItemWithReel(1, {}, {0, 0, 0, 0})->id, 2u);
}

TEST_F(BatchList, SortsWhatIsAdded) {
    data.addItem(b);
    data.addItem(a);
    EXPECT_THAT(data.batchList(), ElementsAre(a, b));
    data.addItems({c, item(0)});
    EXPECT_THAT(data.batchList(), ElementsAre(testing::Pointee(*item(0)), a, b, c));
}

TEST_F(BatchList, PutsANewItemAfterItsEquals) {
    const auto first = item(1, u"x"_s);
    const auto second = item(1, u"x"_s);
    const auto third = item(1, u"x"_s);
    const auto fourth = item(1, u"x"_s);
    data.addItem(first);
    data.addItems({second, third});
    data.addItem(fourth);
    EXPECT_THAT(data.batchList(), ElementsAre(first, second, third, fourth));
}

TEST_F(BatchList, AnObjectThatItHoldsComesInAgainAsACopy) {
    data.addItems({a, b});
    data.addItem(a);
    data.addItems({b, a});
    EXPECT_THAT(data.batchList(), ElementsAre(a, testing::Pointee(*a), testing::Pointee(*a), b,
                                              testing::Pointee(*b)));
    const std::set<BatchItemRef> objects(data.batchList().begin(), data.batchList().end());
    EXPECT_EQ(objects.size(), 5u);
    data.removeItem(a);
    EXPECT_EQ(data.numItems(), 2u) << "equal items go together";
}

TEST_F(BatchList, KnowsRowsByTheirObjects) {
    const auto twin = item(1, u"A"_s);
    data.addItems({a, twin, b});
    EXPECT_THAT(data.itemsOfRows({2, 0, 99}), ElementsAre(a, b));
    EXPECT_EQ(data.rowsOfItems({c, b, twin}), (RowIndexes{1, 2}));
    data.addItem(item(0));
    EXPECT_EQ(data.rowsOfItems({a, b}), (RowIndexes{1, 3}));
    EXPECT_EQ(data.rowsOfItems({}), RowIndexes());
}

TEST_F(BatchList, KeepsTheOrderOfAReplacedListUntilTheNextAddition) {
    data.replaceBatchList({c, a});
    EXPECT_THAT(data.batchList(), ElementsAre(c, a));
    data.addItem(b);
    EXPECT_THAT(data.batchList(), ElementsAre(a, b, c));
    data.setBatchList({b, a});
    EXPECT_THAT(data.batchList(), ElementsAre(b, a));
    data.addItems({});
    EXPECT_THAT(data.batchList(), ElementsAre(a, b));
}

TEST_F(BatchList, ReplacingLeavesCursorAndSelectionAlone) {
    data.addItems({a, b});
    data.setSelection({1});
    data.setCurItem(1);
    data.replaceBatchList({});
    EXPECT_EQ(data.numItems(), 0u);
    EXPECT_EQ(data.curItem(), 1u);
    EXPECT_THAT(data.selectedItems(), ElementsAre(b));
}

TEST_F(BatchList, RemovesEveryEqualItem) {
    data.addItems({a, b, item(1, u"A"_s), item(1, u"A"_s, 1)});
    data.removeItem(item(1, u"A"_s));
    EXPECT_THAT(data.batchList(), ElementsAre(testing::Pointee(*item(1, u"A"_s, 1)), b));
    data.removeItem(c);
    EXPECT_EQ(data.numItems(), 2u);
}

TEST_F(BatchList, RemovesByAReferenceIntoItself) {
    data.addItems({item(1), item(1), item(2)});
    data.removeItem(data.batchList()[0]);
    EXPECT_THAT(data.batchList(), ElementsAre(testing::Pointee(*item(2))));
}

TEST_F(BatchList, DeletesRowsAndReturnsThemHighestFirst) {
    data.addItems({a, b, c});
    const auto deleted = data.deleteIndexedItems({0, 2});
    EXPECT_THAT(data.batchList(), ElementsAre(b));
    EXPECT_THAT(deleted, ElementsAre(c, a));
    data.addItems(deleted);
    EXPECT_THAT(data.batchList(), ElementsAre(a, b, c));
}

TEST_F(BatchList, PassesOverRowsThatDoNotExist) {
    data.addItems({a, b});
    data.setSelection({1, 2, 99});
    EXPECT_THAT(data.selectedItems(), ElementsAre(b));
    EXPECT_THAT(data.deleteIndexedItems({0, 2, SIZE_MAX}), ElementsAre(a));
    EXPECT_THAT(data.deleteIndexedItems({}), IsEmpty());
    EXPECT_THAT(data.batchList(), ElementsAre(b));
}

TEST_F(BatchList, WalksItsItems) {
    data.addItems({a, b, c});
    EXPECT_EQ(data.firstItem(), a);
    EXPECT_TRUE(data.areMoreItemsAvailable());
    EXPECT_EQ(data.nextItem(), b);
    EXPECT_TRUE(data.areMoreItemsAvailable());
    EXPECT_EQ(data.nextItem(), c);
    EXPECT_FALSE(data.areMoreItemsAvailable());
    EXPECT_EQ(data.nextItem(), nullptr);
    EXPECT_EQ(data.curItem(), 3u);
    EXPECT_EQ(data.firstItem(), a);
    EXPECT_EQ(data.curItem(), 0u);
}

TEST_F(BatchList, WalksTheSelectionWithTheSameCursor) {
    data.addItems({a, b, c});
    data.setSelection({2, 0});
    EXPECT_EQ(data.numSelectedItems(), 2u);
    data.setCurItem(2);
    EXPECT_EQ(data.firstSelectedItem(), a);
    EXPECT_EQ(data.curItem(), 0u);
    EXPECT_TRUE(data.areMoreSelectedItemsAvailable());
    EXPECT_EQ(data.nextSelectedItem(), c);
    EXPECT_FALSE(data.areMoreSelectedItemsAvailable());
    EXPECT_TRUE(data.areMoreItemsAvailable());
    EXPECT_EQ(data.nextSelectedItem(), nullptr);
    EXPECT_EQ(data.curItem(), 2u);
}

TEST_F(BatchList, SelectingNothingEmptiesTheSelection) {
    data.addItems({a, b});
    data.setSelection({0});
    data.setSelection({});
    EXPECT_EQ(data.numSelectedItems(), 0u);
    EXPECT_EQ(data.firstSelectedItem(), nullptr);
}

TEST_F(BatchList, TheSelectionOutlivesChangesOfTheList) {
    data.addItems({a, b});
    data.setSelection({0, 1});
    data.deleteIndexedItems({0});
    EXPECT_THAT(data.selectedItems(), ElementsAre(a, b));
    data.setSelectedItems({b});
    EXPECT_THAT(data.selectedItems(), ElementsAre(b));
}

TEST_F(BatchList, ReadsTheFieldsOfAnItemAndNothingOfNone) {
    const auto full = std::make_shared<BatchItem>(BatchItem{1, u"t"_s, 2, 3, 4, 5, 6});
    EXPECT_EQ(data.reelOfItem(full), 1u);
    EXPECT_EQ(data.titleOfItem(full), u"t"_s);
    EXPECT_EQ(data.startOfItem(full), 2u);
    EXPECT_EQ(data.stopOfItem(full), 3u);
    EXPECT_EQ(data.rateOfItem(full), 4u);
    EXPECT_EQ(data.typeOfItem(full), 5u);
    EXPECT_EQ(data.idOfItem(full), 6u);
    for (const auto read : {data.reelOfItem, data.startOfItem, data.stopOfItem, data.rateOfItem,
                            data.typeOfItem, data.idOfItem})
        EXPECT_EQ(read(nullptr), 0u);
    EXPECT_TRUE(data.titleOfItem(nullptr).isNull());
}

struct Cell {
    QString column;
    BatchItem item;
    QString text;
};

class BatchListCell : public testing::TestWithParam<Cell> {};

TEST_P(BatchListCell, Shows) {
    VexaBatchStripeData data(nullptr);
    data.addItem(std::make_shared<BatchItem>(GetParam().item));
    EXPECT_EQ(data.objectValueForTableColumn(GetParam().column, 0).toStdString(),
              GetParam().text.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    AllColumns, BatchListCell,
    testing::Values(Cell{u"vexareel"_s, {12345, {}, 0, 0, 0, 0, 0}, u"12345"_s},
                    Cell{u"vexatitle"_s, {0, u"Überblick 1"_s, 0, 0, 0, 0, 0}, u"Überblick 1"_s},
                    Cell{u"vexatitle"_s, {}, {}},
                    Cell{u"vexastart"_s, {0, {}, 0x01020304, 9, 0, 0, 0}, u"01:02:03:04"_s},
                    Cell{u"vexastart"_s, {}, u"00:00:00:00"_s},
                    Cell{u"vexastop"_s, {0, {}, 9, 0x01020304, 0, 0, 0}, u"01:02:03:04"_s},
                    Cell{u"vexarate"_s, {0, {}, 0, 0, 0, 9, 0}, u"24 fps"_s},
                    Cell{u"vexarate"_s, {0, {}, 0, 0, 1, 9, 0}, u"25 fps"_s},
                    Cell{u"vexarate"_s, {0, {}, 0, 0, 2, 9, 0}, u"30 fps"_s},
                    Cell{u"vexarate"_s, {0, {}, 0, 0, 3, 9, 0}, u"30 df"_s},
                    Cell{u"vexarate"_s, {0, {}, 0, 0, rate::count, 9, 0}, u"30 fps"_s},
                    Cell{u"vexatype"_s, {0, {}, 0, 0, 9, 0, 0}, u"MTC"_s},
                    Cell{u"vexatype"_s, {0, {}, 0, 0, 9, 1, 0}, u"DTL"_s},
                    Cell{u"vexatype"_s, {0, {}, 0, 0, 9, 2, 0}, u"FSK"_s},
                    Cell{u"vexatype"_s, {0, {}, 0, 0, 9, 3, 0}, u"MTC"_s},
                    Cell{u"vexaid"_s, {0, {}, 0, 0, 0, 0, 42}, u"42"_s},
                    Cell{u"other"_s, {1, u"t"_s, 1, 1, 1, 1, 1}, {}}));

TEST_F(BatchList, WritesTimecodesWithoutGuardingAgainstOddFields) {
    EXPECT_EQ(data.timecodeStringFromBCDNumber(0x64000000), u":0:00:00:00"_s);
    EXPECT_EQ(data.timecodeStringFromBCDNumber(0xFF000000FF), u"00:00:00:I5"_s);
}

TEST_F(BatchList, EditsATitleWhereItIs) {
    data.addItems({item(1, u"A"_s), item(1, u"B"_s)});
    const auto edited = data.batchList()[0];
    data.setObjectValue(u"Z"_s, item_key::title, 0);
    EXPECT_THAT(data.batchList()[0], edited);
    EXPECT_EQ(edited->title, u"Z"_s);
    EXPECT_EQ(data.batchList()[1]->title, u"B"_s);
    data.addItem(item(1, u"C"_s));
    EXPECT_THAT(data.batchList(), ElementsAre(testing::Pointee(*item(1, u"B"_s)),
                                              testing::Pointee(*item(1, u"C"_s)), edited));
}

TEST_F(BatchList, EditsNothingButTitles) {
    data.addItem(a);
    const BatchItem before = *a;
    for (const auto& column : {item_key::reel, item_key::start, item_key::stop, item_key::rate,
                               item_key::type, item_key::id, u"other"_s})
        data.setObjectValue(u"5"_s, column, 0);
    EXPECT_EQ(*a, before);
}

TEST(SharedBatchData, IsTheInstanceMadeLast) {
    EXPECT_EQ(VexaBatchStripeData::sharedBatchData(), nullptr);
    std::optional<VexaBatchStripeData> first(std::in_place, nullptr);
    EXPECT_EQ(VexaBatchStripeData::sharedBatchData(), &*first);
    std::optional<VexaBatchStripeData> second(std::in_place, nullptr);
    EXPECT_EQ(VexaBatchStripeData::sharedBatchData(), &*second);
    first.reset();
    EXPECT_EQ(VexaBatchStripeData::sharedBatchData(), &*second);
    second.reset();
    EXPECT_EQ(VexaBatchStripeData::sharedBatchData(), nullptr);
}

TEST(SharedBatchData, KnowsTheOwnerThatMadeIt) {
    auto* const owner = reinterpret_cast<Vexa_RemoteAppDelegate*>(0x10);
    VexaBatchStripeData data(owner);
    EXPECT_EQ(data.owner(), owner);
    data.setOwner(nullptr);
    EXPECT_EQ(data.owner(), nullptr);
}

} // namespace
