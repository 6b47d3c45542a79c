#include "Completion.h"

#include "QtText.h"

#include <corvanemarkup/SheetMarkupConstants.h>

#include <algorithm>

namespace editor {

namespace {

QString QuotesDoubled(QString text)
{
    return text.replace(u'"', QStringLiteral("\"\""));
}

/// What stands at the cursor, and what can go on from it.
class Place
{
public:
    Place(const TString& tooltip, int cursor) : m_tooltip(tooltip), m_cursor(cursor) {}

    std::vector<Completion> Find(const KnownNames& known);

private:
    void AddElements(const KnownNames& known);
    void AddAttributeNames(const std::vector<AttributeRanges>& attributes);
    void AddSheets(const QStringList& sheets);
    void AddFields(const QStringList& fields, const std::vector<AttributeRanges>& attributes);

    void Begin(std::int64_t start) { m_start = static_cast<int>(start); }
    [[nodiscard]] QString Begun() const { return ToQString(Piece(m_tooltip, {m_start, m_cursor})); }
    /// The first position from the cursor on that holds one of the units, or the end of the text.
    [[nodiscard]] int EndAt(const char16_t* units) const
    {
        const int found = m_tooltip.findOneOf(TString(units, -1), m_cursor);
        return found < 0 ? m_tooltip.length() : found;
    }
    [[nodiscard]] char16_t NextBesidesSpaces(int position, int step) const
    {
        while (m_tooltip[position] == u' ')
            position += step;
        return m_tooltip[position];
    }
    /// `text` in place of what was begun and goes up to `end`, if `shown` goes on from that.
    void Add(const QString& shown, const QString& text, int end, int cursorBack = 0)
    {
        if (shown.startsWith(Begun(), Qt::CaseInsensitive))
            m_found.push_back({shown,
                               {{m_start, end}, ToTString(text)},
                               m_start + static_cast<int>(text.size()) - cursorBack});
    }

    const TString& m_tooltip;
    int m_cursor;
    int m_start = 0; ///< of what was begun and ends at the cursor
    std::vector<Completion> m_found;
};

std::vector<Completion> Place::Find(const KnownNames& known)
{
    // What stands after the cursor may belong to what is begun, or not. So it plays no part here.
    const TString before = m_tooltip.left(m_cursor);
    const auto elements = FindElementRanges(before);
    const bool isOutside = elements.empty() || elements.back().End == ElementEnd::Bracket;
    const TString sheet = Impl::SheetMarkupElementName + u' ';
    if (isOutside || Piece(before, elements.back().Content).left(sheet.length()) != sheet) {
        Begin(isOutside ? m_cursor : elements.back().Element.start);
        AddElements(known);
        return m_found;
    }
    const auto whole = FindElementRanges(m_tooltip)[elements.size() - 1].Content;
    const auto all = FindAttributeRanges(m_tooltip, whole);
    const auto attributes = FindAttributeRanges(before, elements.back().Content);
    if (attributes.empty() || attributes.back().Attribute.end < m_cursor || attributes.back().NameAndValue) {
        Begin(m_cursor);
        AddAttributeNames(all);
        return m_found;
    }
    const AttributeRanges& begun = attributes.back();
    const AttributeName name(Piece(before, begun.Name));
    const bool isValue = begun.Value.start == begun.Name.end + 2; // after = and a quote
    Begin(isValue ? begun.Value.start : begun.Attribute.start);
    if (begun.Name.end == begun.Attribute.end)
        AddAttributeNames(all);
    else if (isValue && name == Impl::SheetMarkupAttributeNames::Name)
        AddSheets(known.Sheets);
    else if (isValue && name == Impl::SheetMarkupAttributeNames::Filter)
        AddFields(known.Fields, all);
    return m_found;
}

void Place::AddElements(const KnownNames& known)
{
    // A field that is there already is replaced whole.
    const int end = EndAt(u"<>\n");
    const bool isThere = known.Fields.contains(ToQString(Piece(m_tooltip, {m_start + 1, end})));
    const auto add = [&](const QString& element) { Add(element, element, isThere ? end + 1 : m_cursor); };
    for (const QString& field : known.Fields)
        add(u'<' + field + u'>');
    for (const QString& sheet : known.Sheets)
        add(QStringLiteral("<Sheet name=\"%1\">").arg(QuotesDoubled(sheet)));
}

void Place::AddAttributeNames(const std::vector<AttributeRanges>& attributes)
{
    const QString space(m_tooltip[m_start - 1] == u' ' ? 0 : 1, u' ');
    for (const std::u16string_view literal : Impl::SheetMarkupAttributeLiterals) {
        const AttributeName name(TString(literal.data(), -1));
        const auto isThere = [&](const AttributeRanges& attribute) {
            return attribute.NameAndValue && attribute.NameAndValue->Name == name;
        };
        const QString text = ToQString(name.GetName()) + QStringLiteral("=\"\"");
        if (std::none_of(attributes.begin(), attributes.end(), isThere))
            Add(text, space + text, m_cursor, 1);
    }
}

void Place::AddSheets(const QStringList& sheets)
{
    const int end = EndAt(u"<>\"\n");
    const bool isClosed = m_tooltip[end] == u'"';
    for (const QString& sheet : sheets)
        Add(sheet, QuotesDoubled(sheet) + QString(isClosed ? 0 : 1, u'"'), isClosed ? end : m_cursor);
}

void Place::AddFields(const QStringList& fields, const std::vector<AttributeRanges>& attributes)
{
    const int valueStart = m_start;
    const QString value = Begun();
    const auto bracket = static_cast<int>(value.lastIndexOf(u'<'));
    const bool isInField = bracket > value.lastIndexOf(u'>');
    Begin(isInField ? valueStart + bracket : m_cursor);
    const int bracketEnd = EndAt(u"<>\",\n");
    const int end = isInField && m_tooltip[bracketEnd] == u'>' ? bracketEnd + 1 : m_cursor;

    QStringList others;
    for (const AttributeRanges& attribute : attributes)
        for (const auto& [range, field] : attribute.Fields)
            if (attribute.NameAndValue && (range.end <= m_start || range.start >= end))
                others.append(ToQString(field));
    if (others.contains(AllFields))
        return;
    const QString front(NextBesidesSpaces(m_start - 1, -1) == u'>' ? 1 : 0, u',');
    const QString back(NextBesidesSpaces(end, 1) == u'<' ? 1 : 0, u',');
    for (const QString& field : others.empty() ? fields + QStringList(AllFields) : fields)
        if (!others.contains(field))
            Add(u'<' + field + u'>', front + QuotesDoubled(u'<' + field + u'>') + back, end);
}

} // namespace

std::vector<Completion> FindCompletions(const TString& tooltip, int cursor, const KnownNames& known)
{
    return Place(tooltip, cursor).Find(known);
}

} // namespace editor
