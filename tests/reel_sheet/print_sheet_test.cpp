#include "reel_sheet/ReelSheet.h"
#include "reel_sheet/print_sheet.h"
#include "timecode/timecode.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace vexa;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QDateTime noon(QDate(2026, 3, 1), QTime(12, 0));

bool goOn(std::size_t, std::size_t) { return true; }

BatchItemRef item(std::uint64_t reel, const QString& title, std::uint64_t row = 0) {
    return std::make_shared<BatchItem>(BatchItem{reel, title, pack({row % 24, row / 24, 0, 0}),
                                                 pack({row % 24, row / 24, 30, 0}), 1, 0, row});
}

ReelSheet sheetOf(const BatchItems& items) {
    return ReelSheet::of(items, u"Evening"_s, noon,
                         [](const BatchItemRef&) { return QDateTime(); });
}

class PrintedSheet : public testing::Test {
protected:
    /// The text of each page according to poppler's pdftotext, with runs of blanks as one.
    QStringList pages(const ReelSheet& sheet, QPageSize::PageSizeId paper = QPageSize::A4) const {
        EXPECT_TRUE(writeSheetPdf(sheet, m_path, QPageSize(paper), goOn));
        auto pages = output(u"pdftotext"_s, {u"-layout"_s, m_path, u"-"_s}).split(u'\f');
        pages.removeLast();
        for (auto& page : pages)
            page = page.simplified();
        return pages;
    }

    static QString output(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QTemporaryDir m_directory;
    QString m_path = m_directory.filePath(u"sheet.pdf"_s);
};

TEST_F(PrintedSheet, HasAllOfEachRow) {
    const auto drop = std::make_shared<BatchItem>(
        BatchItem{7, u"Part one"_s, pack({1, 0, 0, 2}), pack({2, 0, 0, 2}), 3, 2, 0});
    const auto sheet = ReelSheet::of({drop}, u"Evening"_s, noon,
                                     [](const BatchItemRef&) { return noon.addSecs(60); });
    const auto page = pages(sheet).value(0);
    for (const auto& text :
         {u"Reel 7"_s, u"Evening"_s, u"Items: 1 In all: 1:00:00"_s, u"Tape loaded"_s,
          u"Part one 01:00:00:02 02:00:00:02 1:00:00 30 df FSK 2026-03-01 12:01"_s,
          u"2026-03-01 12:00"_s, u"Page 1 of 1"_s})
        EXPECT_TRUE(page.contains(text)) << text.toStdString() << "\n" << page.toStdString();
}

TEST_F(PrintedSheet, BeginsAPageForEachReelInOrder) {
    const auto printed = pages(sheetOf({item(3, u"c"_s), item(1, u"a"_s), item(2, u"b"_s)}));
    ASSERT_EQ(printed.size(), 3);
    EXPECT_TRUE(printed[0].startsWith(u"Reel 1 Evening"_s)) << printed[0].toStdString();
    EXPECT_TRUE(printed[1].startsWith(u"Reel 2 Evening"_s));
    EXPECT_TRUE(printed[2].startsWith(u"Reel 3 Evening"_s));
    EXPECT_TRUE(printed[2].endsWith(u"Page 3 of 3"_s));
}

class PaperSizes : public PrintedSheet,
                   public testing::WithParamInterface<QPageSize::PageSizeId> {};

TEST_P(PaperSizes, HoldAThousandRowsUnderAHeadOnEachPage) {
    BatchItems items;
    for (std::uint64_t row = 0; row < 1000; ++row)
        items.push_back(item(1, u"Row <%1>"_s.arg(row), row));
    const auto printed = pages(sheetOf(items), GetParam());
    const auto text = printed.join(u' ');
    for (std::uint64_t row = 0; row < 1000; ++row)
        EXPECT_TRUE(text.contains(u"Row <%1> %2"_s.arg(row).arg(
            QString::fromStdString(timecodeText({row % 24, row / 24, 0, 0})))))
            << row;
    EXPECT_GT(printed.size(), 10);
    for (qsizetype page = 0; page < printed.size(); ++page) {
        EXPECT_TRUE(printed[page].startsWith(page == 0 ? u"Reel 1 Evening"_s
                                                       : u"Reel 1 (continued) Evening"_s));
        EXPECT_TRUE(printed[page].contains(u"Done Title Start Stop Length Rate Sync Striped"_s));
        EXPECT_TRUE(printed[page].endsWith(u"Page %1 of %2"_s.arg(page + 1).arg(printed.size())));
    }
}

INSTANTIATE_TEST_SUITE_P(All, PaperSizes, testing::Values(QPageSize::A4, QPageSize::Letter));

TEST_F(PrintedSheet, IsOnPaperOfTheSizeAskedFor) {
    pages(sheetOf({item(1, u"a"_s)}), QPageSize::Letter);
    EXPECT_TRUE(output(u"pdfinfo"_s, {m_path}).contains(u"612 x 792 pts (letter)"_s));
}

TEST_F(PrintedSheet, FoldsLongTitles) {
    const auto page = pages(sheetOf({item(1, u"A title of many words "_s.repeated(6) + u"ends"_s),
                                     item(1, QString(5000, u'W')), item(1, u"the next"_s)}))
                          .value(0);
    EXPECT_TRUE(page.contains(u"ends"_s)) << page.toStdString();
    EXPECT_TRUE(page.contains(u"the next"_s));
}

TEST_F(PrintedSheet, HasAPageForAnEmptyList) {
    const auto printed = pages(sheetOf({}));
    ASSERT_EQ(printed.size(), 1);
    EXPECT_TRUE(printed[0].startsWith(u"No reels"_s));
}

TEST_F(PrintedSheet, LeavesTheFileAsItWasWhenItIsEnded) {
    pages(sheetOf({item(1, u"before"_s)}));
    const auto sheet = sheetOf({item(1, u"a"_s), item(2, u"b"_s)});
    std::vector<std::size_t> told;
    EXPECT_FALSE(writeSheetPdf(sheet, m_path, QPageSize(QPageSize::A4),
                               [&](std::size_t page, std::size_t pages) {
                                   EXPECT_EQ(pages, 2u);
                                   told.push_back(page);
                                   return page == 0;
                               }));
    EXPECT_THAT(told, ElementsAre(0, 1));
    EXPECT_TRUE(output(u"pdftotext"_s, {m_path, u"-"_s}).contains(u"before"_s));
    EXPECT_EQ(QDir(m_directory.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(PrintedSheet, SaysWhenTheFileCannotBeWritten) {
    EXPECT_FALSE(writeSheetPdf(sheetOf({}), m_directory.filePath(u"none/sheet.pdf"_s),
                               QPageSize(QPageSize::A4), goOn));
}

TEST(ReelSheet, KeepsTheListAsItWas) {
    const auto only = item(1, u"before"_s);
    const auto sheet = sheetOf({only});
    only->title = u"after"_s;
    EXPECT_EQ(sheet.rows.at(0).item.title, u"before"_s);
}

} // namespace
