#include "defaults/IniFile.h"

#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

class IniText : public testing::TestWithParam<const char*> {};

TEST_P(IniText, HasTheValuesThatQSettingsReads) {
    const QByteArray text = GetParam();
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"some.ini"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    const QSettings settings(path, QSettings::IniFormat);
    const IniFile ini(text);
    for (const auto* key : {"a", "b", "Other/a", "Other/b"}) {
        const auto value = settings.value(QString::fromLatin1(key));
        const auto expected = value.isValid() ? std::optional(value.toStringList()) : std::nullopt;
        EXPECT_EQ(ini.value(key), expected) << key;
    }
    EXPECT_EQ(ini.isBroken(), settings.status() == QSettings::FormatError);
}

INSTANTIATE_TEST_SUITE_P(Texts, IniText,
                         testing::Values("", "a=1", "a=1\n[Other]\na=2\n",
                                         "[Other]\na=2\n[General]\na=1\n",
                                         "[general]\na=1\n[GENERAL]\nb=2\n",
                                         "\xef\xbb\xbf"
                                         "a=1\r\nb=2\r\n",
                                         " a = 1 \n\n\n  b=2", "; a=1\nb=2 ; a=1\n",
                                         "a=\"1;2\"\nb=\"x\ny\"\n", "a=1\nbroken\nb=2\n",
                                         "[Other\na=1\n", "a=1\na=2\n", "a=b=c\n", "=1\na=1",
                                         "[Other]\na=1\n[Else]\nb=3\n[Other]\nb=2\n", "a=\\",
                                         "a=1\n;", "[]\na=1\n", "[ Other ]\na=1\n"));

TEST(IniFile, KeepsWhatItDoesNotChangeAndItsOrderOfSections) {
    const QByteArray text = "[Second%20one]\nlist=1, \"a;b\"\npicture=@Variant(\\0\\0\\x1)\n\n"
                            "[General]\nother=@Invalid()\n";
    IniFile file(text);
    EXPECT_EQ(file.text(), text);
    file.setValue("x", {u"1"_s});
    file.setValue("New/y", {u"2"_s, u"3 4"_s});
    EXPECT_EQ(file.text(), text + "x=1\n\n[New]\ny=2, \"3 4\"\n");
}

TEST(IniFile, TellsTheKeysOfASection) {
    const IniFile file("a=1\n[Other]\nb=1\nc=2\n");
    EXPECT_EQ(file.keysOf("Other"), QStringList({u"b"_s, u"c"_s}));
    EXPECT_EQ(file.keysOf("None"), QStringList());
}

} // namespace
