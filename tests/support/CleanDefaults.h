#pragma once

#include <QFile>
#include <QStandardPaths>

namespace vexa::test {

/// Clears the stored settings before and after a test.
struct CleanDefaults {
    CleanDefaults() { clear(); }
    ~CleanDefaults() { clear(); }
    CleanDefaults(const CleanDefaults&) = delete;
    CleanDefaults& operator=(const CleanDefaults&) = delete;

private:
    static void clear() {
        QFile::remove(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                      QStringLiteral("/vexa-remote/vexa-remote.ini"));
    }
};

} // namespace vexa::test
