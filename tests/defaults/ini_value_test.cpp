#include "defaults/ini_value.h"

#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

/// Values to compare with what QSettings reads.
struct IniValue : testing::TestWithParam<const char*> {
    QString path() const { return folder.filePath(u"values.ini"_s); }

    const QTemporaryDir folder;
};

using IniTexts = IniValue;

TEST_P(IniTexts, AreThoseThatQSettingsReads) {
    const QByteArray value = GetParam();
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nkey=" + value + '\n');
    file.close();
    const QSettings settings(path(), QSettings::IniFormat);
    EXPECT_EQ(iniTexts(value), settings.value(u"key"_s).toStringList());
}

INSTANTIATE_TEST_SUITE_P(Values, IniTexts,
                         testing::Values("plain", "two words", "a, b,c", "\" a \", b ",
                                         "a\\tb\\x41\\x42g\\101\\n", "\"a, b\", \"c \\\"d\\\"\"",
                                         "@@home", "@Invalid()", "\"\"", "\"\", \"\"", "a,", ",a",
                                         "\\q", "Пл\\x451нка", "\\", "x\\", "100%", "\"a;b=c\""));

using IniTextsWritten = IniValue;

TEST_P(IniTextsWritten, AreReadBackHereAndByQSettings) {
    const QStringList texts = QString::fromUtf8(GetParam()).split(u'|');
    const auto value = iniValue(texts);
    EXPECT_EQ(iniTexts(value), texts);
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nkey=" + value + '\n');
    file.close();
    const QSettings settings(path(), QSettings::IniFormat);
    EXPECT_EQ(settings.value(u"key"_s).toStringList(), texts);
}

INSTANTIATE_TEST_SUITE_P(Texts, IniTextsWritten,
                         testing::Values("plain", "two words", " blanks ", "a,b|c;d|e=f",
                                         "@home|@@",
                                         "tab\tand\nline|\r|\x01"
                                         "a|\x01g|\x7f",
                                         "quote\"back\\slash", "Плёнка|100% #1", "7.5", "-1",
                                         "x|"));

TEST(IniTextsWritten, OfNoTextsIsAValueToo) {
    EXPECT_EQ(iniValue({}), "@Invalid()");
    EXPECT_EQ(iniTexts("@Invalid()"), QStringList());
}

} // namespace
