#include "torlib/platform/component/nearest_names.h"
#include "torlib/platform/component/unknown.h"
#include "torlib/platform/component/variant.h"

#include "tests/error_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

using namespace std::string_literals;

TEST(Text, Utf8AndBackIsTheSameForEveryWholeCharacter) {
    for (char32_t c = 1; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 97) {
        if (c >= 0xD800 && c < 0xE000) {
            continue;
        }
        const auto high = static_cast<char16_t>(0xD7C0 + (c >> 10));
        const auto low = static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        const std::u16string wide =
            c < 0x10000 ? std::u16string{static_cast<char16_t>(c)} : std::u16string{high, low};
        ASSERT_EQ(FromUtf8(ToUtf8(wide)), wide) << std::hex << static_cast<unsigned>(c);
    }
    EXPECT_EQ(ToUtf8(u"m\u00B2 \u0644\u0627 \U0001F9F1"),
              "m\xC2\xB2 \xD9\x84\xD8\xA7 \xF0\x9F\xA7\xB1");
}

TEST(Text, BrokenSequencesBecomeTheReplacementCharacter) {
    const struct {
        std::string bytes;
        std::u16string wanted;
    } cases[] = {
        {"a\x80z", u"a\uFFFDz"},           // continuation without a lead
        {"a\xC3", u"a\uFFFD"},             // cut off at the end
        {"a\xE2\x82z", u"a\uFFFDz"},       // cut off in the middle
        {"\xC0\xAFz", u"\uFFFD\uFFFDz"},   // overlong, two bytes
        {"\xE0\x80\xAFz", u"\uFFFDz"},     // overlong, three bytes
        {"\xF0\x80\x80\xAFz", u"\uFFFDz"}, // overlong, four bytes
        {"\xED\xA0\x80z", u"\uFFFDz"},     // half of a surrogate pair
        {"\xF4\x90\x80\x80z", u"\uFFFDz"}, // beyond the last character
        {"\xFFz", u"\uFFFDz"},             // never a lead
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ToUtf8(FromUtf8(c.bytes)), ToUtf8(c.wanted));
    }
    const std::u16string halves{u'a', char16_t{0xD83E}, u'b', char16_t{0xDDF1}, char16_t{0xD83E}};
    EXPECT_EQ(ToUtf8(halves), ToUtf8(u"a\uFFFDb\uFFFD\uFFFD"));
}

TEST(Text, IdentifiersReadBackAndNothingElseIsTaken) {
    const Guid guid = IidClassFactory;
    const std::u16string text = GuidText(guid);
    EXPECT_EQ(ToUtf8(text), "{7A3C1C02-52D1-4E0E-9D6B-0C415E287001}");
    Guid read;
    EXPECT_TRUE(ParseGuid(text, &read));
    EXPECT_EQ(read, guid);
    EXPECT_TRUE(ParseGuid(u"{7a3c1c02-52d1-4e0e-9d6b-0c415e287001}", &read));
    EXPECT_EQ(read, guid);
    for (const char16_t* bad :
         {u"", u"TORVALib.FEM_Class", u"7A3C1C02-52D1-4E0E-9D6B-0C415E287001",
          u"{7A3C1C02-52D1-4E0E-9D6B-0C415E287001}x", u"{7A3C1C02-52D1-4E0E-9D6B-0C415E28700}",
          u"{7A3C1C02-52D1-4E0E-9D6B-0C415E28700G}", u"{ A3C1C02-52D1-4E0E-9D6B-0C415E287001}",
          u"{-A3C1C02-52D1-4E0E-9D6B-0C415E287001}", u"{0x3C1C02-52D1-4E0E-9D6B-0C415E287001}"}) {
        EXPECT_FALSE(ParseGuid(bad, &read)) << ToUtf8(bad);
    }
}

TEST(Text, NumbersAreReadWholeAndWrittenShortest) {
    const struct {
        const char16_t* text;
        double value;
    } good[] = {{u"12.5", 12.5},
                {u" -3e-2\t", -0.03},
                {u"+7", 7},
                {u".5", 0.5},
                {u"-0", 0},
                {u"1e-400", 0},
                {u"-1E-99999999999999999999", 0},
                {u"0e99999999999999999999", 0}};
    for (const auto& c : good) {
        EXPECT_EQ(ParseNumber(c.text), c.value) << ToUtf8(c.text);
    }
    for (const char16_t* bad : {u"", u"F", u"1,5", u"1 2", u"12x", u"+-5", u"+", u"nan", u"inf"}) {
        EXPECT_EQ(test::ErrorOf([bad] { ParseNumber(bad); }), 13) << ToUtf8(bad);
    }
    for (const char16_t* bad : {u"1e400x", u"1e-400x", u"1e400 1", u"-", u"1e"}) {
        EXPECT_EQ(test::ErrorOf([bad] { ParseNumber(bad); }), 13) << ToUtf8(bad);
    }
    for (const char16_t* large : {u"1e999", u"-1E+400", u"1e99999999999999999999", u"0.1e310"}) {
        EXPECT_EQ(test::ErrorOf([large] { ParseNumber(large); }), 6) << ToUtf8(large);
    }
    const std::u16string zeros(400, u'0'); // the digits themselves may be what is out of range
    EXPECT_EQ(test::ErrorOf([&] { ParseNumber(u"1" + zeros); }), 6);
    EXPECT_EQ(test::ErrorOf([&] { ParseNumber(u"1" + zeros + u".5e-10"); }), 6);
    EXPECT_EQ(ParseNumber(u"0." + zeros + u"1e+20"), 0);
    EXPECT_EQ(ParseNumber(u"0." + zeros + u"1e401"), 1);
    for (const float value : {0.1F, 1.0F / 3, 16777216.0F, -2.5e-38F, 3.4028235e38F}) {
        EXPECT_EQ(static_cast<float>(ParseNumber(NumberText(value))), value);
    }
    EXPECT_EQ(ToUtf8(NumberText(0.1F)), "0.1") << "not the digits of the double beside it";
}

TEST(Text, HalvesRoundToTheEvenNeighbour) {
    const struct {
        double value;
        int wanted;
    } cases[] = {{0.5, 0},   {1.5, 2},  {2.5, 2},    {-0.5, 0},           {-1.5, -2},
                 {-2.5, -2}, {2.51, 3}, {-2.51, -3}, {32767.4999, 32767}, {-32768.5, -32768}};
    for (const auto& c : cases) {
        EXPECT_EQ(RoundToInt16(c.value), c.wanted) << c.value;
        EXPECT_EQ(RoundToInt32(c.value), c.wanted) << c.value;
    }
    for (const double value : {32767.5, -32768.51, 1e300, std::nan("")}) {
        EXPECT_EQ(test::ErrorOf([value] { RoundToInt16(value); }), 6) << value;
    }
    EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(test::ErrorOf([] { RoundToInt32(2147483647.5); }), 6);
}

TEST(Text, SuggestionsAreTheNearestNamesAndNeverFarOnes) {
    const std::vector<std::string> known{"SolveMatrix", "SetBoundaryToMatrix", "GetBandWidth",
                                         "SolveMatrices", "Kz"};
    EXPECT_EQ(Suggestion("solvematrx", known), " (did you mean SolveMatrix or SolveMatrices?)");
    EXPECT_EQ(Suggestion("GetBandwith", known), " (did you mean GetBandWidth?)");
    EXPECT_EQ(Suggestion("Temperature", known), "");
    EXPECT_EQ(NearestNames("Aaaa1", {"Aaaa2", "Aaaa3", "Aaaa4", "Aaaa5"}).size(), 3U);
    EXPECT_TRUE(SameName(u"xXeE", u"XxEe"));
    EXPECT_FALSE(SameName(u"xX", u"xXe"));
    EXPECT_FALSE(SameName(u"[", u"{")) << "only letters have two cases";
}

} // namespace
} // namespace torlib
