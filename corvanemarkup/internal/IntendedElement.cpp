#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/IntendedElement.h>

#include <algorithm>
#include <array>
#include <unordered_map>

// A search for the least-cost path through a graph. A node is a position in the text and a state of a small
// grammar of sheet elements. An edge without costs reads a unit that the grammar expects; the other edges are
// mistakes. Nodes are visited in ascending order of their costs: the first end of an element is the answer.

namespace corvanemarkup::Internal {

using namespace VizInTooltip::Impl;
using Operation = Mistake::Operation;

namespace {

/// A mistake costs about ten. Costs between them decide between readings with equally many mistakes.
namespace Cost {
constexpr int Edit = 10;
constexpr int SuperfluousQuote = 9;
constexpr int MissingBracket = 11;
constexpr int MissingAtEndOfLine = 5; ///< the bracket
constexpr int LetterReplaced = 12;    ///< instead of a delimiter
constexpr int SpaceReplaced = 11;     ///< likewise
constexpr int DelimiterReplaced = 9;
constexpr int WrongCase = 1;
constexpr int WhiteSpace = 3;
constexpr int QuotesMissing = 12;
constexpr int OtherQuotes = 8;
constexpr int WordSkipped = 16;
constexpr int NoSheetName = 14;
constexpr int OpenField = 5;
constexpr int QuoteInSpace = 14; ///< before or after white space that would be part of the value
constexpr int BlankName = 6;
constexpr int OddBracket = 3;
constexpr int EqualsInName = 6;
constexpr int NoDigit = 4;
constexpr int LineBreakInValue = 8;
constexpr int SwappedWithPunctuation = 13;
constexpr int CutOff = 6;            ///< for each quote of a value at the end of a line
constexpr int OtherElement = 30;     ///< for a `<`, at which another element may start
constexpr int AttributeFollows = 25; ///< for a bracket where there is none, although an attribute follows
constexpr int QuoteFollows = 14;
constexpr int MoreFollows = 8; ///< for a bracket, although a delimiter follows
} // namespace Cost

enum class Part : std::uint8_t {
    Name,
    EditedName, ///< after a mistake in it
    Between,
    Letters, ///< of an attribute's name; after the last one, its `=` follows
    EditedLetters,
    Opening,
    OpeningQuote, ///< as `Opening`, but only a quote can follow
    Value,
    HalfPair,  ///< in a value, after the first quote of a doubled one that a unit interrupts
    OtherHalf, ///< likewise, after that unit
    Unquoted,
    Requoted, ///< a value in other quotes
    Closed,   ///< after a value, if a quote is where the bracket should be
    Skipped,
    SkippedValue,
    End
};

struct State
{
    Part In;
    std::uint8_t Attribute;
    std::uint8_t Index; ///< the number of letters read; in a value one of the following
    std::uint8_t Seen;  ///< a bit for each attribute

    static constexpr std::uint8_t Empty = 0;
    static constexpr std::uint8_t OutsideField = 1;
    static constexpr std::uint8_t InField = 2;
    static constexpr std::uint8_t Blank = 3; ///< only white space so far
    static constexpr std::uint8_t Odd = 4;   ///< added to these once a unit was read that few values contain
    static constexpr std::uint8_t Mode = 3;  ///< these without `Odd`

    [[nodiscard]] bool Is(std::uint8_t mode) const { return (Index & Mode) == mode; }
};

struct Node
{
    std::size_t Position;
    State At;
    std::uint8_t Cost;
    bool IsMistake;
    Operation Made;
    char16_t Unit;
    std::size_t Previous;
};

char16_t Fold(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

bool IsLetterOrDigit(char16_t unit)
{
    return (Fold(unit) >= u'a' && Fold(unit) <= u'z') || (unit >= u'0' && unit <= u'9') || unit >= 0xC0;
}

bool IsIn(Part part, Part first, Part last)
{
    return first <= part && part <= last;
}

MarkupPlace PlaceOf(State state)
{
    switch (state.In) {
    case Part::Name:
    case Part::EditedName:
        return MarkupPlace::ElementName;
    case Part::Letters:
    case Part::EditedLetters:
        return state.Index < SheetMarkupAttributeLiterals[state.Attribute].size() ? MarkupPlace::AttributeName
                                                                                  : MarkupPlace::Equals;
    case Part::Opening:
    case Part::OpeningQuote:
        return MarkupPlace::OpeningQuote;
    case Part::Value:
    case Part::HalfPair:
    case Part::OtherHalf:
    case Part::Unquoted:
    case Part::Requoted:
        return MarkupPlace::Value;
    default:
        return MarkupPlace::Between;
    }
}

class Search
{
public:
    Search(TextView text, std::size_t start, std::size_t limit, int mostCost, std::size_t& steps)
        : m_text(text), m_limit(limit), m_mostCost(mostCost), m_steps(steps)
    {
        Push({start, {Part::Name, 0, 0, 0}, 0, false, {}, 0, NotFound}, 0);
    }

    /// Returns the last node of the path; `NotFound` if there is none.
    std::size_t Find()
    {
        std::size_t visited = 0; // of those with the current cost
        for (std::size_t cost = 0; cost <= static_cast<std::size_t>(m_mostCost);) {
            if (visited == m_open[cost].size()) {
                visited = 0;
                ++cost;
                continue;
            }
            const std::size_t node = m_open[cost][visited++];
            if (m_nodes[node].At.In == Part::End)
                return node;
            if (m_steps == 0)
                return NotFound;
            --m_steps;
            if (m_costs[KeyOf(m_nodes[node])] == m_nodes[node].Cost)
                Visit(node);
        }
        return NotFound;
    }

    [[nodiscard]] const Node& operator[](std::size_t node) const { return m_nodes[node]; }

private:
    static std::uint64_t KeyOf(const Node& node)
    {
        static_assert(std::size(SheetMarkupAttributeLiterals) <= 5, "a bit for each attribute");
        const State& state = node.At;
        return std::uint64_t(node.Position) << 20 | std::uint64_t(state.In) << 14 |
               std::uint64_t(state.Attribute) << 10 | std::uint64_t(state.Index) << 5 | state.Seen;
    }

    void Push(Node node, int extraCost)
    {
        const int cost = node.Cost + extraCost;
        if (cost > m_mostCost)
            return;
        node.Cost = static_cast<std::uint8_t>(cost);
        const auto [known, isNew] = m_costs.try_emplace(KeyOf(node), node.Cost);
        if (!isNew && known->second <= node.Cost)
            return;
        known->second = node.Cost;
        m_open[node.Cost].push_back(m_nodes.size());
        m_nodes.push_back(node);
    }

    /// Adds the edge that reads `count` units without a mistake.
    void Read(std::size_t from, std::size_t count, State next, int cost)
    {
        const Node& node = m_nodes[from];
        Push({node.Position + count, next, node.Cost, false, {}, 0, from}, cost);
    }
    void Mistake(std::size_t from, Operation operation, std::size_t count, State next, int cost,
                 char16_t unit = 0)
    {
        const Node& node = m_nodes[from];
        Push({node.Position + count, next, node.Cost, true, operation, unit, from}, cost);
    }

    [[nodiscard]] char16_t At(std::size_t position) const
    {
        return position < m_limit ? m_text[position] : u'\0';
    }
    /// Returns whether the first letters of an attribute's name follow white space at `position`.
    [[nodiscard]] bool IsAttributeAt(std::size_t position) const
    {
        constexpr std::size_t most = 24;
        const TextView rest = m_text.substr(position, std::min(most, m_limit - std::min(position, m_limit)));
        const std::size_t word = SkipWhiteSpace(rest, 0);
        return std::any_of(std::begin(SheetMarkupAttributeLiterals), std::end(SheetMarkupAttributeLiterals),
                           [&](TextView name) {
                               return rest.size() >= word + 2 && Fold(rest[word]) == name[0] &&
                                      Fold(rest[word + 1]) == name[1];
                           });
    }
    [[nodiscard]] bool IsEndOfLineAt(std::size_t position) const
    {
        const std::size_t next = m_text.substr(0, m_limit).find_first_not_of(u' ', position);
        return next == NotFound || m_text[next] == u'\n' || m_text[next] == u'\r';
    }
    [[nodiscard]] bool IsSpaceOrEndAt(std::size_t position) const
    {
        return position >= m_limit || IsWhiteSpace(m_text[position]) || m_text[position] == u'>';
    }

    template <typename Use>
    void ForEachExpected(State state, Use use) const;
    static bool Consumes(State state, char16_t unit, State& next, int& cost);
    void Visit(std::size_t node);
    void VisitExpected(std::size_t node, State state, char16_t expected, State next);
    [[nodiscard]] int CostOfBracketBefore(std::size_t position, bool isNew) const;

    TextView m_text;
    std::size_t m_limit;
    int m_mostCost;
    std::size_t& m_steps;
    std::vector<Node> m_nodes;
    std::array<std::vector<std::size_t>, MostCost + 1> m_open; ///< by cost
    std::unordered_map<std::uint64_t, std::uint8_t> m_costs;
};

State Edited(State state)
{
    if (state.In == Part::Name)
        state.In = Part::EditedName;
    if (state.In == Part::Letters)
        state.In = Part::EditedLetters;
    return state;
}

/// Calls `use` with each unit that the grammar requires next, and the state after it.
template <typename Use>
void Search::ForEachExpected(State state, Use use) const
{
    const TextView letters = SheetMarkupAttributeLiterals[state.Attribute];
    switch (state.In) {
    case Part::Name:
    case Part::EditedName:
        if (state.Index < SheetMarkupElementLiteral.size())
            use(SheetMarkupElementLiteral[state.Index],
                State{state.In, 0, static_cast<std::uint8_t>(state.Index + 1), 0});
        else
            use(u' ', State{Part::Between, 0, 0, 0});
        break;
    case Part::Between:
        if (state.Seen != 0)
            use(u'>', State{Part::End, 0, 0, state.Seen});
        for (std::size_t i = 0; i < std::size(SheetMarkupAttributeLiterals); ++i)
            if ((state.Seen >> i & 1) == 0)
                use(SheetMarkupAttributeLiterals[i].front(),
                    State{Part::Letters, static_cast<std::uint8_t>(i), 1, state.Seen});
        break;
    case Part::Letters:
    case Part::EditedLetters:
        if (state.Index < letters.size())
            use(letters[state.Index],
                State{state.In, state.Attribute, static_cast<std::uint8_t>(state.Index + 1), state.Seen});
        else
            use(u'=', State{Part::Opening, state.Attribute, 0, state.Seen});
        break;
    case Part::Opening:
    case Part::OpeningQuote:
        use(u'"', State{Part::Value, state.Attribute, State::Empty, state.Seen});
        break;
    case Part::Value:
        if (!state.Is(State::Empty) || state.Attribute != 0)
            use(u'"',
                State{Part::Between, 0, 0, static_cast<std::uint8_t>(state.Seen | 1U << state.Attribute)});
        break;
    default:
        break;
    }
}

// The edges, state by state: tables rather than programs.
// NOLINTBEGIN(readability-function-cognitive-complexity)

/// Returns whether the state can read the unit without a mistake, although it doesn't require it.
bool Search::Consumes(State state, char16_t unit, State& next, int& cost)
{
    next = state;
    cost = 0;
    if (state.In == Part::Between)
        return unit == u' ';
    if (state.In != Part::Value || unit == u'"')
        return false;
    const auto attribute = static_cast<SheetMarkupAttribute>(state.Attribute);
    const bool isInField = state.Is(State::InField);
    std::uint8_t mode = State::OutsideField;
    if (attribute == SheetMarkupAttribute::Filter) {
        mode = unit == u'<' || (isInField && unit != u'>') ? State::InField : State::OutsideField;
        cost = unit == (isInField ? u'<' : u'>') ? Cost::OddBracket : 0;
    } else if (attribute == SheetMarkupAttribute::Name) {
        const bool isBlank = (state.Is(State::Empty) || state.Is(State::Blank)) && IsWhiteSpace(unit);
        mode = isBlank ? State::Blank : State::OutsideField;
        cost = unit == u'=' ? Cost::EqualsInName : unit == u'<' || unit == u'>' ? Cost::OddBracket : 0;
    } else {
        cost = unit >= u'0' && unit <= u'9' ? 0 : Cost::NoDigit;
    }
    if (unit == u'\n' || unit == u'\r')
        cost += Cost::LineBreakInValue;
    const auto odd = static_cast<std::uint8_t>(state.Index & State::Odd);
    next.Index = static_cast<std::uint8_t>(mode | odd | (cost > 0 ? State::Odd : 0));
    if (odd != 0)
        cost = 0;
    return true;
}

/// Returns the extra cost of a bracket before `position`, which is missing in the text if `isNew`, if the
/// element seems to go on.
int Search::CostOfBracketBefore(std::size_t position, bool isNew) const
{
    constexpr std::size_t most = 24;
    const TextView rest = m_text.substr(position, std::min(most, m_limit - position));
    if (!isNew)
        return rest.find_first_of(u"=\"") != NotFound ? Cost::MoreFollows : 0;
    std::size_t delimiter = rest.find_first_of(u"<>=\"");
    if (delimiter != NotFound && rest[delimiter] == u'<') { // perhaps in place of a letter
        delimiter = rest.find_first_of(u"<>=\" ", SkipWhiteSpace(rest, delimiter + 1));
        if (delimiter != NotFound && rest[delimiter] != u'=')
            delimiter = NotFound;
    }
    if (IsAttributeAt(position) || (delimiter != NotFound && rest[delimiter] == u'='))
        return Cost::AttributeFollows;
    if (IsEndOfLineAt(position))
        return Cost::MissingAtEndOfLine - Cost::MissingBracket;
    if (delimiter == NotFound)
        return 0;
    return rest[delimiter] == u'"' ? Cost::QuoteFollows : Cost::MoreFollows;
}

/// Adds the edges of a unit that the grammar requires.
void Search::VisitExpected(std::size_t node, State state, char16_t expected, State next)
{
    const std::size_t position = m_nodes[node].Position;
    const char16_t unit = At(position);
    const MarkupPlace place = PlaceOf(state);
    const bool isEquals = place == MarkupPlace::Equals;
    int cost = 0;
    if (expected == u'>' && (state.Seen & 1) == 0)
        cost = Cost::NoSheetName;
    else if (state.In == Part::Value && state.Is(State::InField))
        cost = Cost::OpenField;
    else if (state.In == Part::Value && state.Is(State::Blank))
        cost = Cost::BlankName;

    const bool isEscaped = (place == MarkupPlace::Value || place == MarkupPlace::Between) &&
                           position < m_limit && IsDoubled(m_text, position);
    if (unit == expected && !isEscaped)
        Read(node, 1, next, cost + (expected == u'>' ? CostOfBracketBefore(position + 1, false) : 0));
    else if (Fold(unit) == Fold(expected) && place == MarkupPlace::ElementName)
        Mistake(node, Operation::Fold, 1, next, Cost::WrongCase, expected);
    else if (Fold(unit) == Fold(expected) && !isEscaped)
        Read(node, 1, next, cost); // names of attributes aren't case-sensitive
    const bool isBlank = state.In == Part::Value && state.Is(State::Blank);
    if (isBlank || state.In == Part::EditedName || state.In == Part::OpeningQuote ||
        (state.In == Part::EditedLetters && !isEquals))
        return;

    State edited = Edited(next);
    if (isEquals)
        edited.In = Part::OpeningQuote;
    const bool isBracket = expected == u'>';
    const bool isCutOff =
        IsEndOfLineAt(position) &&
        (place == MarkupPlace::OpeningQuote || (place == MarkupPlace::Value && state.Is(State::Empty)));
    const bool isQuoteInSpace = (place == MarkupPlace::OpeningQuote && IsSpaceLike(unit)) ||
                                (place == MarkupPlace::Value && IsSpaceLike(At(position - 1)));
    Mistake(node, Operation::Insert, 0, edited,
            cost + (isBracket        ? Cost::MissingBracket + CostOfBracketBefore(position, true)
                    : isCutOff       ? Cost::CutOff
                    : isQuoteInSpace ? Cost::QuoteInSpace
                                     : Cost::Edit),
            expected);
    if (position >= m_limit || unit == expected)
        return;
    int replacing = Cost::Edit;
    if (!IsLetterOrDigit(expected))
        replacing = IsWhiteSpace(unit)      ? Cost::SpaceReplaced
                    : IsLetterOrDigit(unit) ? Cost::LetterReplaced
                                            : Cost::DelimiterReplaced;
    if (expected == u' ' && IsWhiteSpace(At(position + 1)))
        replacing = Cost::LetterReplaced;
    if (isBracket)
        replacing += CostOfBracketBefore(position + 1, true);
    Mistake(node, Operation::Replace, 1, edited, cost + replacing, expected);

    // The two units in the other order.
    if (position + 1 >= m_limit || Fold(m_text[position + 1]) != Fold(expected))
        return;
    edited = Edited(next);
    ForEachExpected(edited, [&](char16_t second, State last) {
        const int ending = second != u'>' ? 0
                                          : CostOfBracketBefore(position + 2, false) +
                                                ((last.Seen & 1) == 0 ? Cost::NoSheetName : 0);
        if (Fold(unit) == Fold(second))
            Mistake(node, Operation::Swap, 2, last, cost + ending + Cost::Edit);
    });
    int consumed = 0;
    State last{};
    if (Consumes(edited, unit, last, consumed))
        Mistake(node, Operation::Swap, 2, last,
                cost + consumed + (IsLetterOrDigit(unit) ? Cost::Edit : Cost::SwappedWithPunctuation));
}

void Search::Visit(std::size_t node)
{
    const std::size_t position = m_nodes[node].Position;
    const State state = m_nodes[node].At;
    const bool isAtEnd = position >= m_limit;
    const char16_t unit = At(position);
    ForEachExpected(state,
                    [&](char16_t expected, State next) { VisitExpected(node, state, expected, next); });

    const auto withPart = [state](Part part) {
        State next = state;
        next.In = part;
        return next;
    };
    const State read = [&] {
        State next = withPart(Part::Between);
        next.Seen = static_cast<std::uint8_t>(state.Seen | 1U << state.Attribute);
        next.Attribute = 0;
        next.Index = 0;
        return next;
    }();
    if (state.In == Part::Unquoted && IsSpaceOrEndAt(position))
        Mistake(node, Operation::Insert, 0, read, 0, u'"');
    if (isAtEnd)
        return;

    State next{};
    int cost = 0;
    if (Consumes(state, unit, next, cost))
        Read(node, 1, next, cost);
    if (state.In == Part::Value && position + 1 < m_limit) {
        if (unit == u'"' && IsDoubled(m_text, position)) {
            next = state;
            next.Index = state.Is(State::InField)
                             ? state.Index
                             : static_cast<std::uint8_t>(State::OutsideField | (state.Index & State::Odd));
            Read(node, 2, next, 0);
        } else if (m_text[position + 1] != u' ' && Consumes(state, m_text[position + 1], next, cost)) {
            ForEachExpected(next, [&](char16_t expected, State last) {
                if (unit == expected)
                    Mistake(node, Operation::Swap, 2, last,
                            cost + (IsLetterOrDigit(m_text[position + 1]) || m_text[position + 1] == u'>'
                                        ? Cost::Edit
                                        : Cost::SwappedWithPunctuation));
            });
        }
    }

    const bool isWhiteSpace = IsSpaceLike(unit);
    switch (state.In) {
    case Part::Name:
        if (isWhiteSpace && state.Index == 0)
            Mistake(node, Operation::Delete, 1, state, Cost::WhiteSpace);
        else if (isWhiteSpace && unit != u' ' && state.Index == SheetMarkupElementLiteral.size())
            Mistake(node, Operation::Replace, 1, State{Part::Between, 0, 0, 0}, Cost::WhiteSpace, u' ');
        Mistake(node, Operation::Delete, 1, withPart(Part::EditedName), Cost::Edit);
        break;
    case Part::Between:
        if (isWhiteSpace && unit != u' ')
            Mistake(node, Operation::Replace, 1, state, Cost::WhiteSpace, u' ');
        else if (!isWhiteSpace) {
            const bool isOther = unit == u'<' && !IsAttributeAt(position + 1);
            Mistake(node, Operation::Delete, 1, state, isOther ? Cost::OtherElement : Cost::Edit);
            if (!isOther && !IsSpaceLike(At(position - 1)) && IsLetterOrDigit(At(position + 1)))
                Mistake(node, Operation::Replace, 1, state, Cost::DelimiterReplaced, u' ');
        }
        if (!isWhiteSpace && unit != u'<' && unit != u'>' && IsWhiteSpace(At(position - 1)))
            Mistake(node, Operation::Delete, 1, withPart(Part::Skipped), Cost::WordSkipped);
        break;
    case Part::Letters:
    case Part::EditedLetters:
        if (isWhiteSpace && PlaceOf(state) == MarkupPlace::Equals)
            Mistake(node, Operation::Delete, 1, state, Cost::WhiteSpace);
        else if (state.In == Part::Letters || PlaceOf(state) == MarkupPlace::Equals)
            Mistake(node, Operation::Delete, 1, Edited(state), Cost::Edit);
        break;
    case Part::Opening:
        if (isWhiteSpace)
            Mistake(node, Operation::Delete, 1, state, Cost::WhiteSpace);
        else
            Mistake(node, Operation::Delete, 1, state, Cost::Edit);
        if (IsOtherQuote(unit))
            Mistake(node, Operation::Replace, 1, withPart(Part::Requoted), Cost::OtherQuotes, u'"');
        else if (!isWhiteSpace && unit != u'"' && unit != u'>')
            Mistake(node, Operation::Insert, 0, withPart(Part::Unquoted), Cost::QuotesMissing, u'"');
        break;
    case Part::OpeningQuote:
        if (isWhiteSpace)
            Mistake(node, Operation::Delete, 1, state, Cost::WhiteSpace);
        break;
    case Part::Value:
        if (unit == u'"') {
            Mistake(node, Operation::Delete, 1, state, Cost::SuperfluousQuote);
            if (At(position + 2) == u'"' && At(position + 1) != u'"')
                Read(node, 1, withPart(Part::HalfPair), 0);
            if (At(position + 1) == u'"' && !state.Is(State::Empty)) {
                next = read;
                next.In = Part::Closed;
                Read(node, 1, next, state.Is(State::InField) ? Cost::OpenField : 0);
            }
        }
        break;
    case Part::HalfPair:
        Mistake(node, Operation::Delete, 1, withPart(Part::OtherHalf), Cost::Edit);
        break;
    case Part::OtherHalf:
        next = withPart(Part::Value);
        next.Index = state.Is(State::InField)
                         ? state.Index
                         : static_cast<std::uint8_t>(State::OutsideField | (state.Index & State::Odd));
        Read(node, 1, next, 0);
        break;
    case Part::Closed:
        next = state;
        next.In = Part::End;
        Mistake(node, Operation::Replace, 1, next,
                Cost::SpaceReplaced + CostOfBracketBefore(position + 1, true), u'>');
        break;
    case Part::Unquoted:
        if (unit != u'"' && unit != u'<' && unit != u'>')
            Read(node, 1, state, isWhiteSpace ? 3 : unit == u'=' ? 14 : 0);
        break;
    case Part::Requoted:
        if (IsSpaceOrEndAt(position + 1) && (unit == u'"' || IsOtherQuote(unit)))
            Mistake(node, Operation::Replace, 1, read, 1, u'"');
        if (unit != u'"' && position + 1 < m_limit)
            Read(node, 1, state, unit == u'=' ? 12 : unit == u'>' ? 1 : 0);
        break;
    case Part::Skipped:
        if (isWhiteSpace || unit == u'>')
            Read(node, 0, withPart(Part::Between), 0);
        if (unit == u'"')
            Mistake(node, Operation::Delete, 1, withPart(Part::SkippedValue), 0);
        else if (isWhiteSpace ? At(position + 1) == u'=' || At(position - 1) == u'='
                              : unit != u'<' && unit != u'>')
            Mistake(node, Operation::Delete, 1, state, 0);
        break;
    case Part::SkippedValue:
        Mistake(node, Operation::Delete, 1, unit == u'"' ? withPart(Part::Between) : state,
                unit == u'=' || unit == u'>' || unit == u'<' ? 2 : 0);
        break;
    default:
        break;
    }
}

// NOLINTEND(readability-function-cognitive-complexity)

bool IsAttribute(Part part)
{
    return IsIn(part, Part::Letters, Part::Requoted);
}

bool IsValue(Part part)
{
    return IsIn(part, Part::Value, Part::Requoted);
}

/// Adds the mistake of the edge from `before` to `node`.
void AddMistake(const Node& before, const Node& node, IntendedElement& element)
{
    Mistake mistake{node.Made, PlaceOf(before.At), NotFound, before.Position, node.Position, node.Unit};
    const bool isAttribute = IsAttribute(node.At.In);
    const bool wasAttribute = IsAttribute(before.At.In);
    if (isAttribute || wasAttribute)
        mistake.Attribute = element.Attributes.size();
    if (isAttribute && !wasAttribute)
        mistake.Place = MarkupPlace::AttributeName;
    else if (wasAttribute && !isAttribute && (node.Unit == u'"' || node.Made == Operation::Swap))
        mistake.Place = MarkupPlace::ClosingQuote;
    else if (node.At.In == Part::End)
        mistake.Place = MarkupPlace::Bracket;
    auto& all = element.Mistakes;
    const bool isMore = !all.empty() && mistake.Kind == Operation::Delete &&
                        all.back().Kind == mistake.Kind && all.back().Place == mistake.Place &&
                        all.back().End == mistake.Start;
    if (isMore)
        all.back().End = mistake.End;
    else
        all.push_back(mistake);
}

} // namespace

bool IsSpaceLike(char16_t unit)
{
    return IsWhiteSpace(unit) || unit == 0xA0 || (unit >= 0x2000 && unit <= 0x200B) || unit == 0x2028 ||
           unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000 || unit == 0xFEFF;
}

bool IsOtherQuote(char16_t unit)
{
    return unit == u'\'' || unit == u'`' || (unit >= 0x2018 && unit <= 0x201F) || unit == 0xAB ||
           unit == 0xBB;
}

bool IntendedElement::HasName() const
{
    return std::any_of(Attributes.begin(), Attributes.end(), [](const IntendedAttribute& attribute) {
        return attribute.Attribute == SheetMarkupAttribute::Name;
    });
}

bool MayBeMisspelled(TextView content)
{
    // Of the name's letters, at most one is missing; before the last of them, at most two other units.
    const TextView name = SheetMarkupElementLiteral;
    content.remove_prefix(SkipWhiteSpace(content.substr(0, 16), 0));
    std::size_t found = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < std::min(content.size(), name.size() + 2); ++i)
        for (std::size_t j = next; j < std::min(next + 2, name.size()); ++j)
            if (Fold(content[i]) == Fold(name[j])) {
                ++found;
                next = j + 1;
                break;
            }
    return found + 1 >= name.size();
}

bool FindIntendedElement(TextView text, std::size_t start, std::size_t limit, int mostCost,
                         std::size_t& steps, IntendedElement& element)
{
    Search search(text, start, limit, mostCost, steps);
    std::vector<std::size_t> path;
    for (std::size_t node = search.Find(); node != NotFound; node = search[node].Previous)
        path.push_back(node);
    if (path.empty())
        return false;
    std::reverse(path.begin(), path.end());

    element = {search[path.back()].Position, {}, {}};
    std::size_t attributeStart = start;
    std::size_t valueStart = start;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const Node& before = search[path[i - 1]];
        const Node& node = search[path[i]];
        const Part part = node.At.In;
        const bool wasAttribute = IsAttribute(before.At.In);
        if (IsAttribute(part) && !wasAttribute)
            attributeStart = before.Position;
        if (IsValue(part) && !IsValue(before.At.In))
            valueStart = node.Position;
        if (node.IsMistake)
            AddMistake(before, node, element);
        if (wasAttribute && !IsAttribute(part))
            element.Attributes.push_back(
                {static_cast<SheetMarkupAttribute>(before.At.Attribute),
                 text.substr(attributeStart, node.Position - attributeStart),
                 text.substr(valueStart, std::max(before.Position, valueStart) - valueStart)});
    }
    return true;
}

} // namespace corvanemarkup::Internal
