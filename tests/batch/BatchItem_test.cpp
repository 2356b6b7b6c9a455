#include "batch/BatchItem.h"

#include <gtest/gtest.h>

#include <memory>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

BatchItemRef item(const BatchItem& fields) { return std::make_shared<BatchItem>(fields); }

const BatchItem base{5, QStringLiteral("m"), 500, 600, 1, 2, 7};

TEST(BatchItem, EqualsAnotherExactlyWhenAllSevenFieldsDo) {
    EXPECT_EQ(base, BatchItem(base));
    for (const auto field : {&BatchItem::reel, &BatchItem::start, &BatchItem::stop,
                             &BatchItem::rate, &BatchItem::type, &BatchItem::id}) {
        BatchItem other = base;
        other.*field += 1;
        EXPECT_NE(base, other);
    }
    BatchItem other = base;
    other.title = QStringLiteral("M");
    EXPECT_NE(base, other);
}

struct Order {
    const char* what;
    BatchItem first;
    BatchItem second;
};

class BatchItemOrder : public testing::TestWithParam<Order> {};

// In each pair, the lower-ranking fields are in the opposite order.
TEST_P(BatchItemOrder, PutsTheFirstBeforeTheSecond) {
    const auto first = item(GetParam().first);
    const auto second = item(GetParam().second);
    EXPECT_TRUE(comesBefore(first, second)) << GetParam().what;
    EXPECT_FALSE(comesBefore(second, first)) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    AllRanks, BatchItemOrder,
    testing::Values(
        Order{"reel", {1, u"b"_s, 9, 9, 0, 0, 9}, {2, u"a"_s, 1, 1, 0, 0, 1}},
        Order{"reel, unsigned", {1, {}, 0, 0, 0, 0, 0}, {0xFFFFFFFFFFFFFFFF, {}, 0, 0, 0, 0, 0}},
        Order{"start", {1, u"b"_s, 1, 9, 0, 0, 9}, {1, u"a"_s, 2, 1, 0, 0, 1}},
        Order{"start, unsigned", {1, {}, 0x17000000, 0, 0, 0, 0}, {1, {}, 0x80000000, 0, 0, 0, 0}},
        Order{"title", {1, u"a"_s, 1, 9, 0, 0, 9}, {1, u"b"_s, 1, 1, 0, 0, 1}},
        Order{"title, case", {1, u"B"_s, 1, 9, 0, 0, 9}, {1, u"a"_s, 1, 1, 0, 0, 1}},
        Order{"title, length", {1, u"a"_s, 1, 9, 0, 0, 9}, {1, u"aa"_s, 1, 1, 0, 0, 1}},
        Order{"title, missing", {1, {}, 1, 9, 0, 0, 9}, {1, u"a"_s, 1, 1, 0, 0, 1}},
        Order{"title, digits are characters",
              {1, u"10"_s, 1, 9, 0, 0, 9},
              {1, u"9"_s, 1, 1, 0, 0, 1}},
        Order{"title, not composed",
              {1, u"e\u0301"_s, 1, 9, 0, 0, 9},
              {1, u"\u00e9"_s, 1, 1, 0, 0, 1}},
        Order{"title, code units",
              {1, u"\U0001F600"_s, 1, 9, 0, 0, 9},
              {1, u"\uFF21"_s, 1, 1, 0, 0, 1}},
        Order{"stop", {1, u"a"_s, 1, 1, 0, 0, 9}, {1, u"a"_s, 1, 2, 0, 0, 1}},
        Order{"id", {1, u"a"_s, 1, 1, 9, 9, 1}, {1, u"a"_s, 1, 1, 0, 0, 2}}));

TEST(BatchItem, RateAndTypeHaveNoRankInTheOrder) {
    const auto a = item({1, u"a"_s, 1, 1, 0, 2, 1});
    const auto b = item({1, u"a"_s, 1, 1, 3, 1, 1});
    EXPECT_FALSE(comesBefore(a, b));
    EXPECT_FALSE(comesBefore(b, a));
}

} // namespace
