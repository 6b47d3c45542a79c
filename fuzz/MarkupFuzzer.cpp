/// Checks the laws of the exported operations on a text made of arbitrary bytes.

#include "Agreements.h"
#include "RangeLaws.h"

#include <corvanemarkup/TokenizeAttributedMarkupText.h>

namespace {

void CheckMarkup(const MarkupText& markup, CorvaneCharRange range, const TString& field)
{
    const TString& text = markup;
    int position = 0;
    for (const Token& token : TokenizeAttributedMarkupText(markup).Tokens) {
        EXPECT_EQ(text.mid(position, token.Text.length()), token.Text);
        position += token.Text.length();
    }
    const TString elementName = text.left(text.Find(u' ', 0));
    const auto list = ParseAttributedMarkupText(markup, elementName);
    EXPECT_TRUE(position == text.length() || (position == 0 && !list));
    // If the element doesn't read back, any result or precondition violation will do.
    (void)ShowOrCondition([&] { return GetCharRangeOfSheetNameAttributeValue(markup); });
    (void)ShowOrCondition(
        [&] { return InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(markup, range, field, text); });
    const auto hasQuote = [](const auto& attribute) { return attribute.Name.GetName().Find(u'"', 0) >= 0; };
    if (!list || list->begin() == list->end() || std::any_of(list->begin(), list->end(), hasQuote))
        return;

    ExpectReadsBack(*list, elementName);
    if (elementName == Text(u"Sheet"))
        for (const std::u16string_view inserted : {u"a", u"ALL", u"q\"r"})
            ExpectLawsOfEditing(markup, range, Text(inserted));
    const TString sheetName = GetTargetSheetNameFromMarkupText(text);
    if (sheetName.empty())
        return;
    const CorvaneCharRange nameRange = GetCharRangeOfSheetNameAttributeValue(markup);
    TString name = PartOf(text, {nameRange.start - 1, nameRange.end + 1});
    EXPECT_TRUE(StripEnclosingQuotes(name));
    UnescapeQuotes(name);
    EXPECT_EQ(name, sheetName);
    MarkupText renamed;
    EXPECT_TRUE(ReplaceSheetNameInSheetMarkupText(markup, name, field, renamed));
    EXPECT_EQ(GetTargetSheetNameFromMarkupText(renamed), field);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    testing::FLAGS_gtest_throw_on_failure = true;
    if (size < 2)
        return 0;
    const CorvaneCharRange range{static_cast<std::int8_t>(data[0]), data[1]};
    // One code unit per byte. Bytes beyond ASCII become code units that are valid but unusual.
    constexpr char16_t odd[] = {0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFFFF, 0xFEFF, 0xA0, 0x3C3C};
    std::u16string units;
    for (std::size_t i = 2; i < size; ++i)
        units += data[i] < 0x80 ? char16_t(data[i]) : odd[data[i] % std::size(odd)];
    const TString text = Text(units);
    CheckMarkup(MarkupText(text), range, text.left(3));
    for (const TString& content : CollectMarkupElements(text))
        CheckMarkup(MarkupText(content), range, text.mid(data[0], data[1] % 16));
    const TString field = text.mid(data[0], data[1] % 4);
    ExpectRangesAndDiagnostics(text);
    // Each fix is verified by diagnosing its element anew.
    if (size % 8 == 0)
        ExpectFixes(text);
    ExpectInsertion(text, range, field);
    const auto sheets = GetTargetSheetNamesFromTooltipText(text);
    if (!sheets.empty() && field != *sheets.begin())
        ExpectRenaming(text, *sheets.begin(), field);
    // The reference implementation is slow.
    EXPECT_TRUE(size > 100 || ScanByLibrary(text) == ScanByReference(text));
    EXPECT_TRUE(size > 2000 || ReadByLibrary(text) == ReadByReference(text));
    EXPECT_TRUE(CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(text, text).empty());
    return 0;
}
