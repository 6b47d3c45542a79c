#include "Edits.h"

#include "TooltipText.h"

#include <corvanemarkup/TextEdits.h>

#include <boost/locale/encoding_utf.hpp>

#include <stdexcept>

namespace tooltipreport {

namespace {

using corvanemarkup::CorvaneCharRange;
namespace VizInTooltip = corvanemarkup::VizInTooltip;

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
    const auto edits = VizInTooltip::RenameSheetsAndFields(tooltip, {{currentName, newName}}, {});
    return ToUtf8(VizInTooltip::ApplyTextEdits(tooltip, edits));
}

std::string InsertField(const TString& tooltip, CorvaneCharRange selection, const TString& field,
                        const TString& exclusiveField)
{
    if (!VizInTooltip::IsFieldName(field))
        throw std::runtime_error("'" + ToUtf8(field) + "' cannot be a field");
    const auto insertion = VizInTooltip::InsertFilterFieldAt(tooltip, selection, field, exclusiveField);
    if (!insertion)
        throw std::runtime_error(
            "no sheet element that can hold a filter has " + std::to_string(selection.start) +
            (selection.start == selection.end ? "" : ":" + std::to_string(selection.end)) +
            " between its brackets");
    return WithCaretLine(VizInTooltip::ApplyTextEdits(tooltip, {insertion->Edit}),
                         insertion->NewCursorPosition);
}

} // namespace tooltipreport
