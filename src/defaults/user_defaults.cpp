#include "defaults/user_defaults.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QThread>
#include <QVariant>

#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cmath>

namespace vexa::defaults {

namespace {

QString settingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vexa-remote/vexa-remote.ini");
}

/// Whether QSettings can be let loose on the file, or on its absence. Reading a pipe would never
/// end, and reading many megabytes would keep the window away.
bool isUsable() {
    constexpr qint64 limit = 1 << 20;
    const QFileInfo file(settingsFile());
    return !file.exists() || (file.isFile() && file.size() <= limit);
}

QString copyOf(const QString& file) { return file + QLatin1Char('~'); }

/// Makes way for a new file where the one that is there is too long. False where it is no file.
bool putAside() {
    const auto file = settingsFile();
    if (!QFileInfo(file).isFile())
        return false;
    QFile::remove(copyOf(file));
    return QFile::rename(file, copyOf(file));
}

/// The recent files are nobody else's business. A file that is not there yet is made first: one
/// that QSettings makes may be read by all.
void makePrivate(const QString& name) {
    constexpr auto owner = QFile::ReadOwner | QFile::WriteOwner;
    QFile file(name);
    if (file.open(QIODevice::ReadWrite, owner))
        file.setPermissions(owner);
}

class Settings : public QSettings {
public:
    Settings() : QSettings(settingsFile(), IniFormat) {
        allKeys(); // looks at every line
        if (status() == FormatError)
            keepCopy();
    }

    /// False when another program holds the file and does not let go of it. QSettings itself would
    /// wait half a minute, and with it the clock.
    bool awaitOthers() const {
        using namespace std::chrono_literals;
        QLockFile lock(fileName() + QStringLiteral(".lock"));
        const QDeadlineTimer deadline(500ms);
        while (!lock.tryLock()) {
            if (lock.error() != QLockFile::LockFailedError)
                break;
            if (deadline.hasExpired())
                return false;
            QThread::msleep(5);
        }
        return true;
    }

    /// QSettings itself would put in place whatever part of the file a full disk takes.
    bool hasRoom() const {
        const QFileInfo file(fileName());
        QDir().mkpath(file.path());
        QTemporaryFile probe(fileName());
        const QByteArray room(file.size() + 4096, '\n');
        return probe.open() && probe.write(room) == room.size() && probe.flush() &&
               fsync(probe.handle()) == 0 && probe.size() == room.size();
    }

private:
    void keepCopy() const {
        const auto copy = copyOf(fileName());
        QFile::remove(copy);
        QFile::copy(fileName(), copy);
        makePrivate(copy);
    }
};

/// Invalid when there is none.
QVariant stored(const char* key) {
    return isUsable() ? Settings().value(QLatin1String(key)) : QVariant();
}

/// The text under a key as it stands in the file.
std::optional<QString> text(const char* key) {
    const auto value = stored(key);
    if (!value.isValid())
        return std::nullopt;
    // QSettings takes a text with commas for a list.
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QLatin1Char(','))
                                                    : value.toString();
}

double leadingNumber(const QString& text) {
    auto bytes = text.trimmed().toLower().toLatin1();
    if (bytes.startsWith('+') && !bytes.startsWith("+-"))
        bytes.remove(0, 1);
    if (bytes.startsWith("t") || bytes.startsWith("y"))
        return 1;
    double value = 0;
    std::from_chars(bytes.begin(), bytes.end(), value); // whatever the locale's decimal point
    return std::isfinite(value) ? value : 0;
}

} // namespace

std::optional<double> number(const char* key) {
    const auto found = text(key);
    return found ? std::optional(leadingNumber(*found)) : std::nullopt;
}

std::optional<std::int64_t> integer(const char* key) {
    const auto found = text(key);
    if (!found)
        return std::nullopt;
    bool isWhole = false;
    if (const auto whole = found->toLongLong(&isWhole); isWhole)
        return whole;
    if (const auto whole = found->toULongLong(&isWhole); isWhole)
        return static_cast<std::int64_t>(whole);
    const double real = leadingNumber(*found);
    constexpr double limit = 9.2e18; // what a double can hold of 64 bits without overflowing them
    return std::abs(real) < limit ? static_cast<std::int64_t>(real) : 0;
}

QStringList texts(const char* key) { return stored(key).toStringList(); }

void write(std::initializer_list<Entry> entries) {
    if (!isUsable() && !putAside())
        return;
    Settings settings;
    if (!settings.awaitOthers() || !settings.hasRoom())
        return;
    makePrivate(settings.fileName());
    for (const auto& [key, value] : entries)
        settings.setValue(QLatin1String(key),
                          std::visit([](const auto& held) { return QVariant(held); }, value));
    settings.sync();
}

void setInteger(const char* key, std::int64_t value) { write({{key, qlonglong{value}}}); }
void setTexts(const char* key, const QStringList& value) { write({{key, value}}); }

} // namespace vexa::defaults
