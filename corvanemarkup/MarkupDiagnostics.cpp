#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/internal/EditedElement.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/FewOrMany.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/LenientReader.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/SheetSize.h>
#include <corvanemarkup/internal/TextView.h>

#include <algorithm>
#include <set>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;
using Impl::SheetMarkupAttribute;

namespace {

class DiagnosticFinder
{
public:
    explicit DiagnosticFinder(TextView text) : m_text(text) {}

    std::vector<Diagnostic> Find()
    {
        ElementWalk walk(m_text);
        for (WalkedElement element; walk.Next(element);)
            FindIn(element);
        return std::move(m_diagnostics);
    }

private:
    struct Field
    {
        TextView Unescaped;
        TextView Source;
    };

    void FindIn(const WalkedElement& element);
    void FindInUnreadable(TextView content);
    void FindInAttributes(const WalkedElement& element);
    void FindInFilter(TextView rawFilter);

    void Add(DiagnosticKind kind, TextView part)
    {
        // The severity and the element are set when all diagnostics of the element are known.
        m_diagnostics.push_back({kind, DiagnosticSeverity::Warning, RangeOf(part, m_text), {}});
    }
    bool AddInvalidWhiteSpace(TextView text);
    void AddWhiteSpaceAround(TextView name);

    TextView m_text;
    std::vector<Diagnostic> m_diagnostics;
    // Of the current element; members only to reuse their memory.
    ReadableElement m_read;
    FewOrMany<Field> m_fields;
    std::u16string m_scratch;
};

void DiagnosticFinder::FindIn(const WalkedElement& element)
{
    using Ending = WalkedElement::Ending;
    const std::size_t earlier = m_diagnostics.size();
    if (element.EndsWith == Ending::Interrupted)
        Add(DiagnosticKind::InterruptedElement, element.Whole);
    else if (element.EndsWith == Ending::Unterminated)
        Add(DiagnosticKind::UnterminatedElement, element.Whole);
    else if (element.EndsWith == Ending::UnterminatedInQuotes)
        Add(DiagnosticKind::UnterminatedQuotes, element.Whole);

    bool isValid = false;
    const bool isCalledSheet = IsCalledSheet(element.Content);
    const bool isCut = element.EndsWith == Ending::Bracket || element.EndsWith == Ending::Interrupted;
    if (isCalledSheet && isCut) {
        if (!ReadElement(element.Content, m_read)) {
            FindInUnreadable(element.Content);
        } else if (element.EndsWith == Ending::Bracket) {
            const std::size_t before = m_diagnostics.size();
            FindInAttributes(element);
            isValid = m_diagnostics.size() == before;
        }
    }
    if (isValid)
        for (const AttributeParts& attribute : m_read.Attributes)
            if (FindAllowedAttribute(attribute.Name) == SheetMarkupAttribute::Filter)
                FindInFilter(attribute.RawValue);

    if (m_diagnostics.size() == earlier)
        return;
    const bool losesSheet = isCalledSheet && !isValid && element.Content.find(u'=') != NotFound;
    const bool isError = losesSheet || element.EndsWith == Ending::UnterminatedInQuotes;
    const auto first = m_diagnostics.begin() + static_cast<std::ptrdiff_t>(earlier);
    std::for_each(first, m_diagnostics.end(), [&](Diagnostic& diagnostic) {
        diagnostic.Severity = isError ? DiagnosticSeverity::Error : DiagnosticSeverity::Warning;
        diagnostic.Element = RangeOf(element.Whole, m_text);
    });
    const auto isBefore = [](const Diagnostic& left, const Diagnostic& right) {
        return left.Range.start != right.Range.start ? left.Range.start < right.Range.start
                                                     : left.Kind < right.Kind;
    };
    // A heap sort takes far less code than std::sort, which matters for WebAssembly. Diagnostics are few.
    std::partial_sort(first, m_diagnostics.end(), m_diagnostics.end(), isBefore);
}

/// Reports why an element called Sheet can't be read.
void DiagnosticFinder::FindInUnreadable(TextView content)
{
    const std::size_t nameLength = Impl::SheetMarkupElementLiteral.size();
    const TextView name = content.substr(0, nameLength);
    const bool hasWrongLetterCase = name != Impl::SheetMarkupElementLiteral;
    if (hasWrongLetterCase)
        Add(DiagnosticKind::WrongLetterCase, name);

    bool hasAttributes = false;
    for (std::size_t position = nameLength; position < content.size();) {
        const std::size_t start = SkipWhiteSpace(content, position);
        const bool hasInvalidWhiteSpace = AddInvalidWhiteSpace(content.substr(position, start - position));
        if (start == content.size())
            break;
        hasAttributes = true;
        const LenientAttribute attribute = ReadLenientAttribute(content, start);
        position = start + attribute.Whole.size();
        if (hasInvalidWhiteSpace)
            continue; // only the first kind that applies is reported
        switch (attribute.FirstProblem) {
        case LenientAttribute::Problem::SpaceAroundEquals:
            Add(DiagnosticKind::SpaceAroundEquals, attribute.Whole);
            break;
        case LenientAttribute::Problem::UnquotedValue:
            Add(DiagnosticKind::UnquotedValue, attribute.Whole);
            break;
        case LenientAttribute::Problem::MissingValue:
            Add(DiagnosticKind::MissingValue, attribute.Whole);
            break;
        case LenientAttribute::Problem::UnterminatedQuotes:
            Add(DiagnosticKind::QuotesOpenAtBracket, attribute.Whole);
            break;
        case LenientAttribute::Problem::None:
            break;
        }
    }
    if (!hasAttributes && !hasWrongLetterCase)
        Add(DiagnosticKind::MissingAttributes, name);
}

/// Reports what `VizInTooltipProperties::IsValid` rejects.
void DiagnosticFinder::FindInAttributes(const WalkedElement& element)
{
    bool hasAllowed[std::size(Impl::SheetMarkupAttributeLiterals)] = {};
    std::set<AttributeName> unknownNames;
    for (const AttributeParts& attribute : m_read.Attributes) {
        const auto allowed = FindAllowedAttribute(attribute.Name);
        if (!allowed) {
            Add(DiagnosticKind::UnknownAttribute, attribute.Whole);
            AddWhiteSpaceAround(attribute.Name);
            if (!unknownNames.insert(AttributeName(ToString(attribute.Name))).second)
                Add(DiagnosticKind::DuplicateAttribute, attribute.Whole);
            continue;
        }
        if (std::exchange(hasAllowed[static_cast<std::size_t>(*allowed)], true)) {
            Add(DiagnosticKind::DuplicateAttribute, attribute.Whole);
            continue; // only the first one with a name has an effect
        }
        if (*allowed == SheetMarkupAttribute::Name && attribute.RawValue.empty())
            Add(DiagnosticKind::MissingSheetName, attribute.Whole);
        const bool isWidth = *allowed == SheetMarkupAttribute::MaxWidth;
        if (isWidth || *allowed == SheetMarkupAttribute::MaxHeight) {
            const int length = ReadSheetLength(attribute.RawValue);
            const TSize size(isWidth ? length : DefaultMaxSize.width,
                             isWidth ? DefaultMaxSize.height : length);
            if (!IsValidSheetSize(size))
                Add(DiagnosticKind::InvalidSheetSize, attribute.Whole);
        }
    }
    if (!hasAllowed[static_cast<std::size_t>(SheetMarkupAttribute::Name)])
        Add(DiagnosticKind::MissingSheetName, element.Whole);
}

/// Reports text and fields in a valid element's filter that have no effect.
void DiagnosticFinder::FindInFilter(TextView rawFilter)
{
    m_fields.Clear();
    ForEachFilterPart(
        rawFilter, m_scratch,
        [this](TextView raw, TextView unescaped) {
            m_fields.Add() = {unescaped, raw};
        },
        [this](TextView stray) { Add(DiagnosticKind::StrayFilterText, stray); });

    // Makes equal fields adjacent, in text order.
    std::sort(m_fields.begin(), m_fields.end(), [](const Field& left, const Field& right) {
        const int order = left.Unescaped.compare(right.Unescaped);
        return order != 0 ? order < 0 : left.Source.data() < right.Source.data();
    });
    for (std::size_t i = 1; i < m_fields.Count(); ++i)
        if (m_fields[i].Unescaped == m_fields[i - 1].Unescaped)
            Add(DiagnosticKind::DuplicateField, m_fields[i].Source);
}

/// Reports white space other than spaces in a run of white space, from the first such unit to the last.
/// Returns false if there is none.
bool DiagnosticFinder::AddInvalidWhiteSpace(TextView text)
{
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == NotFound)
        return false;
    Add(DiagnosticKind::InvalidWhiteSpace, text.substr(first, text.find_last_not_of(u' ') + 1 - first));
    return true;
}

/// Reports white space around a name that would be allowed without it.
void DiagnosticFinder::AddWhiteSpaceAround(TextView name)
{
    const TextView trimmed = Trimmed(name);
    if (FindAllowedAttribute(trimmed)) {
        const auto start = static_cast<std::size_t>(trimmed.data() - name.data());
        AddInvalidWhiteSpace(name.substr(0, start));
        AddInvalidWhiteSpace(name.substr(start + trimmed.size()));
    }
}

} // namespace

std::vector<Diagnostic> FindDiagnostics(const TString& tooltipText)
{
    return DiagnosticFinder(ViewOf(tooltipText)).Find();
}

} // namespace corvanemarkup::VizInTooltip
