#include "Testing.h"

#include <corvaneplatform/TString.h>

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(Platform, NoPositionReachesOutsideTheText)
{
    const TString text = Text(u"ab,a");
    for (const int below : {INT_MIN, -1}) {
        EXPECT_EQ(text[below], u'\0');
        EXPECT_EQ(text.Find(u'b', below), 1);
        EXPECT_EQ(text.findOneOf(Text(u"x,b"), below), 1);
        EXPECT_EQ(Show(text.left(below)), "");
        EXPECT_EQ(Show(text.mid(below, 2)), "ab");
        EXPECT_EQ(Show(text.mid(1, below)), "b,a");
        EXPECT_EQ(Show(TString(text).removeAt(below, 2)), "ab,a");
        EXPECT_EQ(Show(TString(text).removeAt(2, below)), "ab,a");
    }
    for (const int above : {4, 5, INT_MAX}) {
        EXPECT_EQ(text[above], u'\0');
        EXPECT_EQ(text.Find(u'a', above), -1);
        EXPECT_EQ(text.findOneOf(Text(u"ab"), above), -1);
        EXPECT_EQ(Show(text.left(above)), "ab,a");
        EXPECT_EQ(Show(text.mid(above, -1)), "");
        EXPECT_EQ(Show(text.mid(3, above)), "a");
        EXPECT_EQ(Show(TString(text).removeAt(above, 1)), "ab,a");
        EXPECT_EQ(Show(TString(text).removeAt(1, above)), "a");
    }
    EXPECT_EQ(text.constData()[4], u'\0');
    EXPECT_EQ(Show(TString(u"a\0b", -1)), "a");
    EXPECT_EQ(Show(TString(nullptr, 3) + TString(nullptr, -1)), "");
}

TEST(Platform, ComparisonAndReplacement)
{
    const auto compare = [](std::u16string_view left, std::u16string_view right, int sensitivity) {
        const int result = Text(left).compare(Text(right), TString::CaseSensitivity(sensitivity));
        return (result > 0) - (result < 0);
    };
    TString twice = Text(u"too long to be held in place ");
    EXPECT_EQ(std::move(twice) + twice, Text(u"too long to be held in place too long to be held in place "));
    EXPECT_EQ(compare(u"NamE", u"nAMe", 0), 0);
    EXPECT_EQ(compare(u"Z", u"_", 0), 1) << "folded to lower case, then ordered";
    EXPECT_EQ(compare(u"a", u"B", 0), -1);
    EXPECT_EQ(compare(u"ab", u"A", 0), 1);
    EXPECT_EQ(compare(u"\u00C4", u"\u00E4", 0), -1) << "only ASCII is folded";
    EXPECT_EQ(compare(u"Name", u"name", 1), -1);
    EXPECT_EQ(compare(u"Name", u"Name", 1), 0);
    EXPECT_TRUE(Text(u"\xD83D\xDE00") < Text(u"\xFFFF")) << "by code units";

    EXPECT_EQ(Show(Text(u"ababaAbaaba").replace(Text(u"aba"), Text(u"a"), TString::CaseSensitivity(1))),
              "abaAbaa");
    EXPECT_EQ(Show(Text(u"aaaa").replace(Text(u"aaa"), Text(u"b"), TString::CaseSensitivity(1))), "ba");
    EXPECT_EQ(Show(Text(u"xAbx").replace(Text(u"aB"), Text(u"long"), TString::CaseSensitivity(0))), "xlongx");
    EXPECT_EQ(Show(Text(u"ab").replace(TString(), Text(u"x"), TString::CaseSensitivity(1))), "ab");
    // 2,500,000,000 code units: refused before allocating.
    TString text(std::u16string(50000, u',').c_str(), -1);
    EXPECT_THROW(text.replace(u',', text), std::length_error);
    EXPECT_EQ(text.length(), 50000);
}

TEST(Platform, PiecesAndNumbers)
{
    EXPECT_EQ(Show(Text(u"=a==b=").split(u'=', TString::SplitBehavior(0))), "[][a][][b][]");
    EXPECT_EQ(Show(Text(u"=a==b=").split(u'=', TString::SplitBehavior(1))), "[a][b]");
    EXPECT_EQ(Show(TString().split(u'=', TString::SplitBehavior(1))), "[]");
    EXPECT_EQ(Show(TString::join({Text(u"a"), TString(), Text(u"b")}, u',')), "a,,b");
    EXPECT_EQ(Show(TString::join({}, u',')), "");
    EXPECT_EQ(Show(Text(u"\t\v a b\r\n \f").Trim()), "a b");
    EXPECT_EQ(Show(Text(u"\u00A0").Trim()), "{A0}");
    EXPECT_EQ(Show(TString::number(-300, 10, 6, u'*')), "**-300");
    EXPECT_EQ(Show(TString::number(-5, INT_MIN, INT_MIN, u'*')), "-101");
    EXPECT_EQ(Show(TString::number(35, INT_MAX, 0, u'*')), "z");
    EXPECT_EQ(Show(TString::number(INT_MIN, 2, 0, u'*')), "-1" + std::string(31, '0'));
    EXPECT_EQ(Text(u"-101").toInt(nullptr, 1) + Text(u"Z").toInt(nullptr, 37), 30);

    const Rows<std::u16string_view, bool, int> rows = {
        {u"-0012", true, -12},     {u"2147483647", true, INT_MAX},
        {u"2147483648", false, 0}, {u"", false, 0},
        {u"-", false, 0},          {u"+1", false, 0},
        {u" 1", false, 0},         {u"1\0"sv, false, 0},
        {u"1.5", false, 0},        {u"\u0131", false, 0},
    };
    for (const auto& [text, isNumber, value] : rows) {
        bool ok = !isNumber;
        EXPECT_EQ(Text(text).toInt(&ok, 10), value) << Show(Text(text));
        EXPECT_EQ(ok, isNumber);
    }
}

TEST(Platform, TheException)
{
    try {
        ThrowLogicException("folder/Source", 7, "condition");
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "folder/Source:7: condition");
        EXPECT_EQ(dynamic_cast<const LogicException&>(error).Line(), 7);
    }
}

} // namespace
