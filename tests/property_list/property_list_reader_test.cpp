#include "property_list/BinaryFile.h"
#include "property_list/printing.h"
#include "property_list/property_list_reader.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

TEST(PropertyListReader, TellsTheFormsApart) {
    EXPECT_EQ(readPropertyList("<plist><integer>1</integer></plist>"), PropertyList(1));
    EXPECT_EQ(readPropertyList(BinaryFile{{"\x10\2"}}.bytes()), PropertyList(2));
    for (const char* text : {"", "bplist", "bplist00", "{ a = 1; }", "hello"})
        EXPECT_EQ(readPropertyList(text), std::nullopt) << text;
}

TEST(PropertyListReader, RefusesFilesOfMoreThan256MiB) {
    QByteArray file("<true/>");
    file.resize(qsizetype{256} << 20, ' ');
    EXPECT_EQ(readPropertyList(file), PropertyList(true));
    EXPECT_EQ(readPropertyList(file + ' '), std::nullopt);
}

TEST(PropertyListReader, ReadsBackWhatIsWritten) {
    const QString text = QString::fromUcs4(U"\r\n\t\x01 <&>\"' \u00E4\uFFFF\U0001F600]]>");
    PropertyList::Dictionary root;
    root.set(text, PropertyList(text));
    root.set(QString(), PropertyList(PropertyList::Array{
                            PropertyList(0.1), PropertyList(-1), PropertyList(~std::uint64_t{0}),
                            PropertyList(QByteArray(1000, 'x')), PropertyList(true),
                            PropertyList(PropertyList::Date{-12345}), PropertyList(QString())}));
    EXPECT_EQ(readPropertyList(xmlPropertyList(PropertyList(root))), PropertyList(root));
}

} // namespace
