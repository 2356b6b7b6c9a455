#include "defaults/Preferences.h"

#include "defaults/IniFile.h"

#include <QLocale>

#include <charconv>
#include <cmath>
#include <concepts>

namespace vexa {

namespace {

constexpr auto columnWidths = "columnwidth";

/// Calls visit(key, member) for each setting that has a key of its own.
template<class Visit>
void forEachSetting(const Visit& visit) {
    visit("vexadelay", &Preferences::delayInSeconds);
    visit("vexadefaultrate", &Preferences::defaultFrameRate);
    visit("vexadefaulttype", &Preferences::defaultSyncType);
    visit("vexapauseforreel", &Preferences::pauseForReelChange);
    visit("vexamididest", &Preferences::midiDestination);
    visit("windowwidth", &Preferences::windowWidth);
    visit("windowheight", &Preferences::windowHeight);
    visit("statusline", &Preferences::showsStatusLine);
    visit("recentfiles", &Preferences::recentFiles);
    visit("tapeminutes", &Preferences::tapeMinutes);
    visit("showsdurations", &Preferences::showsDurations);
}

QByteArray widthKey(const QString& column) {
    return QByteArray(columnWidths) + '/' + column.toUtf8();
}

double leadingNumber(const QString& text) {
    auto bytes = text.trimmed().toLower().toLatin1();
    if (bytes.startsWith('+') && !bytes.startsWith("+-"))
        bytes.remove(0, 1);
    if (bytes.startsWith("t") || bytes.startsWith("y"))
        return 1;
    double value = 0;
    std::from_chars(bytes.begin(), bytes.end(), value); // independent of the locale's decimal point
    return std::isfinite(value) ? value : 0;
}

std::int64_t leadingInteger(const QString& text) {
    bool isWhole = false;
    if (const auto whole = text.toLongLong(&isWhole); isWhole)
        return whole;
    if (const auto whole = text.toULongLong(&isWhole); isWhole)
        return static_cast<std::int64_t>(whole);
    const double real = leadingNumber(text);
    constexpr double limit = 9.2e18; // a double up to here fits into 64 bits
    return std::abs(real) < limit ? static_cast<std::int64_t>(real) : 0;
}

void read(const QStringList& texts, QStringList& value) { value = texts; }
void read(const QStringList& texts, double& value) {
    value = leadingNumber(texts.join(QLatin1Char(',')));
}
void read(const QStringList& texts, bool& value) {
    value = leadingNumber(texts.join(QLatin1Char(','))) != 0;
}
template<std::integral Integer>
void read(const QStringList& texts, Integer& value) {
    value = static_cast<Integer>(leadingInteger(texts.join(QLatin1Char(','))));
}

QStringList written(const QStringList& value) { return value; }
QStringList written(double value) {
    return {QString::number(value, 'g', QLocale::FloatingPointShortest)};
}
QStringList written(bool value) {
    return {value ? QStringLiteral("true") : QStringLiteral("false")};
}
template<std::integral Integer>
QStringList written(Integer value) {
    return {QString::number(static_cast<qlonglong>(value))};
}

} // namespace

Preferences preferencesIn(const IniFile& file) {
    Preferences result;
    forEachSetting([&](const char* key, auto member) {
        if (const auto texts = file.value(key); texts && !texts->isEmpty())
            read(*texts, (result.*member).emplace());
    });
    for (const auto& column : file.keysOf(columnWidths))
        if (const auto texts = file.value(widthKey(column)); texts && !texts->isEmpty())
            read(*texts, result.columnWidths[column]);
    return result;
}

void enter(const Preferences& change, IniFile& file) {
    forEachSetting([&](const char* key, auto member) {
        if (const auto& value = change.*member)
            file.setValue(key, written(*value));
    });
    for (const auto& [column, width] : change.columnWidths)
        file.setValue(widthKey(column), written(width));
}

void append(Preferences& change, const Preferences& later) {
    forEachSetting([&](const char*, auto member) {
        if (later.*member)
            change.*member = later.*member;
    });
    for (const auto& [column, width] : later.columnWidths)
        change.columnWidths.insert_or_assign(column, width);
}

} // namespace vexa
