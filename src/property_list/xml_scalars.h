#pragma once

#include "property_list/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

/// The content of number and date elements.
namespace vexa::xml {

constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// Decimal, or hexadecimal after 0x, with an optional sign, from -2^63 to 2^64 - 1. Allows leading
/// blanks but no trailing ones.
std::optional<PropertyList> integerFromText(std::string_view text);

/// A decimal number, "nan", "infinity" or "inf", with an optional sign, in upper or lower case.
/// Allows leading blanks but no trailing ones.
std::optional<PropertyList> realFromText(std::string_view text);

/// "YYYY-MM-DDThh:mm:ssZ" (ISO 8601) in UTC, in the Gregorian calendar from the year 0000.
std::optional<PropertyList> dateFromText(std::string_view text);

/// 17 significant digits without trailing zeros, which read back as the same number; or "0.0",
/// "nan", "+infinity" or "-infinity".
std::string realText(double number);

/// The text that dateFromText() reads; rounds down to whole seconds. Returns nothing for NaN and
/// for times before the year 0000 or after 9999.
std::optional<std::string> dateText(PropertyList::Date date);

} // namespace vexa::xml
