#include "document/Bundle.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct BundleFolder : testing::Test {
    ~BundleFolder() override { QLocale::setDefault(QLocale::c()); }

    void write(const char* name, const QByteArray& bytes = {}) const {
        const auto path = folder.filePath(QString::fromUtf8(name));
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    /// The path of the guide, relative to the folder.
    std::string found(const char* name = "guide") const {
        const auto path = bundle.pathForResource(QString::fromUtf8(name), u"html"_s);
        return path ? QDir(folder.path()).relativeFilePath(*path).toStdString() : "nowhere";
    }

    const QTemporaryDir folder;
    const Bundle bundle{folder.path()};
};

struct Info {
    const char* description;
    const char* bytes;
    const char* value; ///< null: none
};

class InfoString : public BundleFolder, public testing::WithParamInterface<Info> {};

TEST_P(InfoString, IsATextOfTheDictionaryOrNothing) {
    write("Info.plist", GetParam().bytes);
    const auto value = bundle.infoString(u"Name"_s);
    ASSERT_EQ(value.has_value(), GetParam().value != nullptr) << GetParam().description;
    EXPECT_EQ(value.value_or(QString()), QString::fromUtf8(GetParam().value))
        << GetParam().description;
}

INSTANTIATE_TEST_SUITE_P(
    Files, InfoString,
    testing::Values(
        Info{"a text", "<plist><dict><key>Name</key><string>Führer</string></dict></plist>",
             "Führer"},
        Info{"an empty text", "<plist><dict><key>Name</key><string/></dict></plist>", ""},
        Info{"no such key", "<plist><dict><key>name</key><string>x</string></dict></plist>",
             nullptr},
        Info{"no text", "<plist><dict><key>Name</key><integer>1</integer></dict></plist>", nullptr},
        Info{"no dictionary", "<plist><array><string>Name</string></array></plist>", nullptr},
        Info{"no property list", "Name=guide", nullptr}, Info{"an empty file", "", nullptr}));

TEST_F(BundleFolder, WithoutInfoThereAreNoTexts) {
    EXPECT_EQ(bundle.infoString(u"Name"_s), std::nullopt);
}

struct Search {
    const char* locale;
    const char* found;
};

class LocalisedResource : public BundleFolder, public testing::WithParamInterface<Search> {};

TEST_P(LocalisedResource, IsThatOfTheNearestLanguage) {
    for (const auto* language : {"en", "de", "pt", "pt_BR"})
        write((std::string(language) + ".lproj/guide.html").c_str());
    QLocale::setDefault(QLocale(QString::fromLatin1(GetParam().locale)));
    EXPECT_EQ(found(), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(Languages, LocalisedResource,
                         testing::Values(Search{"pt_BR", "pt_BR.lproj/guide.html"},
                                         Search{"pt_PT", "pt.lproj/guide.html"},
                                         Search{"de_AT", "de.lproj/guide.html"},
                                         Search{"en_GB", "en.lproj/guide.html"},
                                         Search{"fi_FI", "en.lproj/guide.html"},
                                         Search{"C", "en.lproj/guide.html"}));

TEST_F(BundleFolder, AResourceOfNoLanguageComesFirst) {
    write("en.lproj/guide.html");
    write("guide.html");
    EXPECT_EQ(found(), "guide.html");
}

TEST_F(BundleFolder, ResourcesAreFilesOfExactlyThatName) {
    write("guide.html/page");
    write("en.lproj/Guide.html");
    write("en.lproj/guide.pdf");
    EXPECT_EQ(found(), "nowhere");
    write("en.lproj/50% & #1 – Führer.html");
    EXPECT_EQ(found("50% & #1 – Führer"), "en.lproj/50% & #1 – Führer.html");
}

TEST_F(BundleFolder, AMissingFolderHasNoResources) {
    EXPECT_EQ(Bundle(folder.filePath(u"gone"_s)).pathForResource(u"guide"_s, u"html"_s),
              std::nullopt);
}

} // namespace
