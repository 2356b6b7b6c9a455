#include "controls/clipboard_text.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

/// What a program offers that does not answer; counts the questions.
class Unanswered : public QMimeData {
public:
    QStringList formats() const override {
        ++questions;
        return {};
    }

    mutable int questions = 0;

protected:
    QVariant retrieveData(const QString&, QMetaType) const override {
        ++questions;
        return {};
    }
};

TEST(ClipboardText, IsTheFirstFormatThatIsOffered) {
    const QStringList formats{u"text/tab-separated-values"_s, u"text/csv"_s};
    QMimeData data;
    data.setText(u"plain"_s);
    EXPECT_EQ(clipboardText(data, formats), u"plain"_s);
    data.setData(u"text/csv"_s, "commas \xE9");
    EXPECT_EQ(clipboardText(data, formats), u"commas é"_s);
    data.setData(u"text/tab-separated-values"_s, "tabs");
    EXPECT_EQ(clipboardText(data, formats), u"tabs"_s);
    EXPECT_EQ(clipboardText(data), u"plain"_s);
}

TEST(ClipboardText, AsksAProgramThatDoesNotAnswerOnce) {
    const Unanswered data;
    EXPECT_TRUE(clipboardText(data, {u"text/csv"_s, u"text/html"_s}).isNull());
    EXPECT_EQ(data.questions, 1);
}

} // namespace
