#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/internal/Check.h>
#include <corvanemarkup/internal/EditedElement.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/MarkupWriter.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/TextView.h>

#include <algorithm>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;

namespace {

/// Returns the new name, or null if the name doesn't change.
const TString* FindNewName(const std::map<TString, TString>& newNames, TextView name)
{
    if (newNames.empty())
        return nullptr;
    const TString oldName = ToString(name);
    const auto found = newNames.find(oldName);
    return found != newNames.end() && found->second != oldName ? &found->second : nullptr;
}

/// Renames the sheet and the fields of one valid sheet element.
class SheetRenaming
{
public:
    SheetRenaming(const WalkedElement& element, TextView text) : m_element(element), m_text(text)
    {
        (void)ReadElement(element.Content, m_read);
    }

    /// Appends the edits that can be applied.
    void AddEdits(const SheetElement& sheet, const std::map<TString, TString>& newSheetNames,
                  const std::map<TString, TString>& newFields, std::vector<TextEdit>& edits);

private:
    /// A name to replace.
    struct Change
    {
        TextView Source;
        const TString* NewName;
        std::size_t Field; ///< index of the field; `NotFound` for the sheet
        bool IsApplied;
    };

    using Changes = std::vector<Change*>;

    void ApplyWherePossible(const Changes& changes);
    [[nodiscard]] bool CanApply() const;

    const WalkedElement& m_element;
    TextView m_text;
    ReadableElement m_read;
    std::u16string m_scratch;
    std::vector<TextView> m_fields;
    std::vector<Change> m_changes;
    int m_triesLeft = 64;
};

void SheetRenaming::AddEdits(const SheetElement& sheet, const std::map<TString, TString>& newSheetNames,
                             const std::map<TString, TString>& newFields, std::vector<TextEdit>& edits)
{
    const auto add = [this](TextView raw, const TString* newName, std::size_t field) {
        if (newName != nullptr)
            m_changes.push_back({raw, newName, field, false});
    };
    const TString sheetName = sheet.Name();
    add(sheet.RawName(), FindNewName(newSheetNames, ViewOf(sheetName)), NotFound);
    if (m_read.Filter != NotFound)
        ForEachRawField(sheet.RawFilter(), m_scratch, [&](TextView raw, TextView unescaped) {
            const TextView field = unescaped.substr(1, unescaped.size() - 2);
            add(raw.substr(1, raw.size() - 2), FindNewName(newFields, field), m_fields.size());
            m_fields.push_back(field);
        });
    // The fields are in text order; the sheet's name, the first change, may be after all of them.
    if (!m_changes.empty() && m_changes.back().Source.data() < m_changes.front().Source.data())
        std::rotate(m_changes.begin(), m_changes.begin() + 1, m_changes.end());

    // A change that couldn't be applied before may be applicable after others.
    Changes open;
    std::size_t before = 0;
    do {
        before = open.size();
        open.clear();
        for (Change& change : m_changes) // the sheet first, before fields can exhaust the tries
            if (!change.IsApplied)
                open.insert(change.Field == NotFound ? open.begin() : open.end(), &change);
        if (open.size() != before)
            ApplyWherePossible(open);
    } while (open.size() != before && m_triesLeft > 0);
    for (const Change& change : m_changes) {
        if (!change.IsApplied)
            continue;
        std::u16string rawName;
        AppendEscaped(ViewOf(*change.NewName), rawName);
        edits.push_back({RangeOf(change.Source, m_text), ToString(rawName)});
    }
}

/// Applies all changes if the element reads back with them; otherwise tries each half, and so on.
void SheetRenaming::ApplyWherePossible(const Changes& changes)
{
    using Place = Changes::const_iterator;
    std::vector<std::pair<Place, Place>> parts{{changes.begin(), changes.end()}};
    for (; !parts.empty() && m_triesLeft > 0; --m_triesLeft) {
        const auto first = parts.back().first;
        const auto last = parts.back().second;
        parts.pop_back();
        const auto set = [&](bool isApplied) {
            std::for_each(first, last, [isApplied](Change* change) { change->IsApplied = isApplied; });
        };
        set(true);
        if (CanApply())
            continue;
        set(false);
        if (last - first > 1) {
            const auto middle = first + (last - first) / 2;
            parts.emplace_back(middle, last);
            parts.emplace_back(first, middle);
        }
    }
}

bool SheetRenaming::CanApply() const
{
    std::uint64_t length = m_element.Content.size();
    for (const Change& change : m_changes)
        if (change.IsApplied)
            length = length + EscapedLength(ViewOf(*change.NewName)) - change.Source.size();
    ExpectedElement expected{TextWithRoomFor(length), m_read.Attributes.Count(), m_read.Filter, m_fields};
    const char16_t* copied = m_element.Content.data();
    for (const Change& change : m_changes) {
        if (!change.IsApplied)
            continue;
        expected.NewContent.append(copied, change.Source.data());
        AppendEscaped(ViewOf(*change.NewName), expected.NewContent);
        copied = change.Source.data() + change.Source.size();
        if (change.Field != NotFound)
            expected.Fields[change.Field] = ViewOf(*change.NewName);
    }
    expected.NewContent.append(copied, m_element.Content.data() + m_element.Content.size());
    return ReadsBackAs(m_element, expected);
}

} // namespace

TString ApplyTextEdits(const TString& text, const std::vector<TextEdit>& edits)
{
    const TextView view = ViewOf(text);
    std::uint64_t length = view.size();
    std::int64_t end = 0;
    for (const TextEdit& edit : edits) {
        const bool isInOrder = IsIn(view, edit.Range) && edit.Range.start >= end;
        CORVANEMARKUP_CHECK("corvanemarkup/TextEdits", isInOrder);
        end = edit.Range.end;
        length = length + ViewOf(edit.NewText).size() - PartOf(view, edit.Range).size();
    }

    std::u16string edited = TextWithRoomFor(length);
    std::int64_t copied = 0;
    for (const TextEdit& edit : edits) {
        edited.append(PartOf(view, {copied, edit.Range.start})).append(ViewOf(edit.NewText));
        copied = edit.Range.end;
    }
    edited.append(view.substr(static_cast<std::size_t>(copied)));
    return ToString(edited);
}

bool IsFieldName(const TString& name)
{
    return CanNameField(ViewOf(name));
}

std::vector<TextEdit> RenameSheetsAndFields(const TString& tooltipText,
                                            const std::map<TString, TString>& newSheetNames,
                                            const std::map<TString, TString>& newFields)
{
    for (const auto& [oldName, newSheetName] : newSheetNames)
        CORVANEMARKUP_CHECK("corvanemarkup/TextEdits", !newSheetName.empty());
    for (const auto& [oldName, newField] : newFields)
        CORVANEMARKUP_CHECK("corvanemarkup/TextEdits", IsFieldName(newField));

    const TextView text = ViewOf(tooltipText);
    std::vector<TextEdit> edits;
    ElementWalk walk(text);
    for (WalkedElement element; walk.Next(element);) {
        if (element.EndsWith != WalkedElement::Ending::Bracket)
            continue;
        SheetElement sheet;
        if (ReadSheetElement(element.Content, sheet)) {
            SheetRenaming(element, text).AddEdits(sheet, newSheetNames, newFields, edits);
            continue;
        }
        const TString* const newField = FindNewName(newFields, element.Content);
        if (newField != nullptr && IsPlain(text, element.Content) &&
            ReadsBackAsPlain(element, ViewOf(*newField)))
            edits.push_back({RangeOf(element.Content, text), *newField});
    }
    return edits;
}

boost::optional<EditAtCursor> InsertFilterFieldAt(const TString& tooltipText, CorvaneCharRange selection,
                                                  const TString& fieldToInsert, const TString& exclusiveField)
{
    const TextView text = ViewOf(tooltipText);
    if (!IsIn(text, selection) || !IsFieldName(fieldToInsert))
        return boost::none;
    ElementWalk walk(text);
    WalkedElement element{};
    const auto holdsSelection = [&] {
        const CorvaneCharRange content = RangeOf(element.Content, text);
        return content.start <= selection.start && selection.end <= content.end;
    };
    do {
        if (!walk.Next(element))
            return boost::none;
    } while (element.EndsWith != WalkedElement::Ending::Bracket || !holdsSelection());

    ReadableElement read;
    if (!ReadElement(element.Content, read))
        return boost::none;
    const TextView oldValue =
        read.Filter != NotFound ? read.Attributes[read.Filter].RawValue : element.Content.substr(0, 0);
    std::vector<TextView> fields;
    std::size_t first = NotFound;
    std::size_t end = NotFound;
    std::u16string scratch;
    ForEachRawField(oldValue, scratch, [&](TextView raw, TextView unescaped) {
        const CorvaneCharRange field = RangeOf(raw, text);
        // True if the field strictly contains the cursor, or overlaps the selection.
        if (field.start < selection.end && selection.start < field.end) {
            first = std::min(first, fields.size());
            end = fields.size() + 1;
        }
        fields.push_back(unescaped.substr(1, unescaped.size() - 2));
    });
    fields = InsertField(std::move(fields), first, end, ViewOf(fieldToInsert), ViewOf(exclusiveField));

    std::uint64_t length = 0;
    for (const TextView field : fields)
        length += field.size() + std::size(u"<>,") - 1;
    std::u16string value = TextWithRoomFor(length);
    for (const TextView field : fields)
        value.append(value.empty() ? u"<" : u",<").append(field).append(1, u'>');

    // Replaces the value; without a filter, inserts one after the last attribute or the element's name.
    std::u16string newText;
    CorvaneCharRange replaced = RangeOf(oldValue, text);
    if (read.Filter != NotFound) {
        AppendEscaped(value, newText);
    } else {
        const TextView before = read.Attributes.Count() == 0
                                    ? element.Content.substr(0, Impl::SheetMarkupElementLiteral.size())
                                    : read.Attributes[read.Attributes.Count() - 1].Whole;
        replaced = {RangeOf(before, text).end, RangeOf(before, text).end};
        newText = u' ';
        AppendCanonical(LiteralOf(Impl::SheetMarkupAttribute::Filter), value, newText);
    }

    CheckTextLength(std::uint64_t(text.size()) + newText.size() - oldValue.size());
    const CorvaneCharRange content = RangeOf(element.Content, text);
    const bool isNew = read.Filter == NotFound;
    ExpectedElement expected{TextWithRoomFor(element.Content.size() + newText.size()),
                             read.Attributes.Count() + (isNew ? 1 : 0),
                             isNew ? read.Attributes.Count() : read.Filter, std::move(fields)};
    expected.NewContent.append(PartOf(text, {content.start, replaced.start}))
        .append(newText)
        .append(PartOf(text, {replaced.end, content.end}));
    if (!ReadsBackAs(element, expected))
        return boost::none;
    const int closingQuote = isNew ? 0 : 1; // part of the new text if the filter is new
    return EditAtCursor{{replaced, ToString(newText)},
                        static_cast<int>(replaced.start) + static_cast<int>(newText.size()) + closingQuote};
}

} // namespace corvanemarkup::VizInTooltip
