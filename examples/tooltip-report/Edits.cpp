#include "Edits.h"

#include "Elements.h"
#include "TooltipText.h"

#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <boost/locale/encoding_utf.hpp>

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace tooltipreport {

namespace {

using corvanemarkup::CorvaneCharRange;
using corvanemarkup::MarkupText;
namespace VizInTooltip = corvanemarkup::VizInTooltip;

/// The element with both ends of the selection between its brackets. Next to a bracket counts.
Element ElementAround(const TString& tooltip, CorvaneCharRange selection)
{
    for (Element& element : FindElements(tooltip)) {
        if (element.Start < selection.start && selection.end < element.End)
            return std::move(element);
    }
    throw std::runtime_error("no element holds " + std::to_string(selection.start) +
                             (selection.start == selection.end ? "" : ":" + std::to_string(selection.end)) +
                             " between its brackets");
}

/// How many columns of a terminal a character takes, near enough to put a caret below it: two for the letters
/// of East Asia and for emoji, none for what joins the character before it.
std::size_t ColumnsOf(char32_t character)
{
    const auto isIn = [character](char32_t first, char32_t last) {
        return first <= character && character <= last;
    };
    const bool isJoined = isIn(0x300, 0x36F) || character == 0x200D || character == 0xFE0F;
    const bool isByteOrderMark = character == 0xFEFF;
    const bool isWide = isIn(0x2E80, 0xD7FF) || isIn(0xF900, 0xFAFF) || isIn(0xFF00, 0xFF60);
    const bool isEmoji = character >= 0x1F300;
    if (isJoined || isByteOrderMark)
        return 0;
    return isWide || isEmoji ? 2 : 1;
}

/// White space that is as wide as `text`.
std::string Indentation(const TString& text)
{
    const char16_t* const units = text.constData();
    std::string indentation;
    for (const char32_t character : boost::locale::conv::utf_to_utf<char32_t>(units, units + text.length())) {
        if (character == U'\t')
            indentation += '\t';
        else
            indentation.append(ColumnsOf(character), ' ');
    }
    return indentation;
}

/// The text with a line put in below the line of the cursor.
std::string WithCaretLine(const TString& text, int cursor)
{
    int lineStart = cursor;
    while (lineStart > 0 && text[lineStart - 1] != u'\n')
        --lineStart;
    const int nextLine = text.Find(u'\n', cursor) + 1;
    const std::string lines = nextLine > 0 ? ToUtf8(text.left(nextLine)) : ToUtf8(text) + '\n';
    const std::string caret =
        Indentation(text.mid(lineStart, cursor - lineStart)) + "^ cursor at " + std::to_string(cursor) + '\n';
    return lines + caret + (nextLine > 0 ? ToUtf8(text.mid(nextLine, -1)) : "");
}

} // namespace

std::string RenameSheet(const TString& tooltip, const TString& currentName, const TString& newName)
{
    std::string renamed;
    int copied = 0;
    for (const Element& element : FindElements(tooltip)) {
        MarkupText content;
        if (!VizInTooltip::ReplaceSheetNameInSheetMarkupText(MarkupText(element.Content), currentName,
                                                             newName, content))
            continue;
        renamed += ToUtf8(tooltip.mid(copied, element.Start - copied));
        renamed += ToUtf8(SurroundWithAngleBrackets(content));
        copied = element.End;
    }
    return renamed + ToUtf8(tooltip.mid(copied, -1));
}

std::string InsertField(const TString& tooltip, CorvaneCharRange selection, const TString& field,
                        const TString& exclusiveField)
{
    const Element element = ElementAround(tooltip, selection);
    const MarkupText content(element.Content);
    if (!corvanemarkup::VizInTooltipProperties::FromMarkupText(content))
        throw std::runtime_error("the element at " + RangeText(element) +
                                 " is not readable as a sheet element");

    const int contentStart = element.Start + 1;
    const auto edit = VizInTooltip::InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(
        content, {selection.start - contentStart, selection.end - contentStart}, field, exclusiveField);
    // Quotes protect the brackets of a filter only where the first attribute tells a sheet element.
    if (!VizInTooltip::Impl::IsSheetMarkupText(edit.NewMarkupText, 0))
        throw std::runtime_error("the element at " + RangeText(element) +
                                 " cannot hold a filter: its first attribute is not one of a sheet element");
    const TString edited = tooltip.left(contentStart) + edit.NewMarkupText + tooltip.mid(element.End - 1, -1);
    return WithCaretLine(edited, contentStart + edit.NewCursorPosition);
}

} // namespace tooltipreport
