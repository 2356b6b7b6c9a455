#include "controls/VexaHelpController.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct Guide {
    const char* description;
    const char* keys; ///< in Info.plist; null: there is no such file
    const char* file; ///< in the resources; null: none
    const char* opened = nullptr;
};

const char* const bothKeys = "<key>KelUserGuideName</key><string>My Guide #1</string>"
                             "<key>KelUserGuideType</key><string>pdf</string>";

class UserGuide : public testing::TestWithParam<Guide> {
protected:
    void write(const char* name, const QByteArray& bytes = {}) const {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    const QTemporaryDir folder;
};

TEST_P(UserGuide, OpensWhereBothKeysAndTheGuideAreThere) {
    const auto& [description, keys, guide, expected] = GetParam();
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"en.lproj"_s));
    if (keys)
        write("Info.plist", QByteArray("<plist><dict>") + keys + "</dict></plist>");
    if (guide)
        write(guide);
    QStringList opened;
    const VexaHelpController help(Bundle(folder.path()),
                                  [&](const QString& path) { opened += path; });
    help.openUserGuide();
    const auto wanted =
        expected ? QStringList(folder.filePath(QString::fromUtf8(expected))) : QStringList();
    EXPECT_EQ(opened, wanted) << description;
}

INSTANTIATE_TEST_SUITE_P(
    Bundles, UserGuide,
    testing::Values(
        Guide{"complete", bothKeys, "My Guide #1.pdf", "My Guide #1.pdf"},
        Guide{"localised", bothKeys, "en.lproj/My Guide #1.pdf", "en.lproj/My Guide #1.pdf"},
        Guide{"no name", "<key>KelUserGuideType</key><string>pdf</string>", "My Guide #1.pdf"},
        Guide{"no type", "<key>KelUserGuideName</key><string>My Guide #1</string>",
              "My Guide #1.pdf"},
        Guide{"a name that is no text",
              "<key>KelUserGuideName</key><true/><key>KelUserGuideType</key><string>pdf</string>",
              "My Guide #1.pdf"},
        Guide{"no resource", bothKeys, nullptr},
        Guide{"another type", bothKeys, "My Guide #1.html"},
        Guide{"no Info.plist", nullptr, "My Guide #1.pdf"}));

} // namespace
