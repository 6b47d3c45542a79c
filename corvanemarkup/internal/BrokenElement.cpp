#include <corvanemarkup/internal/BrokenElement.h>
#include <corvanemarkup/internal/SheetSize.h>

#include <algorithm>

namespace corvanemarkup::Internal {

using VizInTooltip::DiagnosticKind;
using VizInTooltip::Impl::SheetMarkupAttribute;
using Ending = WalkedElement::Ending;
using Operation = Mistake::Operation;

namespace {

class CauseFinder
{
public:
    CauseFinder(TextView text, Ending ending, const IntendedElement& intended, BrokenElement& element)
        : m_text(text), m_ending(ending), m_intended(intended), m_element(element)
    {
    }

    void Find()
    {
        for (const Mistake& mistake : m_intended.Mistakes)
            Add(mistake);
        if (!m_intended.HasName())
            m_element.Causes.push_back({DiagnosticKind::MissingSheetName, m_element.Whole, {}});
        for (std::size_t i = 0; i < m_intended.Attributes.size(); ++i) {
            const IntendedAttribute& attribute = m_intended.Attributes[i];
            const bool isMistaken =
                std::any_of(m_intended.Mistakes.begin(), m_intended.Mistakes.end(),
                            [i](const Mistake& mistake) { return mistake.Attribute == i; });
            if (!isMistaken && !HasValidSize(attribute.Attribute, attribute.RawValue))
                m_element.Causes.push_back({DiagnosticKind::InvalidSheetSize, attribute.Whole, {}});
        }
    }

private:
    [[nodiscard]] TextView PartOf(const Mistake& mistake) const
    {
        return m_text.substr(mistake.Start, mistake.End - mistake.Start);
    }
    [[nodiscard]] DiagnosticKind KindOf(const Mistake& mistake) const;
    [[nodiscard]] TextView RangeOf(const Mistake& mistake, DiagnosticKind kind) const;
    [[nodiscard]] static bool IsPartOf(const Mistake& mistake, const Cause& cause, const Cause& earlier);
    void Add(const Mistake& mistake);

    TextView m_text;
    Ending m_ending;
    const IntendedElement& m_intended;
    BrokenElement& m_element;
};

DiagnosticKind CauseFinder::KindOf(const Mistake& mistake) const
{
    const TextView part = PartOf(mistake);
    const bool isWhiteSpace = !part.empty() && std::all_of(part.begin(), part.end(), IsSpaceLike);
    const bool isSuperfluousSpace = isWhiteSpace && mistake.Kind == Operation::Delete;
    const DiagnosticKind bracketKind = m_ending == Ending::Interrupted ? DiagnosticKind::InterruptedElement
                                                                       : DiagnosticKind::UnterminatedElement;
    switch (mistake.Place) {
    case MarkupPlace::ElementName:
        if (isWhiteSpace && mistake.Kind == Operation::Replace)
            return DiagnosticKind::InvalidWhiteSpace;
        return mistake.Kind == Operation::Fold ? DiagnosticKind::WrongLetterCase
                                               : DiagnosticKind::MisspelledElement;
    case MarkupPlace::Between:
        if (isWhiteSpace)
            return DiagnosticKind::InvalidWhiteSpace;
        if (part == u">" || part == u"<")
            return bracketKind;
        return part.find(u'=') != NotFound ? DiagnosticKind::UnknownAttribute : DiagnosticKind::MissingValue;
    case MarkupPlace::AttributeName:
        return DiagnosticKind::UnknownAttribute;
    case MarkupPlace::Equals:
        return isSuperfluousSpace ? DiagnosticKind::SpaceAroundEquals : DiagnosticKind::MissingValue;
    case MarkupPlace::OpeningQuote:
        if (mistake.Kind == Operation::Insert &&
            m_text.data() + mistake.Start == m_element.Whole.data() + m_element.Whole.size())
            return DiagnosticKind::MissingValue;
        return isSuperfluousSpace ? DiagnosticKind::SpaceAroundEquals : DiagnosticKind::UnquotedValue;
    case MarkupPlace::Value:
    case MarkupPlace::ClosingQuote:
        return m_ending == Ending::UnterminatedInQuotes ? DiagnosticKind::UnterminatedQuotes
                                                        : DiagnosticKind::QuotesOpenAtBracket;
    case MarkupPlace::Bracket:
        break;
    }
    return bracketKind;
}

TextView CauseFinder::RangeOf(const Mistake& mistake, DiagnosticKind kind) const
{
    if (mistake.Place == MarkupPlace::Bracket)
        return m_element.Whole;
    if (mistake.Attribute != NotFound)
        return m_intended.Attributes[mistake.Attribute].Whole;
    if (kind != DiagnosticKind::MisspelledElement && kind != DiagnosticKind::WrongLetterCase)
        return PartOf(mistake);
    const auto start = static_cast<std::size_t>(m_element.Whole.data() + 1 - m_text.data());
    const auto attribute =
        static_cast<std::size_t>(m_intended.Attributes.front().Whole.data() - m_text.data());
    TextView name = m_text.substr(start, std::max(attribute, mistake.End) - start);
    while (!name.empty() && name.back() == u' ')
        name.remove_suffix(1);
    return name;
}

/// Returns whether the mistake, which would be the cause `cause` by itself, belongs to an earlier one.
bool CauseFinder::IsPartOf(const Mistake& mistake, const Cause& cause, const Cause& earlier)
{
    // What is cut off within quotes lacks its bracket, too.
    const Mistake* const last = earlier.Mistakes.empty() ? nullptr : &earlier.Mistakes.back();
    if (mistake.Place == MarkupPlace::Bracket && mistake.Kind == Operation::Insert && last != nullptr &&
        last->Kind == Operation::Insert && last->Place == MarkupPlace::ClosingQuote &&
        last->Start == mistake.Start)
        return true;
    const auto is = [&](DiagnosticKind kind) { return earlier.Kind == kind || cause.Kind == kind; };
    const bool isName = is(DiagnosticKind::MisspelledElement) && is(DiagnosticKind::WrongLetterCase);
    const bool areQuotes =
        mistake.Place == MarkupPlace::ClosingQuote &&
        (earlier.Kind == DiagnosticKind::UnquotedValue || earlier.Kind == DiagnosticKind::MissingValue);
    const bool isEquals = is(DiagnosticKind::SpaceAroundEquals) && is(DiagnosticKind::MissingValue);
    return earlier.Range.data() == cause.Range.data() &&
           (earlier.Kind == cause.Kind || isName || areQuotes || isEquals);
}

void CauseFinder::Add(const Mistake& mistake)
{
    Cause cause{KindOf(mistake), {}, {mistake}};
    cause.Range = RangeOf(mistake, cause.Kind);
    const auto earlier = std::find_if(m_element.Causes.begin(), m_element.Causes.end(),
                                      [&](const Cause& other) { return IsPartOf(mistake, cause, other); });
    if (earlier == m_element.Causes.end()) {
        m_element.Causes.push_back(std::move(cause));
        return;
    }
    earlier->Mistakes.push_back(mistake);
    if (cause.Kind == DiagnosticKind::MisspelledElement ||
        (earlier->Kind == DiagnosticKind::SpaceAroundEquals && cause.Kind == DiagnosticKind::MissingValue))
        earlier->Kind = cause.Kind;
}

} // namespace

bool HasValidSize(SheetMarkupAttribute attribute, TextView rawValue)
{
    const bool isWidth = attribute == SheetMarkupAttribute::MaxWidth;
    if (!isWidth && attribute != SheetMarkupAttribute::MaxHeight)
        return true;
    const int length = ReadSheetLength(rawValue);
    return IsValidSheetSize(TSize(isWidth ? length : VizInTooltip::DefaultMaxSize.width,
                                  isWidth ? VizInTooltip::DefaultMaxSize.height : length));
}

bool ReadBrokenElement(TextView text, std::size_t start, std::size_t limit, Ending ending, int mostCost,
                       std::size_t& steps, BrokenElement& element)
{
    IntendedElement intended;
    if (!FindIntendedElement(text, start, limit, mostCost, steps, intended))
        return false;
    element = {text.substr(start - 1, intended.End + 1 - start), {}};
    CauseFinder(text, ending, intended, element).Find();
    return !element.Causes.empty();
}

} // namespace corvanemarkup::Internal
