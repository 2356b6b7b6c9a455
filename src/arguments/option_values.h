#pragma once

#include "timecode/timecode.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <set>

namespace vexa {

/// What is wrong with the arguments, in one line for the user.
struct Refusal {
    QString message;
};

/// The names by code, as the operator reads them.
QStringList rateNames();
QStringList syncTypeNames();

/// "alsa, jack or none"
QString oneOf(QStringList names);
/// Names with blanks in them are quoted in a shell.
QStringList quoted(QStringList names);

/// The values that options of all programs take. Each throws a Refusal that names the option, which
/// is given as the user types it: "--start".

/// "hh:mm:ss:ff", whatever the values.
Timecode timeFrom(const QString& option, const QString& text);

/// Codes are chosen by the names the operator reads. Blanks and the case of letters are free, and
/// so is a unit at the end.
std::uint64_t rateCodeFrom(const QString& option, const QString& name);
std::uint64_t syncTypeCodeFrom(const QString& option, const QString& name);

/// "1,3-5": numbers as the operator counts them, in any order; the result counts from 0.
std::set<std::size_t> rowsFrom(const QString& option, const QString& text);

} // namespace vexa
