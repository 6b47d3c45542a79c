#include "Completion.h"

#include "QtText.h"

#include <corvanemarkup/SheetMarkupConstants.h>

#include <algorithm>

namespace editor {

namespace {

using Attributes = std::vector<AttributeRanges>;

QString QuotesDoubled(QString text)
{
    return text.replace(u'"', QStringLiteral("\"\""));
}

/// The completions of the text between `Start` and the cursor.
struct Completions
{
    const TString& Tooltip;
    int Cursor;
    int Start;
    std::vector<Completion> Found;

    [[nodiscard]] QString Begun() const { return ToQString(TextIn(Tooltip, {Start, Cursor})); }
    /// Returns the first position at or after the cursor that holds one of the units, or the end of the text.
    [[nodiscard]] int EndAt(const char16_t* units) const
    {
        const int found = Tooltip.findOneOf(TString(units, -1), Cursor);
        return found < 0 ? Tooltip.length() : found;
    }
    /// Adds `text` as a replacement of everything from `Start` to `end`.
    void Add(const QString& shown, const QString& text, int end)
    {
        if (shown.startsWith(Begun(), Qt::CaseInsensitive))
            Found.push_back({shown, {{Start, end}, ToTString(text)}});
    }
};

void AddElements(Completions& at, const HostNames& known)
{
    // Replaces a whole field that the cursor is in.
    const int end = at.EndAt(u"<>\n");
    const bool isThere = known.Fields.contains(ToQString(TextIn(at.Tooltip, {at.Start + 1, end})));
    QStringList elements;
    for (const QString& field : known.Fields)
        elements.append(u'<' + field + u'>');
    for (const QString& sheet : known.Sheets)
        elements.append(QStringLiteral("<Sheet name=\"%1\">").arg(QuotesDoubled(sheet)));
    for (const QString& element : elements)
        at.Add(element, element, isThere ? end + 1 : at.Cursor);
}

void AddAttributeNames(Completions& at, const Attributes& attributes)
{
    const QString space(at.Tooltip[at.Start - 1] == u' ' ? 0 : 1, u' ');
    for (const std::u16string_view literal : Impl::SheetMarkupAttributeLiterals) {
        const AttributeName name(TString(literal.data(), -1));
        const auto isThere = [&](const AttributeRanges& attribute) {
            return attribute.NameAndValue && attribute.NameAndValue->Name == name;
        };
        const QString text = ToQString(name.GetName()) + QStringLiteral("=\"\"");
        if (std::none_of(attributes.begin(), attributes.end(), isThere))
            at.Add(text, space + text, at.Cursor);
    }
}

void AddSheets(Completions& at, const QStringList& sheets)
{
    const int end = at.EndAt(u"<>\"\n");
    const bool isClosed = at.Tooltip[end] == u'"';
    for (const QString& sheet : sheets)
        at.Add(sheet, QuotesDoubled(sheet) + QString(isClosed ? 0 : 1, u'"'), isClosed ? end : at.Cursor);
}

void AddFields(Completions& at, const QStringList& fields, const Attributes& attributes)
{
    const QString value = at.Begun();
    const auto bracket = static_cast<int>(value.lastIndexOf(u'<'));
    const bool isInField = bracket > value.lastIndexOf(u'>');
    at.Start = isInField ? at.Start + bracket : at.Cursor;
    int end = at.EndAt(u"<>\",\n");
    end = isInField && at.Tooltip[end] == u'>' ? end + 1 : at.Cursor;
    QStringList others;
    for (const AttributeRanges& attribute : attributes)
        for (const auto& [range, field] : attribute.Fields)
            if (attribute.NameAndValue && (range.end <= at.Start || range.start >= end))
                others.append(ToQString(field));
    if (others.contains(AllFields))
        return;
    const QString front(at.Tooltip[at.Start - 1] == u'>' ? 1 : 0, u',');
    const QString back(at.Tooltip[end] == u'<' ? 1 : 0, u',');
    for (const QString& field : others.empty() ? fields + QStringList(AllFields) : fields)
        if (!others.contains(field))
            at.Add(u'<' + field + u'>', front + QuotesDoubled(u'<' + field + u'>') + back, end);
}

} // namespace

std::vector<Completion> FindCompletions(const TString& tooltip, int cursor, const HostNames& known)
{
    // Text after the cursor may or may not belong to the element that is being typed, hence is ignored.
    const TString before = tooltip.left(cursor);
    Completions at{tooltip, cursor, cursor, {}};
    const auto elements = FindElementRanges(before);
    const bool isOutside = elements.empty() || elements.back().End == ElementEnd::Bracket;
    const TString sheet = Impl::SheetMarkupElementName + u' ';
    if (isOutside || TextIn(before, elements.back().Content).left(sheet.length()) != sheet) {
        at.Start = isOutside ? cursor : static_cast<int>(elements.back().Element.start);
        AddElements(at, known);
        return at.Found;
    }
    const Attributes all =
        FindAttributeRanges(tooltip, FindElementRanges(tooltip)[elements.size() - 1].Content);
    const Attributes attributes = FindAttributeRanges(before, elements.back().Content);
    if (attributes.empty() || attributes.back().Attribute.end < cursor || attributes.back().NameAndValue) {
        AddAttributeNames(at, all);
        return at.Found;
    }
    const AttributeRanges& begun = attributes.back();
    const AttributeName name(TextIn(before, begun.Name));
    const bool isValue = begun.Value.start == begun.Name.end + 2; // after = and a quote
    at.Start = static_cast<int>(isValue ? begun.Value.start : begun.Attribute.start);
    if (begun.Name.end == begun.Attribute.end)
        AddAttributeNames(at, all);
    else if (isValue && name == Impl::SheetMarkupAttributeNames::Name)
        AddSheets(at, known.Sheets);
    else if (isValue && name == Impl::SheetMarkupAttributeNames::Filter)
        AddFields(at, known.Fields, all);
    return at.Found;
}

} // namespace editor
