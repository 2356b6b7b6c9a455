#include "controls/ImportPanel.h"
#include "timecode/frame_rate.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

const QString edits = u"TITLE: x\n"
                      "001 7 V C 01:00:00:00 01:10:00:00 00:00:00:00 00:10:00:00\n"
                      "002 BL V C 01:00:00:00 01:10:00:00 00:00:00:00 00:10:00:00\n"_s;

TEST(ReadRowsModel, ShowsRowsAndRefusedLinesInTheOrderOfTheText) {
    ReadRowsModel model;
    const QAbstractItemModelTester tester(&model);
    model.setRows(readRows(u"soon\n1\ta\t01:00:00:00\t01:10:00:00\t25\tMTC\nlater\n"_s, {}));
    const auto row = [&model](int number) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells += model.index(number, column).data().toString();
        return cells.join(u'|');
    };
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(row(0), u"1||soon|||||skipped: no start time"_s);
    EXPECT_EQ(row(1), u"2|1|a|01:00:00:00|01:10:00:00|25 fps|MTC|will be added"_s);
    EXPECT_EQ(row(2), u"3||later|||||skipped: no start time"_s);
}

class Import : public testing::Test {
protected:
    /// Answers once the panel has read the text, and returns the panel's result.
    std::optional<ReadRows> ask(const FileText& text, const std::function<void()>& answer) {
        ImportPanel panel(
            u"Import"_s, {rate::fps25, 0, EditTimes::source}, [text] { return text; }, nullptr);
        m_panel = &panel;
        const auto* model = panel.findChild<QTableView*>()->model();
        QObject::connect(model, &QAbstractItemModel::modelReset, &panel, answer,
                         Qt::QueuedConnection);
        return panel.ask();
    }
    template<typename Widget>
    Widget* named(const char* name) {
        for (auto* widget : m_panel->findChildren<Widget*>())
            if (widget->accessibleName() == QLatin1String(name))
                return widget;
        return nullptr;
    }
    QPushButton* addButton() {
        for (auto* button : m_panel->findChildren<QPushButton*>())
            if (button->text() == u"&Add Rows"_s)
                return button;
        return nullptr;
    }

    ImportPanel* m_panel = nullptr;
};

TEST_F(Import, GivesTheRowsThatAreConfirmed) {
    const auto rows = ask({edits, {}}, [this] { addButton()->click(); });
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->rows.size(), 1u);
    EXPECT_EQ(rows->rows[0].settings.frameRate, rate::fps25);
}

TEST_F(Import, GivesNothingWhenItIsCancelled) {
    EXPECT_FALSE(ask({edits, {}}, [this] { m_panel->reject(); }));
}

TEST_F(Import, AsksForWhatTheTextDoesNotTell) {
    int readings = 0;
    const auto rows = ask({edits, {}}, [&] {
        auto* rate = named<QComboBox>("Frame rate");
        auto* times = named<QComboBox>("Times");
        if (readings++ == 0) {
            EXPECT_TRUE(rate->isEnabled());
            EXPECT_TRUE(times->isEnabled());
            QTest::keyClick(rate, Qt::Key_Up);
        } else if (readings == 2) {
            QTest::keyClick(times, Qt::Key_Down);
        } else {
            addButton()->click();
        }
    });
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->rows[0].settings.frameRate, rate::fps24);
    EXPECT_EQ(rows->rows[0].settings.startTime, 0u);
}

TEST_F(Import, OffersNothingWhereNothingCanBeRead) {
    ask({{}, u"it is longer than 64 MiB"_s}, [this] {
        EXPECT_FALSE(addButton()->isEnabled());
        m_panel->reject();
    });
}

} // namespace
