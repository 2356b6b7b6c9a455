#include "arguments/option_values.h"

#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

#include <algorithm>
#include <string_view>

namespace vexa {

namespace {

/// Removes blanks and a unit at the end, and converts to lower case.
QString plain(QString name) {
    name = name.remove(QLatin1Char(' ')).toLower();
    return name.endsWith(QLatin1String("fps")) ? name.chopped(3) : name;
}

std::uint64_t codeNamed(const QString& option, const QString& name, const QStringList& names) {
    const auto found = std::ranges::find(names, plain(name), plain);
    if (found != names.end())
        return static_cast<std::uint64_t>(found - names.begin());
    throw Refusal{QStringLiteral("%1 takes %2, not \"%3\"").arg(option, oneOf(names), name)};
}

} // namespace

QStringList rateNames() {
    QStringList names;
    for (const auto& rate : frameRates)
        names += QString::fromUtf8(rate.name);
    return names;
}

QStringList syncTypeNames() {
    QStringList names;
    for (std::uint64_t code = 0; code < sync::count; ++code)
        names += QString::fromUtf8(syncTypeName(code));
    return names;
}

QString oneOf(QStringList names) {
    const auto last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

QStringList quoted(QStringList names) {
    for (auto& name : names)
        name = QLatin1Char('"') + name + QLatin1Char('"');
    return names;
}

Timecode timeFrom(const QString& option, const QString& text) {
    const auto time = timecodeFromText(text.toStdString());
    if (!time)
        throw Refusal{
            QStringLiteral("%1: \"%2\" is not a time of the form hh:mm:ss:ff").arg(option, text)};
    return *time;
}

std::uint64_t rateCodeFrom(const QString& option, const QString& name) {
    return codeNamed(option, name, rateNames());
}

std::uint64_t syncTypeCodeFrom(const QString& option, const QString& name) {
    return codeNamed(option, name, syncTypeNames());
}

std::set<std::size_t> rowsFrom(const QString& option, const QString& text) {
    // Far more rows than any list has, so that a typing slip does not exhaust the memory.
    constexpr std::size_t mostRows = 1'000'000;
    std::set<std::size_t> rows;
    for (const auto& part : text.split(QLatin1Char(','))) {
        bool isFirst = false;
        bool isLast = false;
        const auto first = part.section(QLatin1Char('-'), 0, 0).toUInt(&isFirst);
        const auto last = part.section(QLatin1Char('-'), -1, -1).toUInt(&isLast);
        if (!isFirst || !isLast || first < 1 || last < first || last > mostRows ||
            part.count(QLatin1Char('-')) > 1)
            throw Refusal{
                QStringLiteral("%1: \"%2\" is not a list of rows such as 1,3-5").arg(option, text)};
        for (auto row = first; row <= last; ++row)
            rows.insert(row - 1);
    }
    return rows;
}

} // namespace vexa
