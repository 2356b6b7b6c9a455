#pragma once

#include "property_list/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

/// What stands between the tags of numbers and dates.
namespace vexa::xml {

constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// Decimal, or hexadecimal after 0x, with or without a sign, from -2^63 to 2^64 - 1. Blanks may
/// stand before it, not after.
std::optional<PropertyList> integerFromText(std::string_view text);

/// A decimal number, "nan", "infinity" or "inf", with or without a sign, letters in any case.
/// Blanks may stand before it, not after.
std::optional<PropertyList> realFromText(std::string_view text);

/// "YYYY-MM-DDThh:mm:ssZ" (ISO 8601) in UTC, the Gregorian calendar from the year 0000 on.
std::optional<PropertyList> dateFromText(std::string_view text);

/// The shortest form with 17 significant digits that reads back as the same number, "0.0", "nan",
/// "+infinity" or "-infinity".
std::string realText(double number);

/// What dateFromText() reads, in whole seconds, fractions rounded down. Nothing for a moment before
/// the year 0000 or after 9999, and for no moment at all.
std::optional<std::string> dateText(PropertyList::Date date);

} // namespace vexa::xml
