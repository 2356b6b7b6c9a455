#include "controls/KelGrayTextButton.h"
#include "controls/KelGrayTextMatrix.h"
#include "controls/gray_caption.h"

#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

QColor captionColor(const QWidget& widget) {
    return widget.palette().color(QPalette::Active, QPalette::ButtonText);
}

struct Matrix : testing::Test {
    Matrix() {
        for (int tag = 0; tag < 3; ++tag) {
            cells[tag] = new QRadioButton(QStringLiteral("cell"), &matrix);
            cells[tag]->setProperty("tag", tag);
        }
        untagged = new QPushButton(QStringLiteral("other"), &matrix);
        cells[2]->setProperty("transparent", true);
        before = captionColor(*cells[2]);
        font = cells[0]->font();
        matrix.awakeFromNib();
    }

    KelGrayTextMatrix matrix;
    QRadioButton* cells[3];
    QPushButton* untagged;
    QColor before;
    QFont font;
};

TEST_F(Matrix, VisibleCellsGetTheGrayAndTransparentOnesKeepTheirs) {
    const auto gray = QColor::fromRgbF(0.455F, 0.455F, 0.455F);
    EXPECT_EQ(captionColor(*cells[0]), gray);
    EXPECT_EQ(captionColor(*cells[1]), gray);
    EXPECT_EQ(captionColor(*cells[2]), before);
    EXPECT_NE(captionColor(*untagged), gray);
    EXPECT_EQ(cells[0]->font(), font);
}

TEST_F(Matrix, SelectsByTagWithoutAction) {
    const QSignalSpy actions(&matrix, &KelGrayTextMatrix::action);
    matrix.selectCellWithTag(1);
    EXPECT_EQ(matrix.selectedTag(), 1u);
    EXPECT_TRUE(cells[1]->isChecked());
    EXPECT_EQ(actions.count(), 0);
}

TEST_F(Matrix, ATagWithoutACellChangesNothing) {
    matrix.selectCellWithTag(1);
    for (const std::uint64_t tag :
         {std::uint64_t{3}, std::uint64_t{INT32_MAX}, std::uint64_t{1} << 32, UINT64_MAX}) {
        matrix.selectCellWithTag(tag);
        EXPECT_EQ(matrix.selectedTag(), 1u) << tag;
        matrix.setCellEnabled(tag, false);
    }
}

TEST_F(Matrix, AClickIsAnActionAlsoOnTheSelectedCell) {
    QSignalSpy actions(&matrix, &KelGrayTextMatrix::action);
    cells[2]->click();
    EXPECT_EQ(matrix.selectedTag(), 2u);
    cells[2]->click();
    EXPECT_EQ(actions.count(), 2);
}

TEST_F(Matrix, TheSelectedCellCanBeSwitchedOffAndAnotherOn) {
    matrix.selectCellWithTag(1);
    matrix.switchSelectedCellOff();
    for (const auto* cell : cells)
        EXPECT_FALSE(cell->isChecked());
    EXPECT_EQ(matrix.selectedTag(), 0u);
    matrix.switchSelectedCellOff();
    matrix.selectCellWithTag(2);
    matrix.selectCellWithTag(1);
    EXPECT_FALSE(cells[2]->isChecked());
    EXPECT_TRUE(cells[1]->isChecked());
}

TEST_F(Matrix, ADisabledCellStaysDisabledWhenTheMatrixComesBack) {
    matrix.setCellEnabled(1, false);
    matrix.setMatrixEnabled(false);
    EXPECT_FALSE(cells[0]->isEnabled());
    matrix.setMatrixEnabled(true);
    EXPECT_TRUE(cells[0]->isEnabled());
    EXPECT_FALSE(cells[1]->isEnabled());
}

TEST(GrayTextButton, GetsTheGrayAndKeepsTextAndFont) {
    for (const auto& text : {QString(), QStringLiteral("Add")}) {
        KelGrayTextButton button;
        button.setText(text);
        const auto font = button.font();
        button.awakeFromNib();
        EXPECT_EQ(captionColor(button), captionGray());
        EXPECT_EQ(button.text(), text);
        EXPECT_EQ(button.font(), font);
    }
}

} // namespace
