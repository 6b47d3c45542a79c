#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/FewOrMany.h>
#include <corvanemarkup/internal/LenientReader.h>
#include <corvanemarkup/internal/RangeOf.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/SheetSize.h>
#include <corvanemarkup/internal/WhiteSpace.h>

#include <algorithm>
#include <set>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;
using Impl::SheetMarkupAttribute;

namespace {

/// The same in the ASCII letters of an element's name. Attribute names have a rule of their own, the
/// platform's.
bool IsElementName(TextView text)
{
    const TextView name = Impl::SheetMarkupElementLiteral;
    return std::equal(text.begin(), text.end(), name.begin(), name.end(), [](char16_t left, char16_t right) {
        const auto fold = [](char16_t unit) {
            return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
        };
        return fold(left) == fold(right);
    });
}

bool IsCalledSheet(TextView content)
{
    const std::size_t length = Impl::SheetMarkupElementLiteral.size();
    return IsElementName(content.substr(0, length)) &&
           (content.size() == length || IsWhiteSpace(content[length]));
}

class FaultFinder
{
public:
    explicit FaultFinder(TextView text) : m_text(text) {}

    std::vector<MarkupFault> Find()
    {
        ElementWalk walk(m_text);
        for (WalkedElement element; walk.Next(element);)
            FindIn(element);
        return std::move(m_faults);
    }

private:
    struct Field
    {
        TextView Meant;
        TextView InText;
    };

    void FindIn(const WalkedElement& element);
    void FindReasons(TextView content);
    void FindInAttributes(const WalkedElement& element);
    void FindInFilter(TextView escapedFilter);

    void Add(MarkupFaultKind kind, TextView part)
    {
        m_faults.push_back({kind, RangeOf(part, m_text), false});
    }
    bool AddOtherWhiteSpace(TextView text);
    void AddUnallowed(TextView name);
    void AddStrayText(TextView betweenFields);

    TextView m_text;
    std::vector<MarkupFault> m_faults;
    // Of the element at hand; kept for the memory that they have.
    FewOrMany<AttributeParts> m_attributes;
    FewOrMany<Field> m_fields;
    std::u16string m_scratch;
};

void FaultFinder::FindIn(const WalkedElement& element)
{
    using Ending = WalkedElement::Ending;
    const std::size_t earlier = m_faults.size();
    if (element.EndsWith == Ending::Restart)
        Add(MarkupFaultKind::Restart, element.Whole);
    else if (element.EndsWith == Ending::EndOfText)
        Add(MarkupFaultKind::MissingEnd, element.Whole);
    else if (element.EndsWith == Ending::EndOfTextInQuotes)
        Add(MarkupFaultKind::OpenQuotes, element.Whole);

    bool isValid = false;
    const bool isCalledSheet = IsCalledSheet(element.Content);
    const bool isCut = element.EndsWith == Ending::Bracket || element.EndsWith == Ending::Restart;
    if (isCalledSheet && isCut) {
        bool isReadable = HasElementNameAt(element.Content, 0);
        m_attributes.Clear();
        ContentReader reader(element.Content);
        for (AttributeParts parts; isReadable && reader.Next(parts);) {
            m_attributes.Add() = parts;
            isReadable = parts.IsNameAndValue;
        }
        if (!isReadable) {
            FindReasons(element.Content);
        } else if (element.EndsWith == Ending::Bracket) {
            const std::size_t before = m_faults.size();
            FindInAttributes(element);
            isValid = m_faults.size() == before;
        }
    }
    if (isValid)
        for (const AttributeParts& attribute : m_attributes)
            if (FindAllowedAttribute(attribute.Name) == SheetMarkupAttribute::Filter)
                FindInFilter(attribute.EscapedValue);

    if (m_faults.size() == earlier)
        return;
    const bool losesSheet = isCalledSheet && !isValid && element.Content.find(u'=') != NotFound;
    const bool isError = losesSheet || element.EndsWith == Ending::EndOfTextInQuotes;
    const auto first = m_faults.begin() + static_cast<std::ptrdiff_t>(earlier);
    std::for_each(first, m_faults.end(), [isError](MarkupFault& fault) { fault.IsError = isError; });
    const auto isBefore = [](const MarkupFault& left, const MarkupFault& right) {
        return left.Range.start != right.Range.start ? left.Range.start < right.Range.start
                                                     : left.Kind < right.Kind;
    };
    // By a heap, which is far less code than std::sort: faults are few, and programs for browsers are small.
    std::partial_sort(first, m_faults.end(), m_faults.end(), isBefore);
}

/// Why an element that is called Sheet can't be read.
void FaultFinder::FindReasons(TextView content)
{
    const std::size_t nameLength = Impl::SheetMarkupElementLiteral.size();
    const TextView name = content.substr(0, nameLength);
    const bool hasOtherLetterCase = name != Impl::SheetMarkupElementLiteral;
    if (hasOtherLetterCase)
        Add(MarkupFaultKind::OtherLetterCase, name);

    bool hasAttributes = false;
    for (std::size_t position = nameLength; position < content.size();) {
        const std::size_t start = SkipWhiteSpace(content, position);
        const bool hasOtherWhiteSpace = AddOtherWhiteSpace(content.substr(position, start - position));
        if (start == content.size())
            break;
        hasAttributes = true;
        const MeantAttribute attribute = ReadMeantAttribute(content, start);
        position = start + attribute.Whole.size();
        if (hasOtherWhiteSpace)
            continue; // the reason that fits first
        switch (attribute.Reason) {
        case MeantAttribute::Fault::SpaceAroundEquals:
            Add(MarkupFaultKind::SpaceAroundEquals, attribute.Whole);
            break;
        case MeantAttribute::Fault::UnquotedValue:
            Add(MarkupFaultKind::UnquotedValue, attribute.Whole);
            break;
        case MeantAttribute::Fault::MissingValue:
            Add(MarkupFaultKind::MissingValue, attribute.Whole);
            break;
        case MeantAttribute::Fault::OpenQuotes:
            Add(MarkupFaultKind::UnprotectedQuotes, attribute.Whole);
            break;
        case MeantAttribute::Fault::None:
            break;
        }
    }
    if (!hasAttributes && !hasOtherLetterCase)
        Add(MarkupFaultKind::NoAttributes, name);
}

/// What `VizInTooltipProperties` judges, attribute by attribute.
void FaultFinder::FindInAttributes(const WalkedElement& element)
{
    bool hasAllowed[std::size(Impl::SheetMarkupAttributeLiterals)] = {};
    std::set<AttributeName> unallowed;
    for (const AttributeParts& attribute : m_attributes) {
        const auto allowed = FindAllowedAttribute(attribute.Name);
        if (!allowed) {
            Add(MarkupFaultKind::UnallowedAttribute, attribute.Whole);
            AddUnallowed(attribute.Name);
            if (!unallowed.insert(AttributeName(ToString(attribute.Name))).second)
                Add(MarkupFaultKind::DuplicateAttribute, attribute.Whole);
            continue;
        }
        if (std::exchange(hasAllowed[static_cast<std::size_t>(*allowed)], true)) {
            Add(MarkupFaultKind::DuplicateAttribute, attribute.Whole);
            continue; // the first of a name is the one that counts
        }
        if (*allowed == SheetMarkupAttribute::Name && attribute.EscapedValue.empty())
            Add(MarkupFaultKind::MissingSheetName, attribute.Whole);
        const bool isWidth = *allowed == SheetMarkupAttribute::MaxWidth;
        if (isWidth || *allowed == SheetMarkupAttribute::MaxHeight) {
            const int length = ReadSheetLength(attribute.EscapedValue);
            const TSize size(isWidth ? length : DefaultMaxSize.width,
                             isWidth ? DefaultMaxSize.height : length);
            if (!IsValidSheetSize(size))
                Add(MarkupFaultKind::InvalidSheetSize, attribute.Whole);
        }
    }
    if (!hasAllowed[static_cast<std::size_t>(SheetMarkupAttribute::Name)])
        Add(MarkupFaultKind::MissingSheetName, element.Whole);
}

/// What a valid element's filter loses.
void FaultFinder::FindInFilter(TextView escapedFilter)
{
    m_fields.Clear();
    std::size_t end = 0;
    ForEachFieldInText(escapedFilter, m_scratch, [&](TextView inText, TextView meant) {
        const auto start = static_cast<std::size_t>(inText.data() - escapedFilter.data());
        AddStrayText(escapedFilter.substr(end, start - end));
        end = start + inText.size();
        m_fields.Add() = {meant, inText};
    });
    AddStrayText(escapedFilter.substr(end));

    // Equal fields come to stand side by side, in the order of the text.
    std::sort(m_fields.begin(), m_fields.end(), [](const Field& left, const Field& right) {
        const int order = left.Meant.compare(right.Meant);
        return order != 0 ? order < 0 : left.InText.data() < right.InText.data();
    });
    for (std::size_t i = 1; i < m_fields.Count(); ++i)
        if (m_fields[i].Meant == m_fields[i - 1].Meant)
            Add(MarkupFaultKind::DuplicateField, m_fields[i].InText);
}

/// Adds what of a run of white space isn't spaces, from the first such unit to the last. False if there is
/// none.
bool FaultFinder::AddOtherWhiteSpace(TextView text)
{
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == NotFound)
        return false;
    Add(MarkupFaultKind::OtherWhiteSpace, text.substr(first, text.find_last_not_of(u' ') + 1 - first));
    return true;
}

/// The white space at the ends of a name that would be allowed without it.
void FaultFinder::AddUnallowed(TextView name)
{
    const std::size_t start = SkipWhiteSpace(name, 0);
    std::size_t end = name.size();
    while (end > start && IsWhiteSpace(name[end - 1]))
        --end;
    if (FindAllowedAttribute(name.substr(start, end - start))) {
        AddOtherWhiteSpace(name.substr(0, start));
        AddOtherWhiteSpace(name.substr(end));
    }
}

/// What is left when commas and the spaces around them are taken away.
void FaultFinder::AddStrayText(TextView betweenFields)
{
    while (!betweenFields.empty()) {
        const std::size_t comma = std::min(betweenFields.find(u','), betweenFields.size());
        const TextView piece = betweenFields.substr(0, comma);
        const std::size_t first = piece.find_first_not_of(u' ');
        if (first != NotFound)
            Add(MarkupFaultKind::StrayFilterText,
                piece.substr(first, piece.find_last_not_of(u' ') + 1 - first));
        betweenFields.remove_prefix(std::min(comma + 1, betweenFields.size()));
    }
}

} // namespace

std::vector<MarkupFault> FindMarkupFaults(const TString& tooltipText)
{
    return FaultFinder(ViewOf(tooltipText)).Find();
}

} // namespace corvanemarkup::VizInTooltip
