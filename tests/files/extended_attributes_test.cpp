#include "files/atomic_file.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <string>

using namespace vexa;
using namespace Qt::StringLiterals;

/// What a replaced file keeps.
namespace {

class ExtendedAttributes : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(replaceFile(name, "old"));
        if (!set("user.probe", "x"))
            GTEST_SKIP() << "the folder for temporary files takes no extended attributes";
    }
    bool set(const char* key, const std::string& value) const {
        return setxattr(path.constData(), key, value.data(), value.size(), 0) == 0;
    }
    std::string attribute(const char* key) const {
        std::string value(70000, '\0');
        const auto size = getxattr(path.constData(), key, value.data(), value.size());
        return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
    }
    mode_t permissions() const {
        struct stat status{};
        EXPECT_EQ(stat(path.constData(), &status), 0);
        return status.st_mode & 07777;
    }

    const QTemporaryDir folder;
    const QString name = folder.filePath(u"list"_s);
    const QByteArray path = QFile::encodeName(name);
};

TEST_F(ExtendedAttributes, AreKept) {
    const std::string bytes("a\0b", 3);
    ASSERT_TRUE(set("user.xdg.tags", "reel,night"));
    ASSERT_TRUE(set("user.bytes", bytes));
    ASSERT_TRUE(set("user.empty", ""));
    EXPECT_TRUE(replaceFile(name, "new"));
    EXPECT_EQ(attribute("user.xdg.tags"), "reel,night");
    EXPECT_EQ(attribute("user.bytes"), bytes);
    EXPECT_EQ(attribute("user.empty"), "");
}

class AccessControlList : public ExtendedAttributes {
protected:
    /// The binary form of: user::rw-, user:1234:r--, group::---, mask::r--, other::---.
    static std::string list() {
        const auto entry = [](char tag, char permissions, const std::string& id) {
            return std::string{tag, 0, permissions, 0} + id;
        };
        const std::string nobody(4, '\xFF');
        return std::string{2, 0, 0, 0} + entry(0x01, 6, nobody) +
               entry(0x02, 4, {'\xD2', 4, 0, 0}) + entry(0x04, 0, nobody) + entry(0x10, 4, nobody) +
               entry(0x20, 0, nobody);
    }
    void SetUp() override {
        ExtendedAttributes::SetUp();
        if (!IsSkipped() && !set("system.posix_acl_access", list()))
            GTEST_SKIP() << "the folder for temporary files takes no access control lists";
    }
};

TEST_F(AccessControlList, IsKept) {
    EXPECT_TRUE(replaceFile(name, "new"));
    EXPECT_EQ(attribute("system.posix_acl_access"), list());
    EXPECT_EQ(permissions(), 0640u);
}

TEST_F(AccessControlList, OfTheFolderIsNotTakenOverByAFileThatHasNone) {
    ASSERT_TRUE(QFile::remove(name));
    ASSERT_TRUE(replaceFile(name, "old", 0640));
    ASSERT_EQ(setxattr(QFile::encodeName(folder.path()).constData(), "system.posix_acl_default",
                       list().data(), list().size(), 0),
              0);
    EXPECT_TRUE(replaceFile(name, "new"));
    EXPECT_EQ(attribute("system.posix_acl_access"), "none");
    EXPECT_EQ(permissions(), 0640u);
}

} // namespace
