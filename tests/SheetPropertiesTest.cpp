#include "Testing.h"

#include <corvanemarkup/VizInTooltipProperties.h>

#include <gtest/gtest.h>

using namespace corvanemarkup;

namespace {

/// The faults of an element, a letter each, and its size.
std::string ShowVerdict(const boost::optional<VizInTooltipProperties>& element)
{
    if (!element)
        return "none";
    const TSize size = element->GetSheetSize();
    std::string faults;
    faults += element->HasDuplicateAttributes() ? "D" : "";
    faults += element->MissingSheetName() ? "N" : "";
    faults += element->HasInvalidSheetSize() ? "S" : "";
    faults += element->HasUnallowedAttributes() ? "U" : "";
    EXPECT_EQ(element->IsValid(), faults.empty());
    return faults + ' ' + Show(size.width) + 'x' + Show(size.height);
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
        {"no number", u"Sheet name='a' maxwidth='300px'", "S 0x300"},
        {"beyond int", u"Sheet name='a' maxwidth='4294967596'", "S 0x300"},
        {"an empty name", u"Sheet name=''", "N 300x300"},
        {"no attribute", u"Sheet ", "N 300x300"},
        {"the first of a name counts", u"Sheet name='' name='a' maxwidth='-1' MaxWidth='1'", "DNS -1x300"},
        {"another attribute", u"Sheet name='a' names=''", "U 300x300"},
        {"no sheet element", u"Link name='a'", "none"},
        {"brackets are no part of it", u"<Sheet name='a'>", "none"},
        {"no attribute at all", u"Sheet name='a' x", "none"},
    };
    for (const auto& [rule, text, verdict] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(ShowVerdict(VizInTooltipProperties::FromMarkupText(Markup(text))), verdict);
    }
}

TEST(SheetProperties, AccessAndEditing)
{
    const Rows<const char*, std::u16string_view, const char*, const char*, const char*, const char*> rows = {
        {"in place", u"Sheet  name='a' filter='<x>' maxwidth='10' ", "a", "<x>",
         "Sheet name='a' filter='<p>,<q>' maxwidth='10'", "Sheet name='n' filter='<x>' maxwidth='10'"},
        {"at the end", u"Sheet filter=''", "", "", "Sheet filter='<p>,<q>'", "Sheet filter='' name='n'"},
        {"no filter", u"Sheet NAME=''''", "'", "none", "Sheet NAME='''' filter='<p>,<q>'", "Sheet name='n'"},
        {"the first of a name", u"Sheet filter='<x>' filter='<y>'", "", "<x>",
         "Sheet filter='<p>,<q>' filter='<y>'", "Sheet filter='<x>' filter='<y>' name='n'"},
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
    const auto standard = VizInTooltipProperties::GetDefault(Text(u"S"), Text(u"<a>,b"));
    EXPECT_EQ(Show(standard.ToSheetMarkupText()),
              "Sheet name='S' maxwidth='300' maxheight='300' filter='<a>,b'");
    EXPECT_FALSE(VizInTooltipProperties::GetDefault(TString(), Text(u"<a>")).IsValid());
}

TEST(SheetProperties, FieldsWrittenAndReadBack)
{
    const auto standard = VizInTooltipProperties::GetDefault(Text(u"S"), Text(u"<old>"));
    EXPECT_EQ(Show(standard.WithFilterFields({}).GetFilterValue()), "");
    const Rows<const char*, std::u16string_view, const char*, const char*> rows = {
        {"an empty field, repeats, commas and quotes", u"|a,'b|a,'b", "<>,<a,'b>,<a,'b>", "[][a,'b][a,'b]"},
        {"even runs of brackets", u"a<<b>>>>", "<a<<b>>>>>", "[a<<b>>>>]"},
        {"a single < starts anew", u"a<b", "<a<b>", "[b]"},
        {"a single > ends", u"a>b|c", "<a>b>,<c>", "[a][c]"},
        {"a doubled > at the end", u"a>", "<a>>", ""},
        {"a doubled > swallows up to the next <", u"a>|b", "<a>>,<b>", "[b]"},
        {"a doubled < at the start hides a field", u"<a|b", "<<a>,<b>", "[b]"},
        {"but not with nothing behind", u"b|<a", "<b>,<<a>", "[b][a]"},
        {"one that reads as a sheet element", u"Sheet name='x>y'", "<Sheet name='x>y'>",
         "[Sheet name='x>y']"},
        {"one with an open quote", u"Sheet name='x|y", "<Sheet name='x>,<y>", "[y]"},
    };
    for (const auto& [rule, fields, value, readBack] : rows) {
        SCOPED_TRACE(rule);
        const auto element = standard.WithFilterFields(Text(fields).split(u'|', TString::SplitBehavior(0)));
        EXPECT_EQ(Show(element.GetFilterValue()), value);
        EXPECT_EQ(Show(element.GetFilterFields()), readBack);
        EXPECT_EQ(Show(element.WithFilterFields(element.GetFilterFields()).GetFilterFields()), readBack)
            << "what was read comes back unchanged";
    }
}

} // namespace
