#pragma once

#include <QDirIterator>
#include <QString>
#include <gtest/gtest.h>

#include <unistd.h>

namespace vexa::test {

/// A user who may not write everywhere, even if root runs the tests. Owns everything below the
/// path.
class WithoutPrivileges {
public:
    explicit WithoutPrivileges(const QString& path) {
        if (geteuid() != 0)
            return;
        giveAway(path);
        for (QDirIterator it(path, QDir::AllEntries | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
             it.hasNext();)
            giveAway(it.next());
        EXPECT_EQ(seteuid(nobody), 0);
    }
    ~WithoutPrivileges() { EXPECT_EQ(seteuid(getuid()), 0); }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    static void giveAway(const QString& path) {
        EXPECT_EQ(chown(path.toLocal8Bit().constData(), nobody, nobody), 0);
    }
};

} // namespace vexa::test
