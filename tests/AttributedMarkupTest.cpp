#include "Agreements.h"

#include <corvanemarkup/TokenizeAttributedMarkupText.h>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip::Impl;

namespace {

std::string ShowTokens(const TokenizeResult& result)
{
    std::string shown = result.Success ? "" : "failure";
    for (const Token& token : result.Tokens)
        shown += "EWA"[static_cast<int>(token.Kind)] + ('(' + Show(token.Text) + ')');
    return shown;
}

TEST(AttributedMarkup, TokensAndAttributesOfAnElement)
{
    const Rows<const char*, std::u16string_view, const char*, const char*> rows = {
        {"an empty text", u"", "failure", "none"},
        {"no space", u"Sheet", "failure", "none"},
        {"a tab is no space", u"Sheet\tname='a'", "failure", "none"},
        {"no attribute", u"Sheet  ", "E(Sheet)W(  )", ""},
        {"spaces anywhere", u"Sheet b='1 2'  a='x=y' ", "E(Sheet)W( )A(b='1 2')W(  )A(a='x=y')W( )",
         "[b=1 2][a=x=y]"},
        {"another element", u" a='1'", "E()W( )A(a='1')", "none"},
        {"letter case of the element name counts", u"sheet a='1'", "E(sheet)W( )A(a='1')", "none"},
        {"no space is needed behind a quote", u"Sheet a='1'a='2'", "E(Sheet)W( )A(a='1')A(a='2')",
         "[a=1][a=2]"},
        {"a bare word", u"Sheet a='1' /", "E(Sheet)W( )A(a='1')W( )A(/)", "none"},
        {"no quotes", u"Sheet a=b", "E(Sheet)W( )A(a=b)", "none"},
        {"a space behind the =", u"Sheet a= 'b'", "E(Sheet)W( )A(a=)W( )A('b')", "none"},
        {"one pair of quotes to a token", u"Sheet a'b'c'd'e", "E(Sheet)W( )A(a'b')A(c'd')A(e)", "none"},
        {"an empty name and value", u"Sheet =''", "E(Sheet)W( )A(='')", "[=]"},
        {"doubled quotes", u"Sheet a='''b'''", "E(Sheet)W( )A(a='''b''')", "[a='b']"},
        {"a doubled quote doesn't close", u"Sheet a='1' b='2''", "failure", "none"},
        {"a quote that ends the text doesn't open", u"Sheet a='1' '", "failure", "none"},
        {"no quotes protect the first space", u"a='b c''", "E(a='b)W( )A(c'')", "none"},
        {"U+0000 is a character", u"Sheet \0='\0'"sv, "E(Sheet)W( )A({0}='{0}')", "[{0}={0}]"},
    };
    for (const auto& [rule, text, tokens, attributes] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(ShowTokens(TokenizeAttributedMarkupText(Markup(text))), tokens);
        EXPECT_EQ(Show(ParseAttributedMarkupText(Markup(text), Text(u"Sheet"))), attributes);
    }
}

TEST(AttributedMarkup, NameAndValueOfOneAttribute)
{
    const Rows<std::u16string_view, const char*> rows = {
        {u" a='b=c'", " a=b=c"}, {u"'a=''''", "'a='"}, {u"a='b'c'", "a=b'c"},
        {u"a='b''", "a=b'"},     {u"a='''''", "a=''"}, {u"a='", "none"},
        {u"a='b", "none"},       {u"a=b'", "none"},    {u"a'b'", "none"},
    };
    for (const auto& [text, attribute] : rows)
        EXPECT_EQ(Show(ExtractNameAndValue(Text(text))), attribute);

    TString value = Text(u"'a'b'");
    EXPECT_TRUE(StripEnclosingQuotes(value));
    EXPECT_EQ(Show(value), "a'b");
    for (const std::u16string_view unquoted : {u"", u"'", u"'a", u"a'"}) {
        value = Text(unquoted);
        EXPECT_FALSE(StripEnclosingQuotes(value));
        EXPECT_EQ(value, Text(unquoted));
    }
}

TEST(AttributedMarkup, RunsOfAttributes)
{
    const Rows<const char*, std::u16string_view, bool, const char*> rows = {
        {"nothing", u"", false, ""},
        {"spaces", u"  ", false, ""},
        {"attributes with spaces around", u" a='1 2'  b='''=' ", true, "[a=1 2][b='=]"},
        {"a space or the end must follow a closing quote", u"a='1'b='2'", false, ""},
        {"attributes before a failure stay", u"a='1' x", false, "[a=1]"},
        {"a quote that ends the text", u"a='1' '", false, "[a=1]"},
        {"an open quote", u"a='1' b='2 ''", false, "[a=1]"},
        {"a space within an attribute", u"a ='1'", false, ""},
        {"text in front of the quotes", u"a=b'c'", false, ""},
        {"U+0000 ends the scan", u"a='1'\0b"sv, true, "[a=1]"},
        {"U+0000 within quotes, too", u"a='1' b='\0'"sv, false, "[a=1]"},
    };
    for (const auto& [rule, phrase, isRead, pairs] : rows) {
        SCOPED_TRACE(rule);
        std::vector<AttributeNameAndValue> out;
        EXPECT_EQ(FindNameValuePairs(Text(phrase), out), isRead);
        EXPECT_EQ(Show(out), pairs);
        // What is there on entry stays there, and counts: a phrase of spaces is enough then.
        std::vector<AttributeNameAndValue> more{{Name(u"x"), Text(u"y")}};
        EXPECT_EQ(FindNameValuePairs(Text(phrase), more), isRead || phrase == u"  ");
        EXPECT_EQ(Show(more), "[x=y]" + std::string(pairs));
    }
}

TEST(AttributedMarkup, WhereAnAttributeStands)
{
    const char* const noTokens = "corvanemarkup/VizInTooltipImpl: tokenizeResult.Success";
    const char* const noAttribute = "corvanemarkup/VizInTooltipImpl: attributeNameAndValue";
    const Rows<const char*, std::u16string_view, std::u16string_view, std::string> rows = {
        {"raw lengths count", u"Sheet  name='a''b'   filter='f'", u"filter", "21 filter='f'"},
        {"any element, and no space between", u"Other a='1'b='2'", u"b", "11 b='2'"},
        {"the first of a name, in any letter case", u"Sheet NAME='a' name='b'", u"name", "6 NAME='a'"},
        {"none", u"Sheet name='a'", u"filter", "none"},
        {"an empty name", u"Sheet ='x'", u"", "6 ='x'"},
        {"a fault behind the match isn't met", u"Sheet name='a' x", u"name", "6 name='a'"},
        {"a fault is met when nothing matches", u"Sheet name='a' x", u"filter", noAttribute},
        {"a fault in front", u"Sheet x name='a'", u"name", noAttribute},
        {"a fault at the match", u"Sheet name=a", u"name", noAttribute},
        {"the whole text must tokenize first", u"Sheet x name='a", u"name", noTokens},
    };
    for (const auto& [rule, text, name, found] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(ShowOrCondition(FindAttributeTokenOffsetAndContent, Markup(text), Name(name)), found);
    }
}

TEST(AttributedMarkup, TheListOfAttributes)
{
    const AttributeNamesAndValues none{std::vector<AttributeNameAndValue>()};
    EXPECT_EQ(Show(none.ToMarkupText(Text(u"Sheet"))), "Sheet");
    EXPECT_FALSE(none.HasDuplicates());
    EXPECT_EQ(Show(none.GetAttributeValueForName(Name(u"a"))), "none");
    EXPECT_EQ(Show(none.ReplaceOrAdd(Name(u"a"), Text(u"1"))), "[a=1]");

    const AttributeNamesAndValues list(
        {{Name(u"A"), Text(u"1")}, {Name(u"b"), TString()}, {Name(u"a"), Text(u"3")}});
    EXPECT_TRUE(list.HasDuplicates());
    EXPECT_EQ(Show(list.GetAttributeValueForName(Name(u"a"))), "1");
    EXPECT_EQ(Show(list.GetAttributeValueForName(Name(u"b"))), "");
    EXPECT_EQ(Show(list.ReplaceOrAdd(Name(u"a"), Text(u"9"))), "[a=9][b=][a=3]")
        << "name and value of the first";
    EXPECT_EQ(Show(list), "[A=1][b=][a=3]") << "the list itself doesn't change";
    EXPECT_FALSE(
        AttributeNamesAndValues({{Name(u"a"), TString()}, {Name(u"ab"), TString()}}).HasDuplicates());
}

TEST(AttributedMarkup, WhatIsWrittenReadsBack)
{
    // Also what no well-formed text holds: lone halves of surrogate pairs, non-characters, and a byte order
    // mark.
    constexpr std::u16string_view fragments[] = {u"'",    u" ",      u"=",      u"<",      u">",     u"a",
                                                 u"\0"sv, u"\xD800", u"\xDC00", u"\xFEFF", u"\xFFFF"};
    ForEachText(fragments, 4, [](const std::u16string& value) {
        const AttributeNamesAndValues list(
            {{Name(u"name"), Text(value)}, {Name(u"Filter"), Text(value + u'"')}});
        ExpectReadsBack(list, Text(u"Sheet"));
        const TString markup = list.ToMarkupText(Text(u"Sheet"));
        const TString tooltip = Text(u"\xDC00") + SurroundWithAngleBrackets(markup) + u'\xD800';
        EXPECT_EQ(Show(CollectMarkupElements(tooltip)), '[' + Show(markup) + ']');
        EXPECT_EQ(Show(VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip)),
                  value.empty() ? "" : '[' + Show(Text(value)) + ']');
    });
}

} // namespace
