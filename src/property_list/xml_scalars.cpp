#include "property_list/xml_scalars.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace vexa::xml {
namespace {

using namespace std::chrono;

constexpr sys_days reference = 2001y / January / 1;

std::string_view withoutLeadingBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

bool takeSign(std::string_view& text, char sign) {
    const bool found = text.starts_with(sign);
    text.remove_prefix(found ? 1 : 0);
    return found;
}

/// Reads the whole text as a number.
template<typename Number, typename... Format>
std::optional<Number> wholeNumber(std::string_view text, Format... format) {
    Number number{};
    const auto* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number, format...);
    return error == std::errc() && last == end ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<PropertyList> integerFromText(std::string_view text) {
    text = withoutLeadingBlanks(text);
    const bool negative = takeSign(text, '-');
    if (!negative)
        takeSign(text, '+');
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(hexadecimal ? 2 : 0);

    const auto magnitude = wholeNumber<std::uint64_t>(text, hexadecimal ? 16 : 10);
    if (!magnitude || (negative && *magnitude > std::uint64_t{1} << 63))
        return std::nullopt;
    return negative ? PropertyList(static_cast<std::int64_t>(-*magnitude))
                    : PropertyList(*magnitude);
}

std::optional<PropertyList> realFromText(std::string_view text) {
    text = withoutLeadingBlanks(text);
    if (takeSign(text, '+') && text.starts_with('-'))
        return std::nullopt;
    const auto number = wholeNumber<double>(text);
    return number ? std::optional(PropertyList(*number)) : std::nullopt;
}

std::optional<PropertyList> dateFromText(std::string_view text) {
    constexpr std::string_view form = "0000-00-00T00:00:00Z";
    if (text.size() != form.size())
        return std::nullopt;
    std::array<unsigned, 6> fields{};
    auto* field = fields.data();
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] != '0' && text[i] == form[i])
            ++field;
        else if (form[i] == '0' && text[i] >= '0' && text[i] <= '9')
            *field = *field * 10 + static_cast<unsigned>(text[i] - '0');
        else
            return std::nullopt;
    }

    const auto [y, m, d, h, min, s] = fields;
    const year_month_day date(year(static_cast<int>(y)), month(m), day(d));
    if (!date.ok() || h > 23 || min > 59 || s > 59)
        return std::nullopt;
    const auto time = sys_days(date) - reference + hours(h) + minutes(min) + seconds(s);
    return PropertyList(PropertyList::Date{static_cast<double>(seconds(time).count())});
}

std::string realText(double number) {
    if (std::isnan(number))
        return "nan";
    if (std::isinf(number))
        return number < 0 ? "-infinity" : "+infinity";
    if (number == 0)
        return "0.0";
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number,
                                            std::chars_format::general, 17);
    return {text.data(), end};
}

std::optional<std::string> dateText(PropertyList::Date date) {
    constexpr double first = seconds(sys_days(0y / January / 1) - reference).count();
    constexpr double end = seconds(sys_days(10000y / January / 1) - reference).count();
    const bool isDate = date.seconds >= first && date.seconds < end;
    if (!isDate) // false for NaN, too
        return std::nullopt;
    const auto time = reference + seconds(static_cast<std::int64_t>(std::floor(date.seconds)));
    const year_month_day day(floor<days>(time));
    const hh_mm_ss clock(time - floor<days>(time));

    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                  static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                  static_cast<unsigned>(day.day()), static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text.data();
}

} // namespace vexa::xml
