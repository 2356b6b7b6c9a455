#include "defaults/settings_file.h"

#include "defaults/IniFile.h"
#include "files/atomic_file.h"
#include "files/regular_file.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QThread>

#include <chrono>
#include <optional>

namespace vexa::defaults {

namespace {

constexpr qsizetype longest = 1 << 20; ///< a longer file would delay the window
constexpr mode_t ownerOnly = 0600;     ///< the recent files are private

QString settingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vexa-remote/vexa-remote.ini");
}

QString copyOf(const QString& file) { return file + QLatin1Char('~'); }

bool putAside(const QString& file) {
    QFile::remove(copyOf(file));
    return QFile::rename(file, copyOf(file));
}

/// The contents to change; nothing if the file must not change.
std::optional<QByteArray> contentToChange(const QString& name) {
    const QFileInfo file(name);
    if (!file.exists())
        return QByteArray();
    if (auto content = readRegularFile(name, longest))
        return content;
    const bool isTooLong = file.isFile() && file.size() > longest;
    return isTooLong && putAside(name) ? std::optional(QByteArray()) : std::nullopt;
}

/// False if another program keeps the lock. True if there can be no lock, as then the folder takes
/// no new file either.
bool tryLock(QLockFile& lock) {
    using namespace std::chrono_literals;
    const QDeadlineTimer deadline(500ms);
    while (!lock.tryLock() && lock.error() == QLockFile::LockFailedError) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(5); // QLockFile itself tries ten times a second, then less often
    }
    return true;
}

/// Removes the permissions of everybody but the owner.
void makePrivate(const QString& file) {
    constexpr auto owner = QFile::ReadOwner | QFile::WriteOwner;
    if (QFileInfo(file).isWritable())
        QFile::setPermissions(file, QFile::permissions(file) & owner);
}

} // namespace

Preferences readSettingsFile() {
    return preferencesIn(IniFile(readRegularFile(settingsFile(), longest).value_or(QByteArray())));
}

void changeSettingsFile(const Preferences& change) {
    const auto name = settingsFile();
    QDir().mkpath(QFileInfo(name).path());
    QLockFile lock(name + QStringLiteral(".lock"));
    if (!tryLock(lock))
        return;
    const auto before = contentToChange(name);
    if (!before)
        return;
    IniFile file(*before);
    if (file.isBroken() && !replaceFile(copyOf(name), *before, ownerOnly))
        return;
    enter(change, file);
    for (const auto& each : {name, copyOf(name)})
        makePrivate(each);
    replaceFile(name, file.text(), ownerOnly);
}

} // namespace vexa::defaults
