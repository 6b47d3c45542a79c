#include "Testing.h"

#include <corvanemarkup/VizInTooltipProperties.h>

#include <gtest/gtest.h>

namespace {

/// The failed checks of an element, one letter each, and its size.
std::string ShowValidation(const boost::optional<VizInTooltipProperties>& element)
{
    if (!element)
        return "none";
    const TSize size = element->GetSheetSize();
    std::string failed;
    failed += element->HasDuplicateAttributes() ? "D" : "";
    failed += element->MissingSheetName() ? "N" : "";
    failed += element->HasInvalidSheetSize() ? "S" : "";
    failed += element->HasUnallowedAttributes() ? "U" : "";
    EXPECT_EQ(element->IsValid(), failed.empty());
    return failed + ' ' + Show(size.width) + 'x' + Show(size.height);
}

TEST(SheetProperties, Validation)
{
    const Rows<const char*, std::u16string_view, const char*> rows = {
        {"the defaults", u"Sheet name=' '", " 300x300"},
        {"any order, any letter case of names", u"Sheet MAXWIDTH='400' filter='' Name='a'", " 400x300"},
        {"the lower bounds", u"Sheet name='a' maxwidth='1' maxheight='1'", " 1x1"},
        {"the upper bounds differ", u"Sheet name='a' maxwidth='2000' maxheight='1500'", " 2000x1500"},
        {"too wide", u"Sheet name='a' maxwidth='2001'", "S 2001x300"},
        {"too high", u"Sheet name='a' maxheight='1501'", "S 300x1501"},
        {"too narrow", u"Sheet name='a' maxwidth='0'", "S 0x300"},
        {"too low", u"Sheet name='a' maxheight='0'", "S 300x0"},
        {"an empty size isn't the default", u"Sheet name='a' maxwidth=''", "S 0x300"},
        {"not a number", u"Sheet name='a' maxwidth='3:'", "S 0x300"},
        {"a digit of another script", u"Sheet name='a' maxwidth='100\uFF13'", "S 0x300"},
        {"beyond int", u"Sheet name='a' maxheight='4294967597'", "S 300x0"},
        {"an empty name", u"Sheet name=''", "N 300x300"},
        {"the first attribute of a name applies", u"Sheet name='' name='a' maxwidth='-1' MaxWidth='1'",
         "DNS -1x300"},
        {"an unknown attribute", u"Sheet name='a' filtre=''", "U 300x300"},
        {"not a sheet element", u"Link name='a'", "none"},
        {"a bare word", u"Sheet name='a' x", "none"},
        {"unterminated quotes", u"Sheet name='a' maxheight='", "none"},
    };
    for (const auto& [rule, text, validation] : rows) {
        SCOPED_TRACE(rule);
        const auto element = VizInTooltipProperties::FromMarkupText(Markup(text));
        EXPECT_EQ(ShowValidation(element), validation);
        // These validate without a copy, in code of their own.
        const bool isValid = element && element->IsValid();
        const std::string names = isValid ? Show(std::set<TString>{element->GetSheetName()}) : "";
        EXPECT_EQ(Show(GetTargetSheetNameFromMarkupText(Text(text))),
                  isValid ? Show(element->GetSheetName()) : "");
        EXPECT_EQ(Show(GetTargetSheetNamesFromMarkupElementSet({Text(text), Text(u"b")})), names);
        EXPECT_EQ(Show(GetTargetSheetNamesFromTooltipText(SurroundWithAngleBrackets(Text(text)))), names);
    }
}

TEST(SheetProperties, AccessAndEditing)
{
    const Rows<const char*, std::u16string_view, const char*, const char*, const char*, const char*> rows = {
        {"in place", u"Sheet  name='a' filter='<x>' maxwidth='10' ", "a", "<x>",
         "Sheet name='a' filter='<p>,<q>' maxwidth='10'", "Sheet name='n' filter='<x>' maxwidth='10'"},
        {"at the end", u"Sheet filter=''", "", "", "Sheet filter='<p>,<q>'", "Sheet filter='' name='n'"},
        {"no filter", u"Sheet NAME=''''", "'", "none", "Sheet NAME='''' filter='<p>,<q>'", "Sheet name='n'"},
        {"no attribute", u"Sheet ", "", "none", "Sheet filter='<p>,<q>'", "Sheet name='n'"},
    };
    for (const auto& [rule, text, name, filter, withFields, withName] : rows) {
        SCOPED_TRACE(rule);
        const auto element = VizInTooltipProperties::FromMarkupText(Markup(text));
        ASSERT_TRUE(element);
        EXPECT_EQ(Show(element->GetSheetName()), name);
        EXPECT_EQ(Show(element->GetFilterValue()), filter);
        EXPECT_EQ(element->HasFilter(), filter != "none"sv);
        EXPECT_EQ(Show(element->WithFilterFields({Text(u"p"), Text(u"q")}).ToSheetMarkupText()), withFields);
        EXPECT_EQ(Show(element->WithSheetName(Text(u"n")).ToSheetMarkupText()), withName);
    }
    EXPECT_EQ(Show(GetTargetSheetNamesFromMarkupElementSet({Text(u"b")})), "");
    const auto standard = VizInTooltipProperties::GetDefault(Text(u"S"), Text(u"<a>,b"));
    EXPECT_EQ(Show(standard.ToSheetMarkupText()),
              "Sheet name='S' maxwidth='300' maxheight='300' filter='<a>,b'");
    EXPECT_EQ(Show(standard.WithFilterFields({}).GetFilterValue()), "");
    EXPECT_EQ(Show(standard.WithFilterFields({TString(), Text(u",'<")}).GetFilterValue()), "<>,<,'<>");
    EXPECT_FALSE(VizInTooltipProperties::GetDefault(TString(), Text(u"<a>")).IsValid());
}

} // namespace
