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
        {"a tab is not a space", u"Sheet\tname='a'", "failure", "none"},
        {"no attribute", u"Sheet  ", "E(Sheet)W(  )", ""},
        {"spaces anywhere", u"Sheet b='1 2'  a='x=y' ", "E(Sheet)W( )A(b='1 2')W(  )A(a='x=y')W( )",
         "[b=1 2][a=x=y]"},
        {"the element name is case-sensitive", u"sheet a='1'", "E(sheet)W( )A(a='1')", "none"},
        {"no space needed after a closing quote", u"Sheet a='1'a='2'", "E(Sheet)W( )A(a='1')A(a='2')",
         "[a=1][a=2]"},
        {"a bare word", u"Sheet a='1' /", "E(Sheet)W( )A(a='1')W( )A(/)", "none"},
        {"a doubled quote doesn't close", u"Sheet a='1' b='2''", "failure", "none"},
        {"a quote at the end of the text doesn't open", u"Sheet a='1' '", "failure", "none"},
        {"no quotes in the element name", u"a='b c''", "E(a='b)W( )A(c'')", "none"},
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
    for (const auto& [quoted, unescaped] : rows) {
        const auto attribute = ExtractNameAndValue(Text(u" 'a=") + Text(quoted));
        EXPECT_EQ(Show(attribute), unescaped == "none"sv ? unescaped : std::string(" 'a=") + unescaped);
        TString value = Text(quoted);
        EXPECT_EQ(StripEnclosingQuotes(value), attribute.has_value());
        EXPECT_TRUE(attribute || value == Text(quoted));
    }
    EXPECT_FALSE(ExtractNameAndValue(Text(u"a'b'")));
}

TEST(AttributedMarkup, RunsOfAttributes)
{
    const Rows<const char*, std::u16string_view, bool, const char*> rows = {
        {"spaces", u"  ", false, ""},
        {"surrounding spaces", u" a='1 2'  b='''=' ", true, "[a=1 2][b='=]"},
        {"repeated names", u"a='1' A='2'", true, "[a=1][A=2]"},
        {"a space or the end must follow a closing quote", u"a='1'b='2'", false, ""},
        {"not other white space", u"a='1'\t", false, ""},
        {"nor a bracket", u"a='1'>", false, ""},
        {"nothing", u"", false, ""},
        {"unterminated quotes", u"a='1' b='2 ''", false, "[a=1]"},
        {"a space before the equals sign", u"a ='1'", false, ""},
        {"text before the quotes", u"a=b'c'", false, ""},
        {"U+0000 ends the scan", u"a='1'\0b"sv, true, "[a=1]"},
        {"also within quotes", u"a='1' b='\0'"sv, false, "[a=1]"},
    };
    for (const auto& [rule, phrase, isRead, pairs] : rows) {
        SCOPED_TRACE(rule);
        std::vector<AttributeNameAndValue> out;
        EXPECT_EQ(FindNameValuePairs(Text(phrase), out), isRead);
        EXPECT_EQ(Show(out), pairs);
        // Existing pairs are kept, and make a phrase of spaces succeed.
        std::vector<AttributeNameAndValue> more{{Name(u"x"), Text(u"y")}};
        EXPECT_EQ(FindNameValuePairs(Text(phrase), more), isRead || phrase == u"  ");
        EXPECT_EQ(Show(more), "[x=y]" + std::string(pairs));
    }
}

TEST(AttributedMarkup, FindingAnAttributeToken)
{
    const char* const noTokens = "corvanemarkup/VizInTooltipImpl: tokenizeResult.Success";
    const char* const noAttribute = "corvanemarkup/VizInTooltipImpl: attributeNameAndValue";
    const Rows<const char*, std::u16string_view, std::u16string_view, std::string> rows = {
        {"the offset is in the raw text", u"Sheet  name='a''b'   filter='f'", u"filter", "21 filter='f'"},
        {"any element, no space between attributes", u"Other a='1'b='2'", u"b", "11 b='2'"},
        {"the first of a name, in any letter case", u"Sheet NAME='a' name='b'", u"name", "6 NAME='a'"},
        {"none", u"Sheet name='a'", u"filter", "none"},
        {"an error after the match isn't reached", u"Sheet name='a' x", u"name", "6 name='a'"},
        {"without a match, an error throws", u"Sheet name='a' x", u"filter", noAttribute},
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
    // Includes unpaired surrogates, a byte order mark and a noncharacter.
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
