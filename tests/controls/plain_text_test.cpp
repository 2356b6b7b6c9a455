#include "controls/plain_text.h"

#include <QAction>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTextDocument>
#include <QWidget>
#include <gtest/gtest.h>

#include <ostream>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

const QString marked = u"Day 1<img src=file:%2fdev%2fzero>.vexaB"_s;

/// What a reader sees if Qt decides whether a text is HTML.
QString asRead(const QString& text) {
    if (!Qt::mightBeRichText(text))
        return text;
    QTextDocument document;
    document.setHtml(text);
    auto read = document.toPlainText();
    return read.replace(QChar::Nbsp, u' ');
}

QString toolTip(const QString& text) {
    QWidget widget;
    setPlainToolTip(widget, text);
    return widget.toolTip();
}

class ToolTipText : public testing::TestWithParam<QString> {};

TEST_P(ToolTipText, IsReadAsItIs) {
    EXPECT_EQ(asRead(toolTip(GetParam())), GetParam());
    QAction action;
    setPlainToolTip(action, GetParam());
    EXPECT_EQ(asRead(action.toolTip()), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, ToolTipText,
                         testing::Values(QString(), u"Add to Batch Stripe List"_s, marked,
                                         u"<b>bold</b> & <i>more</i>"_s, u"&lt;b&gt;"_s, u"a < b"_s,
                                         u"<?xml version=\"1.0\"?><p>x</p>"_s,
                                         u"<qt>two  spaces</qt>"_s, u"<br>\nsecond line"_s,
                                         u"one line\n\nanother"_s));

TEST(ToolTip, FoldsLongLines) {
    const auto words = u"word "_s.repeated(100);
    const auto lines = toolTip(words).split(u'\n');
    EXPECT_EQ(lines.join(QString()), words);
    for (const auto& line : lines) {
        EXPECT_LE(line.size(), 100);
        EXPECT_TRUE(line.endsWith(u' ')) << "no word is cut";
    }
    EXPECT_EQ(toolTip(QString(250, u'W')).split(u'\n').size(), 3);
}

TEST(ToolTip, CutsNoLetterInHalf) {
    const auto clefs = u"𝄞"_s.repeated(500); // two code units each
    for (const auto& line : toolTip(u"x"_s + clefs).split(u'\n'))
        EXPECT_FALSE(line.back().isHighSurrogate());
}

TEST(ToolTip, EndsBeforeItFillsTheScreen) {
    const auto shown = toolTip(u"line\n"_s.repeated(1000));
    EXPECT_EQ(shown.count(u'\n'), 19);
    EXPECT_TRUE(shown.endsWith(u'…'));
}

TEST(MessageBoxText, IsPlainInEachOfItsLabels) {
    QMessageBox box;
    setPlainText(box, marked, u"<b>more</b>"_s);
    int texts = 0;
    for (const auto* label : box.findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        texts += label->text() == marked || label->text() == u"<b>more</b>"_s;
    }
    EXPECT_EQ(texts, 2);
}

TEST(WindowTitleText, ShowsWhatWouldBeAMarkOfChangesAndLineBreaks) {
    QWidget window;
    setPlainWindowTitle(window, u"a[*]b\nc"_s);
    EXPECT_EQ(window.windowTitle(), u"a[*][*]b c"_s);
}

TEST(MenuText, ShowsAmpersandsAndControlCharacters) {
    EXPECT_EQ(plainMenuText(u"R&B\tCtrl+Q"_s), u"R&&B\uFFFDCtrl+Q"_s);
}

TEST(SingleLine, HasASpaceForEachLineBreak) {
    EXPECT_EQ(singleLine(u"a\nb\r\nc\rd\u2028e\u2029f\vg\fh\u0085i"_s), u"a b c d e f g h i"_s);
    EXPECT_EQ(singleLine(u"a\n\nb"_s), u"a  b"_s);
    EXPECT_EQ(singleLine({}), QString());
}

// Code that sets such a text in any other way may one day be given HTML.

/// The lines of a source file that match.
QStringList linesWith(const QRegularExpression& pattern, const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QStringList found;
    for (const auto& line : QString::fromUtf8(file.readAll()).split(u'\n'))
        if (pattern.match(line).hasMatch())
            found += path + u": "_s + line.trimmed();
    return found;
}

class TextSetter : public testing::TestWithParam<const char*> {};

TEST_P(TextSetter, IsUsedByTheHelpersOnly) {
    const QRegularExpression pattern(QString::fromLatin1(GetParam()));
    int files = 0;
    QStringList found;
    QDirIterator sources(QStringLiteral(VEXA_SOURCES), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (sources.hasNext()) {
        const auto path = sources.next();
        ++files;
        // The controller knows no widgets, but its outlets have functions of the same names.
        if (!path.contains(u"/engine/"_s) && !path.endsWith(u"/plain_text.cpp"_s))
            found += linesWith(pattern, path);
    }
    EXPECT_GT(files, 100);
    EXPECT_EQ(found.join(u'\n').toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Names, TextSetter,
    testing::Values(R"(\bQToolTip::)", R"((\.|->)setToolTip\()", R"(\bsetInformativeText\()",
                    R"(\bsetDetailedText\()",
                    R"(QMessageBox::(about|critical|information|question|warning)\()",
                    R"(\bsetWhatsThis\()", R"(\bsetStatusTip\()", R"(\bsetWindowTitle\()",
                    R"(\bnew QLabel\b|\bQLabel \w+[;{(])", R"(\bQErrorMessage\b)"));

TEST(WindowDescription, HasNoLabelThatDecidesByItsTextWhatItIs) {
    QDirIterator descriptions(QStringLiteral(VEXA_SOURCES), {u"*.ui"_s}, QDir::Files,
                              QDirIterator::Subdirectories);
    static const QRegularExpression label(
        u"<widget class=\"QLabel\" name=\"(\\w+)\">(.*?)</widget>"_s,
        QRegularExpression::DotMatchesEverythingOption);
    int labels = 0;
    while (descriptions.hasNext()) {
        QFile file(descriptions.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto found = label.globalMatch(QString::fromUtf8(file.readAll()));
        for (; found.hasNext(); ++labels) {
            const auto match = found.next();
            // A caption set in the window description is the program's own and never changes.
            EXPECT_TRUE(match.captured(2).contains(u"<property name=\"text\"><string>"_s) ||
                        match.captured(2).contains(u"Qt::PlainText"_s))
                << match.captured(1).toStdString();
        }
    }
    EXPECT_GT(labels, 3);
}

} // namespace
