#include "interchange/field_texts.h"

#include "interchange/latin1.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace vexa {

namespace {

bool isDigit(QChar letter) { return letter >= u'0' && letter <= u'9'; }

std::optional<WrittenTime> timeFromDigits(QStringView digits) {
    constexpr qsizetype mostDigits = 8;
    // A spreadsheet that takes the time for a number drops the leading zero.
    if (digits.size() < mostDigits - 1 || digits.size() > mostDigits ||
        !std::ranges::all_of(digits, isDigit))
        return {};
    std::uint64_t number = 0;
    for (const auto digit : digits)
        number = number * 10 + (digit.unicode() - u'0');
    return WrittenTime{{number / 1000000, number / 10000 % 100, number / 100 % 100, number % 100}};
}

/// Removes the next field of a time from the text and returns it; nothing if there is none.
std::optional<std::uint64_t> takeField(QStringView& text) {
    qsizetype length = 0;
    std::uint64_t value = 0;
    while (length < text.size() && isDigit(text[length]))
        value = value * 10 + (text[length++].unicode() - u'0');
    text = text.sliced(length);
    return length == 1 || length == 2 ? std::optional(value) : std::nullopt;
}

/// Recognizes the counting mode after a rate's number: whether it is drop-frame.
std::optional<bool> dropFrameNamed(QStringView suffix) {
    constexpr std::array drop{u"df", u"d", u"drop", u"dropframe"};
    constexpr std::array noDrop{u"ndf", u"nd", u"nondrop", u"nondropframe"};
    const auto isIn = [suffix](const auto& list) {
        return std::ranges::any_of(list, [&](const auto* name) { return suffix == name; });
    };
    if (isIn(drop))
        return true;
    return isIn(noDrop) ? std::optional(false) : std::nullopt;
}

/// Keeps only lower-case letters and digits, and a comma as a point.
QString plainRate(QStringView text) {
    QString plain;
    for (const auto letter : text)
        if (letter == u',' || letter == u'.')
            plain += u'.';
        else if (letter.isLetterOrNumber())
            plain += letter.toLower();
    plain.remove(QLatin1String("fps"));
    return plain;
}

/// The code of the rate with that name, as the program itself writes it.
std::optional<std::uint64_t> rateNamed(QStringView text) {
    const auto* const row = std::ranges::find_if(frameRates, [text](const FrameRate& rate) {
        return text.compare(latin1(rate.name), Qt::CaseInsensitive) == 0;
    });
    return row == frameRates.end() ? std::nullopt : std::optional(row->code);
}

/// Whether people call the rate by that number: 30000/1001 is 29.97, and 30 if it drops frames.
bool isCalled(const FrameRate& rate, double number) {
    const double exact = static_cast<double>(rate.frames) / static_cast<double>(rate.seconds);
    return number == std::round(exact * 100) / 100 || (rate.dropFrame && number == rate.frameCount);
}

} // namespace

std::optional<WrittenTime> timeFromText(QStringView text) {
    text = text.trimmed();
    if (auto time = timeFromDigits(text))
        return time;
    std::array<std::uint64_t, 4> fields{};
    bool isDropFrame = false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) {
            const auto separator = text.isEmpty() ? QChar() : text.front();
            const bool isLast = i + 1 == fields.size();
            const bool isKnown =
                separator == u':' || separator == u';' || (isLast && separator == u'.');
            if (!isKnown)
                return {};
            isDropFrame = separator == u';';
            text = text.sliced(1);
        }
        const auto field = takeField(text);
        if (!field)
            return {};
        fields[i] = *field;
    }
    if (!text.isEmpty())
        return {};
    return WrittenTime{{fields[0], fields[1], fields[2], fields[3]}, isDropFrame};
}

std::optional<std::uint64_t> rateFromText(QStringView text) {
    constexpr qsizetype longest = 40;
    if (text.size() > longest)
        return {};
    if (const auto code = rateNamed(text.trimmed()))
        return code;
    const auto plain = plainRate(text);
    const auto* const firstLetter =
        std::ranges::find_if(plain, [](QChar letter) { return letter.isLetter(); });
    const auto digits = QStringView(plain.begin(), firstLetter);
    const auto suffix = QStringView(firstLetter, plain.end());
    bool isNumber = false;
    const double number = digits.toDouble(&isNumber);
    const auto drop = suffix.isEmpty() ? std::optional(number == 29.97) : dropFrameNamed(suffix);
    if (!isNumber || !drop)
        return {};
    const auto row = std::ranges::find_if(frameRates, [&](const FrameRate& rate) {
        return rate.dropFrame == *drop && isCalled(rate, number);
    });
    return row == frameRates.end() ? std::nullopt : std::optional(row->code);
}

std::optional<std::uint64_t> syncTypeFromText(QStringView text) {
    for (std::uint64_t code = 0; code < sync::count; ++code) {
        const auto name = syncTypeName(code);
        if (text.trimmed().compare(latin1(name), Qt::CaseInsensitive) == 0)
            return code;
    }
    return {};
}

std::optional<std::uint64_t> reelFromText(QStringView text) {
    text = text.trimmed();
    const auto* const firstDigit = std::ranges::find_if(text, isDigit);
    const auto digits = QStringView(firstDigit, text.end());
    bool isNumber = false;
    const auto reel = digits.toULongLong(&isNumber);
    const bool isMarked = std::all_of(text.begin(), firstDigit, [](QChar letter) {
        return letter.isLetter() || letter.isSpace() || letter == u'#' || letter == u'.';
    });
    return isNumber && isMarked && std::ranges::all_of(digits, isDigit) ? std::optional(reel)
                                                                        : std::nullopt;
}

} // namespace vexa
