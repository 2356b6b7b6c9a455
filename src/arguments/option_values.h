#pragma once

#include "timecode/timecode.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <set>

namespace vexa {

/// A fault in the arguments, in one line for the user.
struct Refusal {
    QString message;
};

/// The names shown to the operator, by code.
QStringList rateNames();
QStringList syncTypeNames();

/// "alsa, jack or none"
QString oneOf(QStringList names);
/// Quotes names that contain blanks, as for a shell.
QStringList quoted(QStringList names);

/// Values of options that several programs share. Each function throws a Refusal that names the
/// option as the user types it: "--start".

/// "hh:mm:ss:ff"; values are not checked.
Timecode timeFrom(const QString& option, const QString& text);

/// Codes are chosen by the names that the operator reads. Blanks, case and a unit at the end do not
/// matter.
std::uint64_t rateCodeFrom(const QString& option, const QString& name);
std::uint64_t syncTypeCodeFrom(const QString& option, const QString& name);

/// "1,3-5": numbers from 1 in any order, as the operator counts; the result counts from 0.
std::set<std::size_t> rowsFrom(const QString& option, const QString& text);

} // namespace vexa
