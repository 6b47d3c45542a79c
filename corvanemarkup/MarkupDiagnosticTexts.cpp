#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/EditDistance.h>
#include <corvanemarkup/internal/Quotation.h>
#include <corvanemarkup/internal/TextView.h>

#include <string>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;

namespace {

/// The texts of a kind. `Message` contains placeholders:
///
///     %t  the text in the diagnostic's range, quoted
///     %w  the white space that the text begins with, described
///     %l  the largest value of the attribute in that range
///     %a  the attributes of a sheet element
///     %n  the nearest known name, or advice if none is near
struct Texts
{
    const char* Identifier;
    const char* Description;
    const char* Message;
};

/// Returns the texts of a kind; all null if `kind` isn't an enumerator.
constexpr Texts TextsOf(DiagnosticKind kind)
{
    switch (kind) {
    case DiagnosticKind::UnterminatedElement:
        return {"unterminated-element", "An element has no closing '>'.",
                "%t has no closing '>'; add it, or write '<<' for a literal '<'"};
    case DiagnosticKind::UnterminatedQuotes:
        return {"unterminated-quotes",
                "The quotes of a value in a sheet element are never closed, and no element after them is "
                "recognized.",
                "the quotes in %t are never closed, and no element after them is recognized; add the closing "
                "quote"};
    case DiagnosticKind::InterruptedElement:
        return {"interrupted-element", "An element is not closed before the next '<'.",
                "'<' is not closed before the next '<'; add '>', or write '<<' for a literal '<'"};
    case DiagnosticKind::WrongLetterCase:
        return {"wrong-letter-case", "The name of a sheet element differs from 'Sheet' in letter case.",
                "%t has the wrong letter case; write 'Sheet'"};
    case DiagnosticKind::MissingAttributes:
        return {"missing-attributes", "A sheet element has no attributes.",
                "%t has no attributes; add 'name=\"...\"'"};
    case DiagnosticKind::InvalidWhiteSpace:
        return {"invalid-white-space", "White space other than spaces separates attributes.",
                "%w does not separate attributes; write a space, or remove it"};
    case DiagnosticKind::SpaceAroundEquals:
        return {"space-around-equals", "An attribute has white space before or after its '='.",
                "%t has white space around its '='; remove it"};
    case DiagnosticKind::UnquotedValue:
        return {"unquoted-value", "The value of an attribute is not enclosed in double quotes.",
                "the value in %t is not enclosed in double quotes; write 'attribute=\"value\"'"};
    case DiagnosticKind::MissingValue:
        return {"missing-value", "An attribute has no value.",
                "%t has no value; write 'attribute=\"value\"', or remove it"};
    case DiagnosticKind::QuotesOpenAtBracket:
        return {"quotes-open-at-bracket", "The quotes of a value are not closed where it ends.",
                "the quotes in %t are not closed where the value ends; close them, and double a quote in the "
                "value"};
    case DiagnosticKind::DuplicateAttribute:
        return {"duplicate-attribute", "A sheet element has two attributes with the same name.",
                "%t repeats an attribute of this element; remove one of them"};
    case DiagnosticKind::MissingSheetName:
        return {"missing-sheet-name", "A sheet element does not name its sheet.",
                "%t does not name a sheet; write the sheet's name, as in 'name=\"Sales\"'"};
    case DiagnosticKind::InvalidSheetSize:
        return {"invalid-sheet-size", "A maxwidth or maxheight is not a whole number in the allowed range.",
                "%t is not a valid size; write a whole number from 1 to %l"};
    case DiagnosticKind::UnknownAttribute:
        return {"unknown-attribute", "A sheet element has an attribute that does not exist.",
                "%t is not an attribute of a sheet element; write one of %a, or remove it"};
    case DiagnosticKind::StrayFilterText:
        return {
            "stray-filter-text", "A filter contains text outside fields, which has no effect.",
            "%t is outside all fields and has no effect; enclose a field in '<' and '>', or remove the text"};
    case DiagnosticKind::DuplicateField:
        return {"duplicate-field", "A filter contains a field twice.",
                "%t is in this filter already; remove it"};
    case DiagnosticKind::MisspelledElement:
        return {"misspelled-element", "The name of a sheet element is misspelled.",
                "%t is not the name of a sheet element; write 'Sheet' and a space"};
    case DiagnosticKind::StrayAngleBracket:
        return {"stray-angle-bracket",
                "A '<' before white space or a digit starts an element that is not closed.",
                "'<' starts an element that is not closed; write '<<' for a literal '<'"};
    case DiagnosticKind::EscapedElement:
        return {"escaped-element", "A doubled '<' makes a sheet element text.",
                "%t is text because its '<' is doubled; write a single '<' for a sheet element"};
    case DiagnosticKind::MissingBracket:
        return {"missing-bracket", "A sheet element has no '<'.",
                "%t is text because it has no '<'; write '<' before it for a sheet element"};
    case DiagnosticKind::TextAfterElement:
        return {"text-after-element", "Attributes of a sheet element are in the text after it.",
                "%t is text because the element ends before it; remove the '>' before it"};
    case DiagnosticKind::UnknownSheet:
        return {"unknown-sheet", "A sheet is not one of the known sheets.", "%t is not a known sheet; %n"};
    case DiagnosticKind::UnknownField:
        return {"unknown-field", "A field is not one of the known fields.", "%t is not a known field; %n"};
    }
    return {};
}

/// Returns the message of a kind for that text, with placeholders; null if `kind` isn't an enumerator.
const char* MessageFor(DiagnosticKind kind, TextView text)
{
    if (kind == DiagnosticKind::MisspelledElement && text == Impl::SheetMarkupElementLiteral)
        return "%t needs a space after it";
    if ((kind == DiagnosticKind::UnterminatedElement || kind == DiagnosticKind::InterruptedElement) &&
        text == u">")
        return "'>>' stands for a literal '>' and does not close the element; remove one of them";
    return TextsOf(kind).Message;
}

constexpr int CountKinds()
{
    int count = 0;
    while (TextsOf(static_cast<DiagnosticKind>(count)).Identifier != nullptr)
        ++count;
    return count;
}

std::u16string Widened(const char* ascii)
{
    std::u16string text;
    for (; *ascii != '\0'; ++ascii)
        text += static_cast<char16_t>(*ascii);
    return text;
}

std::u16string Number(int value)
{
    return std::u16string(ViewOf(TString::number(value, 10, 0, u' ')));
}

const char16_t* DescribeWhiteSpace(TextView text)
{
    const char16_t unit = text.empty() ? u'\0' : text.front();
    return unit == u'\t' ? u"a tab" : unit == u'\n' || unit == u'\r' ? u"a line break" : u"this white space";
}

std::u16string LargestValueOf(TextView attribute)
{
    const TextView width = LiteralOf(Impl::SheetMarkupAttribute::MaxWidth);
    const bool isWidth = AreSameAttributeName(attribute.substr(0, width.size()), width);
    return Number(isWidth ? LargestMaxSize.width : LargestMaxSize.height);
}

std::u16string AttributeList()
{
    std::u16string list;
    for (const TextView name : Impl::SheetMarkupAttributeLiterals)
        list.append(list.empty() ? u"" : u", ").append(name);
    return list;
}

std::u16string NearestOf(TextView rawName, const boost::optional<std::set<TString>>& known)
{
    const TString name = Unescape(rawName);
    const TString* const nearest = known ? FindNearest(ViewOf(name), *known) : nullptr;
    return nearest != nullptr ? u"did you mean " + Quoted(ViewOf(*nearest)) + u"?" : u"correct the name";
}

std::u16string Resolve(char placeholder, TextView text, DiagnosticKind kind, const KnownNames& knownNames)
{
    switch (placeholder) {
    case 'n':
        return NearestOf(text, kind == DiagnosticKind::UnknownSheet ? knownNames.Sheets : knownNames.Fields);
    case 't':
        return Quoted(text);
    case 'w':
        return DescribeWhiteSpace(text);
    case 'l':
        return LargestValueOf(text);
    default:
        return AttributeList();
    }
}

} // namespace

int GetDiagnosticKindCount() noexcept
{
    constexpr int count = CountKinds();
    return count;
}

const char* GetDiagnosticIdentifier(DiagnosticKind kind) noexcept
{
    return TextsOf(kind).Identifier;
}

const char* GetDiagnosticDescription(DiagnosticKind kind) noexcept
{
    return TextsOf(kind).Description;
}

boost::optional<DiagnosticKind> FindDiagnosticKind(const TString& identifier)
{
    for (int value = 0; value < GetDiagnosticKindCount(); ++value) {
        const auto kind = static_cast<DiagnosticKind>(value);
        if (ViewOf(identifier) == Widened(GetDiagnosticIdentifier(kind)))
            return kind;
    }
    return boost::none;
}

TString GetDiagnosticMessage(const TString& tooltipText, const Diagnostic& diagnostic,
                             const KnownNames& knownNames)
{
    if (!IsIn(ViewOf(tooltipText), diagnostic.Range))
        return TString();
    const TextView text = PartOf(ViewOf(tooltipText), diagnostic.Range);
    const char* next = MessageFor(diagnostic.Kind, text);
    if (next == nullptr)
        return TString();
    std::u16string message;
    for (; *next != '\0'; ++next) {
        if (*next == '%')
            message += Resolve(*++next, text, diagnostic.Kind, knownNames);
        else
            message += static_cast<char16_t>(*next);
    }
    return ToString(message);
}

} // namespace corvanemarkup::VizInTooltip
