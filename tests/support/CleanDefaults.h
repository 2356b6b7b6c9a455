#pragma once

#include <QSettings>

namespace vexa::test {

/// No settings stored when a test begins, and none left behind.
struct CleanDefaults {
    CleanDefaults() { clear(); }
    ~CleanDefaults() { clear(); }
    CleanDefaults(const CleanDefaults&) = delete;
    CleanDefaults& operator=(const CleanDefaults&) = delete;

private:
    static void clear() {
        QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vexa-remote"),
                  QStringLiteral("vexa-remote"))
            .clear();
    }
};

} // namespace vexa::test
