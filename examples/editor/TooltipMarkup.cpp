#include "TooltipMarkup.h"

#include "QtText.h"

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/VizInTooltipImpl.h>

namespace editor {

ElementKind KindOf(const TString& tooltip, const ElementRanges& element)
{
    if (element.End != ElementEnd::Bracket)
        return ElementKind::Unfinished;
    if (const auto sheet = SheetIn(tooltip, element))
        return sheet->IsValid() ? ElementKind::Sheet : ElementKind::InvalidSheet;
    return Impl::IsSheetMarkupText(Piece(tooltip, element.Content), 0) ? ElementKind::InvalidSheet
                                                                       : ElementKind::Plain;
}

boost::optional<VizInTooltipProperties> SheetIn(const TString& tooltip, const ElementRanges& element)
{
    if (element.End != ElementEnd::Bracket)
        return {};
    return VizInTooltipProperties::FromMarkupText(MarkupText(Piece(tooltip, element.Content)));
}

QString SheetOf(const TString& tooltip, const ElementRanges& element)
{
    const auto sheet = SheetIn(tooltip, element);
    return sheet && sheet->IsValid() ? ToQString(sheet->GetSheetName()) : QString();
}

QString SentenceOn(MarkupFaultKind kind)
{
    using Kind = MarkupFaultKind;
    static const std::pair<Kind, const char*> sentences[] = {
        {Kind::MissingEnd, "No > ends this element, which hides all that follows it."},
        {Kind::OpenQuotes, "These quotes are never closed, so that the element hides all that follows it."},
        {Kind::Restart, "Another < comes before a > ends this. A < that is meant as text can be doubled."},
        {Kind::OtherLetterCase, "A sheet element is called Sheet, in these letters."},
        {Kind::NoAttributes, "A sheet element needs a name, as in <Sheet name=\"Sales\">."},
        {Kind::OtherWhiteSpace, "Only spaces separate attributes, no tabs or line ends."},
        {Kind::SpaceAroundEquals, "No space may stand beside the =."},
        {Kind::UnquotedValue, "A value stands in double quotes, with a space after it."},
        {Kind::MissingValue, "An attribute is a name, = and a value in double quotes."},
        {Kind::UnprotectedQuotes, "The element ends or starts anew within these quotes."},
        {Kind::DuplicateAttribute, "This attribute is given twice."},
        {Kind::MissingSheetName, "The name of the sheet is missing."},
        {Kind::InvalidSheetSize, "maxwidth must be from 1 to %1, and maxheight from 1 to %2."},
        {Kind::UnallowedAttribute, "Only name, maxwidth, maxheight and filter are allowed."},
        {Kind::StrayFilterText, "A filter counts fields in < and > alone, and not this."},
        {Kind::DuplicateField, "This field stands in its filter twice."}};
    for (const auto& [known, sentence] : sentences)
        if (kind == known)
            return QString::fromLatin1(sentence)
                .replace(QStringLiteral("%1"), QString::number(LargestMaxSize.width))
                .replace(QStringLiteral("%2"), QString::number(LargestMaxSize.height));
    return QStringLiteral("Something is wrong here.");
}

TString Piece(const TString& text, CorvaneCharRange range)
{
    return text.mid(static_cast<int>(range.start), static_cast<int>(range.end - range.start));
}

} // namespace editor
