#include "property_list/printing.h"
#include "property_list/xml_scalars.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace vexa;

namespace {

using Date = PropertyList::Date;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(XmlScalars, ReadsIntegers) {
    const std::pair<const char*, PropertyList> rows[] = {
        {"0", PropertyList(0)},
        {"-0", PropertyList(0)},
        {"+7", PropertyList(7)},
        {"007", PropertyList(7)},
        {" \t\r\n42", PropertyList(42)},
        {"0x1F", PropertyList(31)},
        {"0Xff", PropertyList(255)},
        {"-0x10", PropertyList(-16)},
        {"18446744073709551615", PropertyList(std::numeric_limits<std::uint64_t>::max())},
        {"0xFFFFFFFFFFFFFFFF", PropertyList(std::numeric_limits<std::uint64_t>::max())},
        {"-9223372036854775808", PropertyList(std::numeric_limits<std::int64_t>::min())},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(xml::integerFromText(text), value) << text;
}

TEST(XmlScalars, RefusesOtherIntegers) {
    for (const char* text :
         {"", " ", "-", "+", "0x", "-0x", "42 ", "4 2", "4.0", "1e3", "--1", "+-1", "-+1", "0x0x1",
          "18446744073709551616", "-9223372036854775809", "0x10000000000000000", "ten", "&#53;"})
        EXPECT_EQ(xml::integerFromText(text), std::nullopt) << text;
}

TEST(XmlScalars, ReadsReals) {
    const std::pair<const char*, double> rows[] = {
        {"0.0", 0.0},
        {"-1.5e3", -1500.0},
        {"+2", 2.0},
        {" 0.25", 0.25},
        {".5", 0.5},
        {"nan", notANumber},
        {"NaN", notANumber},
        {"+infinity", infinity},
        {"-Infinity", -infinity},
        {"inf", infinity},
        {"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(xml::realFromText(text), PropertyList(value)) << text;
    for (const char* text : {"", " ", "+", "1.5 ", "1,5", "+-1", "--1", "0x1p3", "1e", "real"})
        EXPECT_EQ(xml::realFromText(text), std::nullopt) << text;
}

TEST(XmlScalars, WritesRealsWith17Digits) {
    EXPECT_EQ(xml::realText(0.0), "0.0");
    EXPECT_EQ(xml::realText(-0.0), "0.0");
    EXPECT_EQ(xml::realText(0.1), "0.10000000000000001");
    EXPECT_EQ(xml::realText(1.0), "1");
    EXPECT_EQ(xml::realText(-1e300), "-1.0000000000000001e+300");
    EXPECT_EQ(xml::realText(notANumber), "nan");
    EXPECT_EQ(xml::realText(-notANumber), "nan");
    EXPECT_EQ(xml::realText(infinity), "+infinity");
    EXPECT_EQ(xml::realText(-infinity), "-infinity");
}

TEST(XmlScalars, ReadsAndWritesDates) {
    const std::pair<const char*, double> rows[] = {
        {"2001-01-01T00:00:00Z", 0.0},
        {"2000-12-31T23:59:59Z", -1.0},
        {"1970-01-01T00:00:00Z", -978307200.0},
        {"2024-02-29T12:34:56Z", 730902896.0},
        {"0000-01-01T00:00:00Z", -63145526400.0},
        {"9999-12-31T23:59:59Z", 252423993599.0},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(xml::dateFromText(text), PropertyList(Date{value})) << text;
        EXPECT_EQ(xml::dateText(Date{value}), text);
    }
}

TEST(XmlScalars, RefusesOtherDates) {
    for (const char* text :
         {"", "2001-01-01", "2001-01-01T00:00:00", "2001-01-01T00:00:00z", " 2001-01-01T00:00:00Z",
          "2001-01-01T00:00:00Z ", "2001-13-01T00:00:00Z", "2001-00-01T00:00:00Z",
          "2001-02-29T00:00:00Z", "2001-01-01T24:00:00Z", "2001-01-01T00:60:00Z",
          "2001-01-01T00:00:60Z", "20010-1-01T00:00:00Z", "-001-01-01T00:00:00Z"})
        EXPECT_EQ(xml::dateFromText(text), std::nullopt) << text;
}

TEST(XmlScalars, RoundsDatesDownToSeconds) {
    EXPECT_EQ(xml::dateText(Date{0.999}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(xml::dateText(Date{-0.001}), "2000-12-31T23:59:59Z");
    EXPECT_EQ(xml::dateText(Date{252423993599.5}), "9999-12-31T23:59:59Z");
}

TEST(XmlScalars, HasNoTextForWhatIsNoDateOfFourDigitYears) {
    for (const double seconds : {252423993600., -63145526401., -63145526400.5, 1e300, -1e300,
                                 infinity, -infinity, notANumber})
        EXPECT_EQ(xml::dateText(Date{seconds}), std::nullopt) << seconds;
}

} // namespace
