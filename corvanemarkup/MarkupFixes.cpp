#include <corvanemarkup/MarkupFixes.h>
#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/BrokenElement.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/EditDistance.h>
#include <corvanemarkup/internal/EditedElement.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/MarkupWriter.h>
#include <corvanemarkup/internal/Quotation.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

#include <algorithm>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;
using Impl::SheetMarkupAttribute;
using Operation = Mistake::Operation;

namespace {

struct Edit
{
    std::size_t Start;
    std::size_t End;
    std::u16string NewText;
};

std::u16string Applied(TextView text, const std::vector<Edit>& edits, std::size_t start, std::size_t end)
{
    std::u16string applied;
    for (const Edit& edit : edits) {
        applied.append(text.substr(start, edit.Start - start)).append(edit.NewText);
        start = edit.End;
    }
    return applied.append(text.substr(start, end - start));
}

class FixFinder
{
public:
    FixFinder(TextView text, const Diagnostic& diagnostic, const KnownNames& knownNames)
        : m_text(text), m_kind(diagnostic.Kind), m_start(static_cast<std::size_t>(diagnostic.Range.start)),
          m_end(static_cast<std::size_t>(diagnostic.Range.end)),
          m_elementStart(static_cast<std::size_t>(diagnostic.Element.start)),
          m_elementEnd(static_cast<std::size_t>(diagnostic.Element.end)), m_knownNames(knownNames)
    {
    }

    std::vector<MarkupFix> Find();

private:
    [[nodiscard]] TextView Range() const { return m_text.substr(m_start, m_end - m_start); }
    [[nodiscard]] TextView Element() const
    {
        return m_text.substr(m_elementStart, m_elementEnd - m_elementStart);
    }

    void Add(std::u16string title, std::vector<Edit> edits, bool isSafe);
    void AddRemoval(bool isSafe);
    [[nodiscard]] bool Mends(const std::vector<Edit>& edits) const;
    [[nodiscard]] bool EndsWithin(const std::vector<Edit>& edits) const;
    void FixElement();
    void FixUnclosed();
    void FixTextAfter();
    void FixUnknownName();
    void FixAttribute(const ReadableElement& read);
    void FixUnknownAttribute(const ReadableElement& read, const AttributeParts& attribute);
    void FixSize(const AttributeParts& attribute);
    void FixFilter();
    void FixBroken();
    [[nodiscard]] std::vector<Edit> EditsOf(const Cause& cause) const;
    [[nodiscard]] std::u16string TitleOf(const Cause& cause, const std::vector<Edit>& edits) const;
    [[nodiscard]] bool IsSafe(const Cause& cause) const;
    [[nodiscard]] bool IsValidAfter(const std::vector<Edit>& edits) const;

    TextView m_text;
    DiagnosticKind m_kind;
    std::size_t m_start;
    std::size_t m_end;
    std::size_t m_elementStart;
    std::size_t m_elementEnd;
    const KnownNames& m_knownNames;
    std::vector<MarkupFix> m_fixes;
};

void FixFinder::Add(std::u16string title, std::vector<Edit> edits, bool isSafe)
{
    if (!Mends(edits))
        return;
    std::vector<TextEdit> textEdits;
    textEdits.reserve(edits.size());
    for (const Edit& edit : edits)
        textEdits.push_back({{static_cast<std::int64_t>(edit.Start), static_cast<std::int64_t>(edit.End)},
                             ToString(edit.NewText)});
    m_fixes.push_back({ToString(title), std::move(textEdits), isSafe && EndsWithin(edits)});
}

/// Returns whether the edited element ends where it should, and all text after it keeps its meaning.
/// Otherwise, quotes that are open now protect brackets in that text.
bool FixFinder::EndsWithin(const std::vector<Edit>& edits) const
{
    const std::u16string edited = Applied(m_text, edits, m_elementStart, m_elementEnd);
    ElementWalk walk(edited);
    WalkedElement element{};
    while (walk.Next(element)) {
    }
    return element.EndsWith == WalkedElement::Ending::Bracket;
}

/// Returns whether the diagnostic is gone after the edits, and no error is new, as far as the element and a
/// few units around it show.
bool FixFinder::Mends(const std::vector<Edit>& edits) const
{
    constexpr std::size_t context = 64;
    const std::size_t start = m_elementStart;
    const std::size_t end = std::min(std::max(m_elementEnd, edits.back().End) + context, m_text.size());
    const TString before = ToString(m_text.substr(start, end - start));
    const TString after = ToString(Applied(m_text, edits, start, end));
    const auto isSame = [&](const Diagnostic& other) {
        return other.Kind == m_kind && other.Range.start == static_cast<std::int64_t>(m_start - start) &&
               PartOf(ViewOf(after), other.Range) == Range();
    };
    const auto isError = [](const Diagnostic& other) { return other.Severity == DiagnosticSeverity::Error; };
    const std::vector<Diagnostic> now = FindDiagnostics(after);
    const std::vector<Diagnostic> earlier = FindDiagnostics(before);
    return std::none_of(now.begin(), now.end(), isSame) &&
           std::count_if(now.begin(), now.end(), isError) <=
               std::count_if(earlier.begin(), earlier.end(), isError);
}

/// Adds the removal of the range and of the white space before it.
void FixFinder::AddRemoval(bool isSafe)
{
    std::size_t start = m_start;
    while (start > m_elementStart && m_text[start - 1] == u' ')
        --start;
    const bool needsSpace = m_end < m_text.size() && m_text[m_end] != u' ' && m_text[m_end] != u'>';
    Add(u"Remove " + Quoted(Range()), {{start, m_end, needsSpace ? u" " : u""}}, isSafe);
}

/// Returns whether the edited element is a valid sheet element that ends where it should.
bool FixFinder::IsValidAfter(const std::vector<Edit>& edits) const
{
    std::u16string edited = Applied(m_text, edits, m_elementStart, m_elementEnd);
    const std::size_t length = edited.size();
    edited.append(m_text.substr(m_elementEnd, 1)); // a further bracket would double its own
    if (edited.substr(0, 2) == u"<<")
        return false;
    ElementWalk walk(edited);
    WalkedElement element{};
    SheetElement sheet;
    return walk.Next(element) && element.Whole.data() == edited.data() && element.Whole.size() == length &&
           element.EndsWith == WalkedElement::Ending::Bracket && ReadSheetElement(element.Content, sheet);
}

std::vector<MarkupFix> FixFinder::Find()
{
    const bool isInside = m_elementStart < m_start && m_end < m_elementEnd;
    switch (m_kind) {
    case DiagnosticKind::UnknownSheet:
    case DiagnosticKind::UnknownField:
        if (isInside)
            FixUnknownName();
        break;
    case DiagnosticKind::EscapedElement:
        if (Range().substr(0, 2) == u"<<")
            Add(u"Write '<'", {{m_start, m_start + 1, u""}}, false);
        break;
    case DiagnosticKind::MissingBracket:
        if (HasElementNameAt(Range(), 0))
            Add(u"Add '<'", {{m_start, m_start, u"<"}}, false);
        break;
    case DiagnosticKind::StrayAngleBracket:
        if (Range().front() == u'<')
            Add(u"Write '<<'", {{m_start, m_start, u"<"}}, false);
        break;
    case DiagnosticKind::TextAfterElement:
        FixTextAfter();
        break;
    case DiagnosticKind::StrayFilterText:
    case DiagnosticKind::DuplicateField:
        if (isInside)
            FixFilter();
        break;
    default:
        FixElement();
        break;
    }
    return std::move(m_fixes);
}

void FixFinder::FixElement()
{
    if (m_text[m_elementStart] != u'<')
        return;
    ElementWalk walk(m_text.substr(0, m_elementEnd), m_elementStart);
    WalkedElement walked{};
    ReadableElement read;
    const bool isReadable = walk.Next(walked) && walked.Whole.size() == Element().size() &&
                            walked.EndsWith == WalkedElement::Ending::Bracket &&
                            ReadElement(walked.Content, read) && read.Attributes.Count() > 0;
    if (isReadable)
        FixAttribute(read);
    else
        FixBroken();
}

/// Suggests a bracket after the first line, without punctuation, or a literal `<`.
void FixFinder::FixUnclosed()
{
    TextView content = Element().substr(1);
    if ((!content.empty() && content.back() == u'>') || IsCalledSheet(content))
        return;
    content = content.substr(0, content.find_first_of(u"<\r\n"));
    const std::size_t last = content.find_last_not_of(u" \t.,;:!?()");
    if (last < 40) { // there is one, and it is near
        const std::size_t end = m_elementStart + last + 2;
        Add(u"Add '>' after " + Quoted(content.substr(0, last + 1)), {{end, end, u">"}}, false);
    }
    Add(u"Write '<<'", {{m_elementStart, m_elementStart, u"<"}}, false);
}

void FixFinder::FixTextAfter()
{
    std::size_t bracket = m_start;
    while (bracket > m_elementStart && m_text[bracket - 1] != u'>')
        --bracket;
    if (bracket == m_elementStart)
        return;
    std::vector<Edit> edits{{bracket - 1, m_start, u" "}};
    std::size_t end = m_end;
    while (end < m_text.size() && m_text[end] == u' ')
        ++end;
    if (end < m_text.size() && m_text[end] == u'>')
        m_elementEnd = end + 1;
    else
        edits.push_back({m_end, m_end, u">"});
    if (IsValidAfter(edits))
        Add(u"Move " + Quoted(Range()) + u" into the element", std::move(edits), false);
}

void FixFinder::FixUnknownName()
{
    const auto& known = m_kind == DiagnosticKind::UnknownSheet ? m_knownNames.Sheets : m_knownNames.Fields;
    const bool isPlain = m_start == m_elementStart + 1 && m_end + 1 == m_elementEnd;
    const TString name = isPlain ? ToString(Range()) : Unescape(Range());
    const TString* const nearest = known ? FindNearest(ViewOf(name), *known) : nullptr;
    if (nearest == nullptr || *nearest == name ||
        (m_kind == DiagnosticKind::UnknownField && !CanNameField(ViewOf(*nearest))))
        return;
    std::u16string raw;
    if (isPlain)
        raw = ViewOf(*nearest);
    else
        AppendEscaped(ViewOf(*nearest), raw);
    std::vector<Edit> edits{{m_start, m_end, raw}};
    if (isPlain || IsValidAfter(edits))
        Add(u"Write " + Quoted(ViewOf(*nearest)), std::move(edits), false);
}

/// Fixes the attribute of a readable element.
void FixFinder::FixAttribute(const ReadableElement& read)
{
    const auto positionOf = [this](TextView part) {
        return static_cast<std::size_t>(part.data() - m_text.data());
    };
    if (m_kind == DiagnosticKind::InvalidWhiteSpace) {
        if (!Trimmed(Range()).empty() || m_start == m_elementStart || m_end == m_elementEnd)
            return;
        const bool isNextToSpace = m_text[m_start - 1] == u' ' || m_text[m_start - 1] == u'=' ||
                                   m_text[m_end] == u' ' || m_text[m_end] == u'=' || m_text[m_end] == u'>';
        Add(isNextToSpace ? u"Remove the white space" : u"Write a space",
            {{m_start, m_end, isNextToSpace ? u"" : u" "}}, true);
        return;
    }
    std::size_t number = 0;
    while (number < read.Attributes.Count() && positionOf(read.Attributes[number].Whole) != m_start)
        ++number;
    if (number == read.Attributes.Count())
        return;
    const AttributeParts& attribute = read.Attributes[number];
    if (m_kind == DiagnosticKind::InvalidSheetSize)
        FixSize(attribute);
    if (m_kind == DiagnosticKind::DuplicateAttribute) {
        std::size_t first = 0;
        while (!AreSameAttributeName(read.Attributes[first].Name, attribute.Name))
            ++first;
        AddRemoval(read.Attributes[first].RawValue == attribute.RawValue);
    }
    if (m_kind == DiagnosticKind::UnknownAttribute)
        FixUnknownAttribute(read, attribute);
}

/// Suggests the name of an attribute that the element doesn't have yet, or to remove this one.
void FixFinder::FixUnknownAttribute(const ReadableElement& read, const AttributeParts& attribute)
{
    const auto has = [&](TextView name) {
        for (std::size_t i = 0; i < read.Attributes.Count(); ++i)
            if (AreSameAttributeName(read.Attributes[i].Name, name))
                return true;
        return false;
    };
    const TextView name = Trimmed(attribute.Name);
    for (const TextView literal : Impl::SheetMarkupAttributeLiterals) {
        const bool isShort = literal.size() > name.size() && name.size() > 3 &&
                             EditDistance(name, literal.substr(literal.size() - name.size()), 0) == 0;
        const std::size_t most = literal.size() > 4 ? 2 : 1;
        if (!has(literal) && (isShort || EditDistance(name, literal, most) <= most)) {
            const auto start = static_cast<std::size_t>(attribute.Name.data() - m_text.data());
            std::u16string title = u"Write ";
            title += Quoted(literal);
            Add(std::move(title), {{start, start + attribute.Name.size(), std::u16string(literal)}}, false);
        }
    }
    AddRemoval(false);
}

void FixFinder::FixSize(const AttributeParts& attribute)
{
    const bool isWidth = AreSameAttributeName(attribute.Name, LiteralOf(SheetMarkupAttribute::MaxWidth));
    const int largest = isWidth ? LargestMaxSize.width : LargestMaxSize.height;
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    const TextView value = Trimmed(attribute.RawValue);
    const std::size_t first = value.substr(0, 1) == u"+" ? 1 : 0;
    std::size_t end = first;
    std::int64_t number = 0;
    for (; end < value.size() && isDigit(value[end]); ++end)
        number = std::min<std::int64_t>(number * 10 + (value[end] - u'0'), 1'000'000);
    const TextView unit = Trimmed(value.substr(end));
    const auto start = static_cast<std::size_t>(attribute.RawValue.data() - m_text.data());
    const auto write = [&](std::int64_t size, bool isSafe) {
        const TString text = TString::number(static_cast<int>(size), 10, 0, u' ');
        Add(u"Write " + Quoted(ViewOf(text)),
            {{start, start + attribute.RawValue.size(), std::u16string(ViewOf(text))}}, isSafe);
    };
    const bool isNumber = end > first && (unit.empty() || unit == u"px");
    if (isNumber)
        write(std::clamp<std::int64_t>(number, 1, largest), number >= 1 && number <= largest);
    else
        AddRemoval(false);
}

/// Fixes text or a field in the filter of a valid element.
void FixFinder::FixFilter()
{
    if (m_kind == DiagnosticKind::DuplicateField) {
        // With the comma before it, since there is a field before it.
        std::size_t start = m_start;
        while (m_text[start - 1] == u' ')
            --start;
        if (m_text[start - 1] == u',')
            --start;
        else
            start = m_start;
        Add(u"Remove " + Quoted(Range()), {{start, m_end, u""}}, true);
        return;
    }
    const TextView text = Range();
    const bool isFirst = m_text[m_start - 1] == u'"';
    const bool isLast = m_text[m_end] == u'"';
    if (text == u";" && !isFirst && !isLast) {
        Add(u"Write ','", {{m_start, m_end, u","}}, false);
        return;
    }
    const TString name = Unescape(text);
    if (CanNameField(ViewOf(name)) && text.find_first_of(u";|/") == NotFound) {
        const bool followsField = m_text[m_start - 1] == u'>';
        const bool precedesField = m_text[m_end] == u'<';
        std::u16string field = followsField ? u",<" : u"<";
        field.append(text).append(precedesField ? u">," : u">");
        std::vector<Edit> edits{{m_start, m_end, field}};
        if (IsValidAfter(edits))
            Add(u"Write '<" + std::u16string(text) + u">'", std::move(edits), false);
    }
    Add(u"Remove " + Quoted(text), {{m_start, m_end, u""}}, false);
}

void FixFinder::FixBroken()
{
    constexpr std::size_t lookAhead = 32;
    std::size_t limit = std::min(m_elementEnd + lookAhead, m_text.size());
    const std::size_t start = m_elementStart + 1;
    for (std::size_t next = FindSheetStart(m_text.substr(0, limit), start); next != NotFound;
         next = FindSheetStart(m_text.substr(0, limit), next + 1))
        if (StartsSheetElement(m_text, next + 1))
            limit = next;
    ElementWalk walk(m_text.substr(0, limit), m_elementStart);
    WalkedElement walked{};
    (void)walk.Next(walked);
    BrokenElement broken;
    std::size_t steps = 20'000 + 32 * (limit - start);
    const bool isRead = limit - start <= MostUnits &&
                        ReadBrokenElement(m_text, start, limit, walked.EndsWith, MostCost, steps, broken) &&
                        broken.Whole.size() == Element().size();
    if (!isRead) {
        FixUnclosed();
        return;
    }
    const Cause* found = nullptr;
    for (const Cause& cause : broken.Causes) {
        const bool hasRange =
            cause.Range.data() == m_text.data() + m_start && cause.Range.size() == m_end - m_start;
        if (hasRange && (found == nullptr || cause.Kind == m_kind))
            found = &cause;
    }
    if (found == nullptr || found->Mistakes.empty())
        return;
    std::vector<Edit> edits = EditsOf(*found);
    const Mistake& first = found->Mistakes.front();
    if (m_elementStart > 0 && m_text[m_elementStart - 1] == u'<' && first.Start == start) {
        // The second of two brackets is in place of the name's first letter, or the third one was mistyped.
        if (first.Kind == Operation::Insert) {
            --m_elementStart;
            edits.front().Start = m_elementStart + 1;
        } else if (first.Kind == Operation::Delete) {
            m_elementStart = start;
            edits.front().NewText = u'<';
        }
    }
    const bool isOnly = broken.Causes.size() == 1;
    if (isOnly && !IsValidAfter(edits))
        return;
    std::u16string title = TitleOf(*found, edits);
    Add(std::move(title), std::move(edits), IsSafe(*found));
}

std::vector<Edit> FixFinder::EditsOf(const Cause& cause) const
{
    std::vector<Edit> edits;
    for (const Mistake& mistake : cause.Mistakes) {
        Edit edit{mistake.Start, mistake.End, u""};
        if (mistake.Kind == Operation::Swap)
            edit.NewText = {m_text[mistake.Start + 1], m_text[mistake.Start]};
        else if (mistake.Kind != Operation::Delete)
            edit.NewText = mistake.Unit;
        else if (mistake.Place == MarkupPlace::Between) // a word, with the space before it
            while (m_text[edit.Start - 1] == u' ' &&
                   (edit.End >= m_text.size() || m_text[edit.End] == u' ' || m_text[edit.End] == u'>'))
                --edit.Start;
        if (!edits.empty() && edits.back().End >= edit.Start) {
            edits.back().NewText += edit.NewText;
            edits.back().End = edit.End;
        } else {
            edits.push_back(std::move(edit));
        }
    }
    return edits;
}

std::u16string FixFinder::TitleOf(const Cause& cause, const std::vector<Edit>& edits) const
{
    const Mistake& first = cause.Mistakes.front();
    const Mistake& last = cause.Mistakes.back();
    const TextView before = m_text.substr(m_start, std::max(first.Start, m_start) - m_start);
    switch (cause.Kind) {
    case DiagnosticKind::MisspelledElement:
    case DiagnosticKind::WrongLetterCase:
        return u"Write 'Sheet'";
    case DiagnosticKind::InvalidWhiteSpace:
        return u"Write a space";
    case DiagnosticKind::SpaceAroundEquals:
        return u"Remove the white space around '='";
    case DiagnosticKind::InterruptedElement:
    case DiagnosticKind::UnterminatedElement:
        if (first.Kind == Operation::Insert)
            return u"Add '>' after " +
                   Quoted(before.substr(before.size() - std::min<std::size_t>(before.size(), 20)));
        break;
    default:
        break;
    }
    if (first.Place == MarkupPlace::ClosingQuote && first.Kind == Operation::Insert) {
        const std::u16string value = Quoted(before.substr(std::min(before.find(u'"') + 1, before.size())));
        return (last.Place == MarkupPlace::Bracket ? u"Add the closing quote and '>' after "
                                                   : u"Add the closing quote after ") +
               value;
    }
    const bool isRemoval =
        std::all_of(edits.begin(), edits.end(), [](const Edit& edit) { return edit.NewText.empty(); });
    if (isRemoval)
        return u"Remove " +
               Quoted(Trimmed(m_text.substr(edits.front().Start, edits.front().End - edits.front().Start)));
    return u"Write " + Quoted(Applied(m_text, edits, m_start, std::max(m_end, edits.back().End)));
}

bool FixFinder::IsSafe(const Cause& cause) const
{
    const auto are = [&](auto holds) {
        return std::all_of(cause.Mistakes.begin(), cause.Mistakes.end(), holds);
    };
    switch (cause.Kind) {
    case DiagnosticKind::WrongLetterCase:
    case DiagnosticKind::InvalidWhiteSpace:
    case DiagnosticKind::SpaceAroundEquals:
        return true;
    case DiagnosticKind::MisspelledElement:
        return are([&](const Mistake& mistake) {
            return mistake.Kind == Operation::Fold ||
                   (mistake.Kind == Operation::Delete &&
                    Trimmed(m_text.substr(mistake.Start, mistake.End - mistake.Start)).empty());
        });
    case DiagnosticKind::UnquotedValue: {
        // Both quotes were missing, or others.
        const Mistake& opening = cause.Mistakes.front();
        const Mistake& closing = cause.Mistakes.back();
        const TextView value = m_text.substr(opening.Start, closing.Start - opening.Start);
        const bool wereOther = opening.Kind == Operation::Replace && IsOtherQuote(m_text[opening.Start]) &&
                               closing.Kind == Operation::Replace && IsOtherQuote(m_text[closing.Start]);
        const bool wereMissing = opening.Kind == Operation::Insert && closing.Kind == Operation::Insert &&
                                 value.find_first_of(u" =<>\"") == NotFound;
        return cause.Mistakes.size() == 2 && closing.Place == MarkupPlace::ClosingQuote &&
               (wereOther || wereMissing);
    }
    case DiagnosticKind::MissingValue:
        return Range() == u"/" && cause.Mistakes.front().Place == MarkupPlace::Between;
    default:
        return false;
    }
}

/// The text after some edits, as parts of the original text and new ones.
class EditedText
{
public:
    explicit EditedText(const TString& text) : m_text(text)
    {
        m_pieces.push_back({0, ViewOf(text).size(), {}});
    }

    void Apply(const std::vector<TextEdit>& edits)
    {
        std::vector<Piece> pieces;
        std::size_t piece = 0;
        std::size_t offset = 0; // in the piece
        std::size_t position = 0;
        const auto copyTo = [&](std::size_t end, bool isKept) {
            while (position < end) {
                const Piece& from = m_pieces[piece];
                const std::size_t length = std::min(from.Length - offset, end - position);
                if (isKept)
                    pieces.push_back({from.Start + offset, length,
                                      from.IsNew() ? from.NewText.substr(offset, length) : std::u16string()});
                position += length;
                offset += length;
                if (offset == from.Length) {
                    ++piece;
                    offset = 0;
                }
            }
        };
        for (const TextEdit& edit : edits) {
            copyTo(static_cast<std::size_t>(edit.Range.start), true);
            copyTo(static_cast<std::size_t>(edit.Range.end), false);
            if (!edit.NewText.empty())
                pieces.push_back({0, ViewOf(edit.NewText).size(), std::u16string(ViewOf(edit.NewText))});
        }
        copyTo(Length(), true);
        m_pieces = std::move(pieces);
    }

    [[nodiscard]] std::vector<TextEdit> Edits() const
    {
        std::vector<TextEdit> edits;
        std::size_t end = 0; // of the last part of the original text
        std::u16string newText;
        const auto add = [&](std::size_t next) {
            if (next != end || !newText.empty())
                edits.push_back(
                    {{static_cast<std::int64_t>(end), static_cast<std::int64_t>(next)}, ToString(newText)});
            newText.clear();
        };
        for (const Piece& piece : m_pieces) {
            if (piece.IsNew()) {
                newText += piece.NewText;
            } else {
                add(piece.Start);
                end = piece.Start + piece.Length;
            }
        }
        add(ViewOf(m_text).size());
        return edits;
    }

private:
    struct Piece
    {
        std::size_t Start; ///< in the original text
        std::size_t Length;
        std::u16string NewText; ///< empty for a part of the original text

        [[nodiscard]] bool IsNew() const { return !NewText.empty(); }
    };

    [[nodiscard]] std::size_t Length() const
    {
        std::size_t length = 0;
        for (const Piece& piece : m_pieces)
            length += piece.Length;
        return length;
    }

    const TString& m_text;
    std::vector<Piece> m_pieces;
};

/// Appends the edits of the first fix if it is safe and they follow the others.
void AddIfSafe(const TString& text, const Diagnostic& diagnostic, std::vector<TextEdit>& edits)
{
    const std::vector<MarkupFix> fixes = FindFixes(text, diagnostic);
    if (fixes.empty() || !fixes.front().IsSafe)
        return;
    const auto& added = fixes.front().Edits;
    if (edits.empty() || edits.back().Range.end < added.front().Range.start)
        edits.insert(edits.end(), added.begin(), added.end());
}

} // namespace

std::vector<MarkupFix> FindFixes(const TString& tooltipText, const Diagnostic& diagnostic,
                                 const KnownNames& knownNames)
{
    const TextView text = ViewOf(tooltipText);
    const bool isInText =
        GetDiagnosticIdentifier(diagnostic.Kind) != nullptr && IsIn(text, diagnostic.Element) &&
        IsIn(text, diagnostic.Range) && diagnostic.Element.start <= diagnostic.Range.start &&
        diagnostic.Range.end <= diagnostic.Element.end && diagnostic.Range.start < diagnostic.Range.end;
    if (!isInText)
        return {};
    return FixFinder(text, diagnostic, knownNames).Find();
}

std::vector<TextEdit> FixTooltip(const TString& tooltipText)
{
    constexpr int mostRounds = 8;
    constexpr std::int64_t fewOfElement = 2;
    constexpr std::int64_t mostOfElement = 32'768; // diagnostics times units
    EditedText edited(tooltipText);
    TString text = tooltipText;
    for (int round = 0; round < mostRounds; ++round) {
        std::vector<TextEdit> edits;
        const std::vector<Diagnostic> diagnostics = FindDiagnostics(text);
        for (auto first = diagnostics.begin(); first != diagnostics.end();) {
            const auto last = std::find_if(first, diagnostics.end(), [&](const Diagnostic& other) {
                return other.Element.start != first->Element.start;
            });
            // Each fix reads its element several times: linear, since few are found in a long one.
            const std::int64_t count = last - first;
            if (count <= fewOfElement || count * (first->Element.end - first->Element.start) <= mostOfElement)
                std::for_each(first, last,
                              [&](const Diagnostic& diagnostic) { AddIfSafe(text, diagnostic, edits); });
            first = last;
        }
        if (edits.empty())
            break;
        edited.Apply(edits);
        text = ApplyTextEdits(text, edits);
    }
    return edited.Edits();
}

} // namespace corvanemarkup::VizInTooltip
