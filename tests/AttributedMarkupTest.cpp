#include "Agreements.h"

#include <corvanemarkup/TokenizeAttributedMarkupText.h>

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
        {"a tab is no space", u"Sheet\tname='a'", "failure", "none"},
        {"no attribute", u"Sheet  ", "E(Sheet)W(  )", ""},
        {"spaces anywhere", u"Sheet b='1 2'  a='x=y' ", "E(Sheet)W( )A(b='1 2')W(  )A(a='x=y')W( )",
         "[b=1 2][a=x=y]"},
        {"letter case of the element name counts", u"sheet a='1'", "E(sheet)W( )A(a='1')", "none"},
        {"no space is needed behind a quote", u"Sheet a='1'a='2'", "E(Sheet)W( )A(a='1')A(a='2')",
         "[a=1][a=2]"},
        {"a bare word", u"Sheet a='1' /", "E(Sheet)W( )A(a='1')W( )A(/)", "none"},
        {"a doubled quote doesn't close", u"Sheet a='1' b='2''", "failure", "none"},
        {"a quote that ends the text doesn't open", u"Sheet a='1' '", "failure", "none"},
        {"no quotes protect the first space", u"a='b c''", "E(a='b)W( )A(c'')", "none"},
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
        {u"'b=c'", "b=c"}, {u"''''", "'"}, {u"'b'c'", "b'c"}, {u"'b''", "b'"}, {u"'''''", "''"},
        {u"", "none"},     {u"'", "none"}, {u"'b", "none"},   {u"b'", "none"},
    };
    for (const auto& [written, meant] : rows) {
        const auto attribute = ExtractNameAndValue(Text(u" 'a=") + Text(written));
        EXPECT_EQ(Show(attribute), meant == "none"sv ? meant : std::string(" 'a=") + meant);
        TString value = Text(written);
        EXPECT_EQ(StripEnclosingQuotes(value), attribute.has_value());
        EXPECT_TRUE(attribute || value == Text(written));
    }
    EXPECT_FALSE(ExtractNameAndValue(Text(u"a'b'")));
}

TEST(AttributedMarkup, RunsOfAttributes)
{
    const Rows<const char*, std::u16string_view, bool, const char*> rows = {
        {"spaces", u"  ", false, ""},
        {"attributes with spaces around", u" a='1 2'  b='''=' ", true, "[a=1 2][b='=]"},
        {"repeated names", u"a='1' A='2'", true, "[a=1][A=2]"},
        {"a space or the end must follow a closing quote", u"a='1'b='2'", false, ""},
        {"and no other white space", u"a='1'\t", false, ""},
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
        {"a fault behind the match isn't met", u"Sheet name='a' x", u"name", "6 name='a'"},
        {"a fault is met when nothing matches", u"Sheet name='a' x", u"filter", noAttribute},
        {"the whole text must tokenize first", u"Sheet x name='a", u"name", noTokens},
    };
    for (const auto& [rule, text, name, found] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(ShowOrCondition(FindAttributeTokenOffsetAndContent, Markup(text), Name(name)), found);
    }
}

TEST(AttributedMarkup, WhatIsWrittenReadsBack)
{
    EXPECT_EQ(Show(AttributeNamesAndValues({}).ToMarkupText(Text(u"Sheet"))), "Sheet");
    // Also lone halves of surrogate pairs, non-characters, and a byte order mark.
    constexpr std::u16string_view fragments[] = {u"'",    u" ",      u"=",      u"<",      u">",     u"a",
                                                 u"\0"sv, u"\xD800", u"\xDC00", u"\xFEFF", u"\xFFFF"};
    ForEachText(fragments, 4, [](const std::u16string& value) {
        const AttributeNamesAndValues list(
            {{Name(u"name"), Text(value)}, {Name(u"Filter"), Text(value + u'"')}});
        ExpectReadsBack(list, Text(u"Sheet"));
        const TString markup = list.ToMarkupText(Text(u"Sheet"));
        const TString tooltip = Text(u"\xDC00") + SurroundWithAngleBrackets(markup) + u'\xD800';
        EXPECT_EQ(Show(CollectMarkupElements(tooltip)), '[' + Show(markup) + ']');
        EXPECT_EQ(Show(GetTargetSheetNamesFromTooltipText(tooltip)),
                  value.empty() ? "" : '[' + Show(Text(value)) + ']');
    });
}

} // namespace
