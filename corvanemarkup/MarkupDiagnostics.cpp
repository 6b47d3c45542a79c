#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/internal/BrokenElement.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/EditDistance.h>
#include <corvanemarkup/internal/EditedElement.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/FewOrMany.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/LenientReader.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/TextView.h>

#include <algorithm>
#include <set>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;
using Impl::SheetMarkupAttribute;

namespace {

constexpr TextView NameAndSpace = u"Sheet ";
static_assert(NameAndSpace.substr(0, NameAndSpace.size() - 1) == Impl::SheetMarkupElementLiteral);

class DiagnosticFinder
{
public:
    explicit DiagnosticFinder(TextView text) : m_text(text) {}

    std::vector<Diagnostic> Find()
    {
        // A guess may end elsewhere than the element: the walk begins anew there.
        for (std::size_t position = 0; position != NotFound;)
            position = FindFrom(position);
        return std::move(m_diagnostics);
    }

private:
    struct Field
    {
        TextView Unescaped;
        TextView Source;
    };

    // Each function that returns a position returns where the walk begins anew; `NotFound` if it goes on.
    std::size_t FindFrom(std::size_t position);
    std::size_t FindInText(std::size_t start, std::size_t end);
    std::size_t FindMisspelledAfter(std::size_t bracket);
    std::size_t FindIn(const WalkedElement& element);
    std::size_t FindInIntended(std::size_t start, WalkedElement::Ending ending, int mostCost);
    [[nodiscard]] bool IsSameCause(TextView element) const;
    void FindInBroken(const WalkedElement& element, bool isCalledSheet);
    void FindInUnreadable(TextView content);
    void FindInAttributes(TextView element);
    void FindInFilter(TextView rawFilter);
    std::size_t FindAfter(TextView element);

    void Add(DiagnosticKind kind, TextView part)
    {
        // The severity and the element are set when all diagnostics of the element are known.
        m_diagnostics.push_back({kind, DiagnosticSeverity::Warning, RangeOf(part, m_text), {}});
    }
    void Finish(std::size_t earlier, bool isError, TextView element);
    bool AddInvalidWhiteSpace(TextView text);
    [[nodiscard]] std::size_t FindEvidentStart(std::size_t from);

    TextView m_text;
    std::vector<Diagnostic> m_diagnostics;
    std::size_t m_evidentStart = 0; ///< the last one found
    /// For all guesses together, which makes them linear in the text.
    std::size_t m_steps = 200'000 + 8 * m_text.size();
    // Of the current element; members only to reuse their memory.
    ReadableElement m_read;
    FewOrMany<Field> m_fields;
    std::u16string m_scratch;
};

std::size_t DiagnosticFinder::FindFrom(std::size_t position)
{
    ElementWalk walk(m_text, position);
    for (WalkedElement element; walk.Next(element);) {
        const auto begin = static_cast<std::size_t>(element.Whole.data() - m_text.data());
        std::size_t next = FindInText(position, begin);
        if (next == NotFound)
            next = FindIn(element);
        if (next != NotFound)
            return next;
        position = begin + element.Whole.size();
    }
    return FindInText(position, m_text.size());
}

/// Reports what would be a valid sheet element, in text outside elements that it may extend beyond.
std::size_t DiagnosticFinder::FindInText(std::size_t start, std::size_t end)
{
    const TextView text = m_text.substr(0, end);
    const auto find = FindFirstOf<NameAndSpace.front(), u'<'>;
    for (std::size_t name = find(text, start); name != NotFound; name = find(text, name + 1)) {
        if (text[name] == u'<') { // escaped
            const std::size_t next = IsDoubled(m_text, ++name) ? NotFound : FindMisspelledAfter(name);
            if (next != NotFound)
                return next;
            continue;
        }
        if (!MatchesAt(m_text, name, NameAndSpace) || !StartsSheetElement(m_text, name))
            continue;
        const TextView rest = m_text.substr(0, FindEvidentStart(name + 1));
        const std::size_t stop = FindStop(rest, name, true).Position;
        m_steps -= std::min(m_steps, (stop == NotFound ? rest.size() : stop) - name);
        SheetElement sheet;
        if (m_steps == 0 || stop == NotFound || m_text[stop] != u'>' ||
            !ReadSheetElement(m_text.substr(name, stop - name), sheet))
            continue;
        const bool isEscaped = name > start + 1 && m_text[name - 1] == u'<';
        const std::size_t first = isEscaped ? name - 2 : name;
        const TextView whole = m_text.substr(first, stop + 1 - first);
        const std::size_t earlier = m_diagnostics.size();
        Add(isEscaped ? DiagnosticKind::EscapedElement : DiagnosticKind::MissingBracket, whole);
        Finish(earlier, false, whole);
        return stop + 1;
    }
    return NotFound;
}

/// Reports a sheet element whose name lost its first letter to a second `<`, at `bracket`.
std::size_t DiagnosticFinder::FindMisspelledAfter(std::size_t bracket)
{
    const TextView rest = m_text.substr(bracket + 1);
    return HasElementNameAt(rest, 0) || !MayBeMisspelled(rest)
               ? NotFound
               : FindInIntended(bracket + 1, WalkedElement::Ending::Bracket, CostOfOneMistake);
}

std::size_t DiagnosticFinder::FindIn(const WalkedElement& element)
{
    const bool isCalledSheet = IsCalledSheet(element.Content);
    const std::size_t earlier = m_diagnostics.size();
    if (isCalledSheet && element.EndsWith == WalkedElement::Ending::Bracket &&
        ReadElement(element.Content, m_read) && m_read.Attributes.Count() > 0) {
        FindInAttributes(element.Whole);
        const bool isValid = m_diagnostics.size() == earlier;
        if (isValid) {
            for (const AttributeParts& attribute : m_read.Attributes)
                if (FindAllowedAttribute(attribute.Name) == SheetMarkupAttribute::Filter)
                    FindInFilter(attribute.RawValue);
        }
        Finish(earlier, !isValid && element.Content.find(u'=') != NotFound, element.Whole);
        if (isValid)
            return FindAfter(element.Whole);
        return NotFound;
    }
    const auto contentStart = static_cast<std::size_t>(element.Content.data() - m_text.data());
    if (isCalledSheet || MayBeMisspelled(m_text.substr(contentStart))) {
        // Closed elements without a `=` are plain ones that nothing but a `>` in them can break.
        const bool isPlain =
            element.EndsWith == WalkedElement::Ending::Bracket && element.Content.find(u'=') == NotFound;
        const std::size_t next = FindInIntended(contentStart, element.EndsWith,
                                                isPlain         ? CostOfOneMistake
                                                : isCalledSheet ? MostCost
                                                                : MostCostIfMisspelled);
        if (next != NotFound)
            return next;
    }
    FindInBroken(element, isCalledSheet);
    const bool isUnterminated = element.EndsWith == WalkedElement::Ending::Unterminated ||
                                element.EndsWith == WalkedElement::Ending::UnterminatedInQuotes;
    const std::size_t end = isUnterminated ? FindEvidentStart(contentStart) : m_text.size();
    const bool isError = (isCalledSheet && element.Content.find(u'=') != NotFound) ||
                         element.EndsWith == WalkedElement::Ending::UnterminatedInQuotes;
    Finish(earlier, isError,
           end < m_text.size() ? m_text.substr(contentStart - 1, end + 1 - contentStart) : element.Whole);
    return end < m_text.size() ? end : NotFound;
}

/// Reports the mistakes in an element that was probably meant as a sheet element. Returns `NotFound` if it
/// wasn't.
std::size_t DiagnosticFinder::FindInIntended(std::size_t start, WalkedElement::Ending ending, int mostCost)
{
    const std::size_t limit = std::min(FindEvidentStart(start), start + MostUnits);
    const std::size_t mostSteps = std::min(m_steps, 20'000 + 32 * (limit - start));
    std::size_t steps = mostSteps;
    BrokenElement broken;
    const bool isFound = ReadBrokenElement(m_text, start, limit, ending, mostCost, steps, broken);
    m_steps -= mostSteps - steps;
    if (!isFound)
        return NotFound;
    const std::size_t earlier = m_diagnostics.size();
    for (const Cause& cause : broken.Causes)
        Add(cause.Kind, cause.Range);
    Finish(earlier, true, broken.Whole);
    return static_cast<std::size_t>(broken.Whole.data() + broken.Whole.size() - m_text.data());
}

/// Returns whether the element directly follows one that isn't closed either, and either at most one unit is
/// between both `<` or only white space is in this element: a stray or missing unit broke both.
bool DiagnosticFinder::IsSameCause(TextView element) const
{
    if (m_diagnostics.empty() || m_diagnostics.back().Element.end != RangeOf(element, m_text).start)
        return false;
    const TextView before = PartOf(m_text, m_diagnostics.back().Element);
    return before.back() != u'>' && (before.size() <= 2 || Trimmed(element).size() == 1);
}

/// Reports an element that isn't closed or can't be read.
void DiagnosticFinder::FindInBroken(const WalkedElement& element, bool isCalledSheet)
{
    using Ending = WalkedElement::Ending;
    const bool isClosed = element.EndsWith == Ending::Bracket;
    const char16_t first = element.Content.empty() ? u'\0' : element.Content.front();
    if (element.EndsWith == Ending::UnterminatedInQuotes)
        Add(DiagnosticKind::UnterminatedQuotes, element.Whole);
    else if (!isClosed && IsSameCause(element.Whole))
        m_diagnostics.back().Element.end = RangeOf(element.Whole, m_text).end;
    else if (!isClosed)
        Add(IsWhiteSpace(first) || (first >= u'0' && first <= u'9') ? DiagnosticKind::StrayAngleBracket
            : element.EndsWith == Ending::Interrupted               ? DiagnosticKind::InterruptedElement
                                                                    : DiagnosticKind::UnterminatedElement,
            element.Whole);
    else if (isCalledSheet)
        FindInUnreadable(element.Content);
}

void DiagnosticFinder::Finish(std::size_t earlier, bool isError, TextView element)
{
    const auto first = m_diagnostics.begin() + static_cast<std::ptrdiff_t>(earlier);
    std::for_each(first, m_diagnostics.end(), [&](Diagnostic& diagnostic) {
        diagnostic.Severity = isError ? DiagnosticSeverity::Error : DiagnosticSeverity::Warning;
        diagnostic.Element = RangeOf(element, m_text);
        diagnostic.Range.end = std::min(diagnostic.Range.end, diagnostic.Element.end);
    });
    if (m_diagnostics.size() - earlier < 2)
        return;
    const auto isBefore = [](const Diagnostic& left, const Diagnostic& right) {
        return left.Range.start != right.Range.start ? left.Range.start < right.Range.start
                                                     : left.Kind < right.Kind;
    };
    // A heap sort takes far less code than std::sort, which matters for WebAssembly. Diagnostics are few.
    std::partial_sort(first, m_diagnostics.end(), m_diagnostics.end(), isBefore);
}

/// Returns the first evident start of a sheet element at or after `from`, which must not decrease; the length
/// of the text if there is none.
std::size_t DiagnosticFinder::FindEvidentStart(std::size_t from)
{
    while (m_evidentStart < from && m_evidentStart != m_text.size()) {
        const std::size_t found = FindSheetStart(m_text, from);
        m_evidentStart = std::min(found, m_text.size());
        if (found == NotFound || StartsSheetElement(m_text, found + 1))
            break;
        from = found + 1;
        m_evidentStart = found;
    }
    return m_evidentStart;
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
        if (start == content.size() && !hasAttributes)
            break;
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
void DiagnosticFinder::FindInAttributes(TextView element)
{
    bool hasAllowed[std::size(Impl::SheetMarkupAttributeLiterals)] = {};
    bool isNameMistyped = false;
    std::set<AttributeName> unknownNames;
    for (const AttributeParts& attribute : m_read.Attributes) {
        auto allowed = FindAllowedAttribute(attribute.Name);
        if (!allowed) {
            // One with white space around it, or nearly the missing name, is what was meant.
            const TextView name = Trimmed(attribute.Name);
            const auto start = static_cast<std::size_t>(name.data() - attribute.Name.data());
            allowed = FindAllowedAttribute(name);
            bool isSpace = allowed && AddInvalidWhiteSpace(attribute.Name.substr(0, start));
            if (allowed && AddInvalidWhiteSpace(attribute.Name.substr(start + name.size())))
                isSpace = true;
            if (!isSpace)
                Add(DiagnosticKind::UnknownAttribute, attribute.Whole);
            if (!unknownNames.insert(AttributeName(ToString(attribute.Name))).second)
                Add(DiagnosticKind::DuplicateAttribute, attribute.Whole);
            isNameMistyped =
                isNameMistyped || EditDistance(name, LiteralOf(SheetMarkupAttribute::Name), 1) <= 1;
            continue;
        }
        if (std::exchange(hasAllowed[static_cast<std::size_t>(*allowed)], true)) {
            Add(DiagnosticKind::DuplicateAttribute, attribute.Whole);
            continue; // only the first one with a name has an effect
        }
        if (*allowed == SheetMarkupAttribute::Name && attribute.RawValue.empty())
            Add(DiagnosticKind::MissingSheetName, attribute.Whole);
        if (!HasValidSize(*allowed, attribute.RawValue))
            Add(DiagnosticKind::InvalidSheetSize, attribute.Whole);
    }
    if (!hasAllowed[static_cast<std::size_t>(SheetMarkupAttribute::Name)] && !isNameMistyped)
        Add(DiagnosticKind::MissingSheetName, element);
}

/// Reports text and fields in a valid element's filter that have no effect.
void DiagnosticFinder::FindInFilter(TextView rawFilter)
{
    m_fields.Clear();
    bool isAfterText = false;
    bool hasBracket = false; // in the text reported last
    ForEachFilterPart(
        rawFilter, m_scratch,
        [&](TextView raw, TextView unescaped) {
            m_fields.Add() = {unescaped, raw};
            isAfterText = false;
        },
        [&](TextView stray) {
            const bool containsBracket = stray.find_first_of(u"<>") != NotFound;
            // A field with commas that lost a bracket is one cause.
            if (isAfterText && (hasBracket || containsBracket)) {
                m_diagnostics.back().Range.end = RangeOf(stray, m_text).end;
                hasBracket = true;
            } else {
                Add(DiagnosticKind::StrayFilterText, stray);
                hasBracket = containsBracket;
            }
            isAfterText = true;
        });

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

/// Reports attributes of a sheet element in the text right after one.
std::size_t DiagnosticFinder::FindAfter(TextView element)
{
    auto end = static_cast<std::size_t>(element.data() + element.size() - m_text.data());
    const std::size_t start = SkipWhiteSpace(m_text, end);
    bool hasFound = false;
    for (;;) {
        const std::size_t attribute = SkipWhiteSpace(m_text, end);
        const TextView rest = m_text.substr(attribute, 16); // long enough for any allowed name and a `=`
        const std::size_t equals = rest.find(u'=');
        if (equals == NotFound || !FindAllowedAttribute(Trimmed(rest.substr(0, equals))))
            break;
        hasFound = true;
        end = attribute + equals + 1;
        if (end < m_text.size() && m_text[end] == u'"') {
            const TextView value = m_text.substr(0, FindEvidentStart(end + 1));
            const std::size_t closingQuote = FindNotEscaped<u'"'>(value, end + 1);
            end = closingQuote != NotFound ? closingQuote + 1 : end;
        }
    }
    if (!hasFound)
        return NotFound;
    const std::size_t earlier = m_diagnostics.size();
    const TextView whole = m_text.substr(start, end - start);
    Add(DiagnosticKind::TextAfterElement, whole);
    Finish(earlier, false,
           TextView(element.data(), static_cast<std::size_t>(whole.data() - element.data()) + whole.size()));
    return end;
}

/// Adds the names that aren't known to the diagnostics.
void AddUnknownNames(const TString& tooltipText, const KnownNames& knownNames,
                     std::vector<Diagnostic>& diagnostics)
{
    const std::size_t others = diagnostics.size();
    for (const SheetOrFieldName& name : FindSheetAndFieldNames(tooltipText)) {
        const bool isSheet = name.Kind == NameKind::Sheet;
        const auto& known = isSheet ? knownNames.Sheets : knownNames.Fields;
        if (known && name.Status == NameStatus::Reachable && known->count(name.Name) == 0)
            diagnostics.push_back({isSheet ? DiagnosticKind::UnknownSheet : DiagnosticKind::UnknownField,
                                   DiagnosticSeverity::Error, name.Range, name.Element});
    }
    const auto middle = diagnostics.begin() + static_cast<std::ptrdiff_t>(others);
    std::vector<Diagnostic> merged(diagnostics.size());
    std::merge(
        diagnostics.begin(), middle, middle, diagnostics.end(), merged.begin(),
        [](const Diagnostic& left, const Diagnostic& right) { return left.Range.start < right.Range.start; });
    diagnostics = std::move(merged);
}

} // namespace

std::vector<Diagnostic> FindDiagnostics(const TString& tooltipText, const KnownNames& knownNames)
{
    std::vector<Diagnostic> diagnostics = DiagnosticFinder(ViewOf(tooltipText)).Find();
    if (knownNames.Sheets || knownNames.Fields)
        AddUnknownNames(tooltipText, knownNames, diagnostics);
    return diagnostics;
}

} // namespace corvanemarkup::VizInTooltip
