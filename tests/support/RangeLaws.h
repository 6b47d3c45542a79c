#pragma once

/// Laws of ranges, diagnostics and edits on any tooltip, and comparisons with the operations on one element.

#include "Testing.h"

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupFixes.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <gtest/gtest.h>

#include <algorithm>

inline TString PartOf(const TString& text, const CorvaneCharRange& range)
{
    return text.mid(static_cast<int>(range.start), static_cast<int>(range.end - range.start));
}

inline bool IsFilter(const AttributeRanges& attribute)
{
    return attribute.NameAndValue && attribute.NameAndValue->Name == Name(u"filter");
}

/// A tooltip as elements, attributes and fields, with names replaced by `newNames`.
inline std::string ShowReading(const TString& tooltip, const std::map<TString, TString>& newNames = {})
{
    const auto renamed = [&](const TString& name) {
        const auto found = newNames.find(name);
        return Show(found == newNames.end() ? name : found->second);
    };
    std::string shown;
    for (const ElementRanges& element : FindElementRanges(tooltip)) {
        const TString content = PartOf(tooltip, element.Content);
        shown += std::to_string(static_cast<int>(element.End)) + ' ';
        if (element.End != ElementEnd::Bracket ||
            !VizInTooltipProperties::FromMarkupText(MarkupText(content)))
            shown += renamed(content);
        else
            for (const AttributeRanges& attribute : FindAttributeRanges(tooltip, element.Content)) {
                shown += Show(attribute.NameAndValue->Name.GetName()) + '=';
                shown += IsFilter(attribute) ? "" : renamed(attribute.NameAndValue->Value);
                for (const auto& field : attribute.Fields)
                    shown += '<' + renamed(field.second) + '>';
            }
        shown += '\n';
    }
    return shown;
}

inline void ExpectAttributes(const TString& tooltip, const ElementRanges& element)
{
    const auto attributes = FindAttributeRanges(tooltip, element.Content);
    std::vector<AttributeNameAndValue> namesAndValues;
    std::int64_t end = element.Content.start;
    for (const AttributeRanges& attribute : attributes) {
        const bool isOrdered =
            end <= attribute.Attribute.start && attribute.Attribute.start == attribute.Name.start &&
            attribute.Name.end <= attribute.Value.start && attribute.Value.start <= attribute.Value.end &&
            attribute.Value.end <= attribute.Attribute.end && attribute.Attribute.end <= element.Content.end;
        EXPECT_TRUE(isOrdered);
        end = attribute.Attribute.end;
        for (const auto& [range, field] : attribute.Fields) {
            TString unescaped = PartOf(tooltip, range);
            UnescapeQuotes(unescaped);
            EXPECT_EQ(unescaped, SurroundWithAngleBrackets(field));
            EXPECT_TRUE(attribute.Value.start <= range.start && range.end <= attribute.Value.end);
        }
        if (!attribute.NameAndValue)
            continue;
        namesAndValues.push_back(*attribute.NameAndValue);
        TString value = PartOf(tooltip, attribute.Value);
        UnescapeQuotes(value);
        EXPECT_EQ(Show(namesAndValues.back()), Show(PartOf(tooltip, attribute.Name)) + '=' + Show(value));
        EXPECT_EQ(Show(attribute.NameAndValue),
                  Show(ExtractNameAndValue(PartOf(tooltip, attribute.Attribute))));
    }
    const auto sheet = VizInTooltipProperties::FromMarkupText(MarkupText(PartOf(tooltip, element.Content)));
    if (!sheet)
        return;
    EXPECT_EQ(namesAndValues.size(), attributes.size());
    const AttributeNamesAndValues list(namesAndValues);
    EXPECT_EQ(Show(VizInTooltipProperties(list).ToSheetMarkupText()), Show(sheet->ToSheetMarkupText()));
    const auto filter = std::find_if(attributes.begin(), attributes.end(), IsFilter);
    std::vector<TString> fields;
    for (std::size_t i = 0; filter != attributes.end() && i < filter->Fields.size(); ++i)
        fields.push_back(filter->Fields[i].second);
    EXPECT_EQ(Show(fields), Show(sheet->GetFilterFields()));
}

/// Compares the diagnostics of one element with its validation. What was guessed may extend beyond the
/// element; the elements after it needn't be those of the tooltip.
inline void ExpectDiagnostics(const TString& tooltip, const ElementRanges& element,
                              const std::vector<Diagnostic>& all)
{
    using Kind = DiagnosticKind;
    std::vector<Diagnostic> diagnostics;
    bool isAfterGuess = false;
    for (const Diagnostic& diagnostic : all) {
        const bool isOfThis = Show(diagnostic.Element) == Show(element.Element);
        if (isOfThis)
            diagnostics.push_back(diagnostic);
        else if (diagnostic.Element.start <= element.Element.start)
            isAfterGuess = isAfterGuess || diagnostic.Element.end > element.Element.start ||
                           diagnostic.Kind == Kind::TextAfterElement ||
                           diagnostic.Severity == DiagnosticSeverity::Error;
    }
    const auto has = [&](Kind kind) {
        return std::any_of(diagnostics.begin(), diagnostics.end(),
                           [kind](const Diagnostic& diagnostic) { return diagnostic.Kind == kind; });
    };
    const TString content = PartOf(tooltip, element.Content);
    const auto sheet = VizInTooltipProperties::FromMarkupText(MarkupText(content));
    const ElementKind kind = GetElementKind(tooltip, element);
    const bool isEnded = element.End == ElementEnd::Bracket;
    const bool isValid = sheet && sheet->IsValid() && isEnded;
    const bool isCalledSheet = content.left(5).compare(Text(u"Sheet"), TString::CaseSensitivity(0)) == 0 &&
                               content.mid(5, 1).Trim().empty();
    EXPECT_EQ(kind == ElementKind::Plain, !isCalledSheet);
    EXPECT_EQ(kind == ElementKind::Sheet, isValid);
    EXPECT_EQ(kind == ElementKind::InvalidSheet, sheet && !isValid);
    if (isAfterGuess)
        return;
    EXPECT_TRUE(!diagnostics.empty() || (isEnded && (isValid || !isCalledSheet)));
    if (sheet && isEnded) {
        EXPECT_EQ(has(Kind::DuplicateAttribute), sheet->HasDuplicateAttributes());
        EXPECT_TRUE(sheet->MissingSheetName() || !has(Kind::MissingSheetName));
        EXPECT_EQ(has(Kind::InvalidSheetSize), sheet->HasInvalidSheetSize());
        EXPECT_EQ(has(Kind::UnknownAttribute) || has(Kind::InvalidWhiteSpace),
                  sheet->HasUnallowedAttributes());
    }
    const auto fields = isValid ? sheet->GetFilterFields() : std::vector<TString>();
    EXPECT_EQ(has(Kind::DuplicateField),
              std::set<TString>(fields.begin(), fields.end()).size() < fields.size());
    const bool isError = isCalledSheet && !isValid && content.Find(u'=', 0) >= 0;
    for (const Diagnostic& diagnostic : diagnostics)
        EXPECT_TRUE(!isError || diagnostic.Severity == DiagnosticSeverity::Error);
    EXPECT_TRUE(!isValid || diagnostics.empty() ||
                diagnostics.front().Severity == DiagnosticSeverity::Warning);
}

/// The names of sheets and fields, against the operations that list those of valid elements.
inline void ExpectNames(const TString& tooltip, const std::vector<ElementRanges>& elements)
{
    std::set<TString> sheets;
    std::set<TString> fields;
    std::int64_t start = 0;
    for (const SheetOrFieldName& name : FindSheetAndFieldNames(tooltip)) {
        EXPECT_LE(std::exchange(start, name.Range.start), name.Range.start);
        TString written = PartOf(tooltip, name.Range);
        const auto element = std::find_if(elements.begin(), elements.end(), [&](const ElementRanges& other) {
            return Show(other.Element) == Show(name.Element);
        });
        ASSERT_TRUE(element != elements.end());
        EXPECT_TRUE(element->Content.start <= name.Range.start && name.Range.end <= element->Content.end);
        EXPECT_EQ(name.Status == NameStatus::InUnclosedElement, element->End != ElementEnd::Bracket);
        const bool isContent = Show(name.Range) == Show(element->Content);
        if (!isContent)
            UnescapeQuotes(written);
        EXPECT_EQ(Show(written), Show(name.Name));
        if (name.Status == NameStatus::Reachable && !isContent)
            (name.Kind == NameKind::Sheet ? sheets : fields).insert(name.Name);
    }
    EXPECT_EQ(Show(sheets), Show(GetTargetSheetNamesFromTooltipText(tooltip)));
    const auto all = GetFilterFieldsFromSheetMarkupInTooltipText(tooltip);
    EXPECT_EQ(Show(fields), Show(std::set<TString>(all.begin(), all.end())));
}

/// Fixes mend their diagnostics, make no new errors, and safe ones keep all sheets.
inline void ExpectFixes(const TString& tooltip)
{
    SCOPED_TRACE(Show(tooltip));
    const auto errorsAt = [](const TString& text, std::int64_t start) {
        const std::vector<Diagnostic> all = FindDiagnostics(text);
        return std::count_if(all.begin(), all.end(), [start](const Diagnostic& diagnostic) {
            return diagnostic.Severity == DiagnosticSeverity::Error && diagnostic.Element.start == start;
        });
    };
    const auto sheets = GetTargetSheetNamesFromTooltipText(tooltip);
    const auto expectKept = [&](const TString& fixed) {
        const auto now = GetTargetSheetNamesFromTooltipText(fixed);
        EXPECT_TRUE(std::includes(now.begin(), now.end(), sheets.begin(), sheets.end())) << Show(fixed);
    };
    for (const Diagnostic& diagnostic : FindDiagnostics(tooltip))
        for (const MarkupFix& fix : FindFixes(tooltip, diagnostic)) {
            const TString fixed = ApplyTextEdits(tooltip, fix.Edits);
            SCOPED_TRACE(Show(fix.Title) + ": " + Show(fixed));
            EXPECT_FALSE(fix.Title.empty() || fix.Edits.empty());
            if (fix.IsSafe) {
                const std::int64_t start = diagnostic.Element.start;
                EXPECT_LE(errorsAt(fixed, start), errorsAt(tooltip, start));
                expectKept(fixed);
            }
            for (const Diagnostic& other : FindDiagnostics(fixed))
                EXPECT_FALSE(other.Kind == diagnostic.Kind && other.Range.start == diagnostic.Range.start &&
                             other.Range.end == diagnostic.Range.end &&
                             Show(TextIn(fixed, other.Range)) == Show(TextIn(tooltip, diagnostic.Range)));
        }
    const TString fixed = ApplyTextEdits(tooltip, FixTooltip(tooltip));
    expectKept(fixed);
    EXPECT_TRUE(FixTooltip(fixed).empty()) << Show(fixed);
}

inline void ExpectRangesAndDiagnostics(const TString& tooltip)
{
    SCOPED_TRACE(Show(tooltip));
    const std::vector<Diagnostic> diagnostics = FindDiagnostics(tooltip);
    EXPECT_TRUE(std::is_sorted(
        diagnostics.begin(), diagnostics.end(), [](const Diagnostic& left, const Diagnostic& right) {
            return std::pair(left.Range.start, left.Kind) < std::pair(right.Range.start, right.Kind);
        }));
    for (const Diagnostic& diagnostic : diagnostics) {
        EXPECT_TRUE(0 <= diagnostic.Element.start && diagnostic.Element.start <= diagnostic.Range.start &&
                    diagnostic.Range.start <= diagnostic.Range.end &&
                    diagnostic.Range.end <= diagnostic.Element.end &&
                    diagnostic.Element.end <= tooltip.length());
        const TString message = GetDiagnosticMessage(tooltip, diagnostic);
        EXPECT_TRUE(message.length() > 20 && message.Find(u'\n', 0) < 0) << Show(message);
    }
    TString content;
    std::int64_t end = 0;
    int walked = 0; // the end of the last terminated element
    const std::vector<ElementRanges> elements = FindElementRanges(tooltip);
    ExpectNames(tooltip, elements);
    for (const ElementRanges& element : elements) {
        EXPECT_TRUE(end <= element.Element.start && element.Element.end <= tooltip.length());
        end = element.Element.end;
        EXPECT_EQ(Show(PartOf(tooltip, element.Element)) + (element.End == ElementEnd::Bracket ? "" : ">"),
                  Show(SurroundWithAngleBrackets(PartOf(tooltip, element.Content))));
        if (element.End == ElementEnd::Bracket) {
            EXPECT_EQ(FindNextMarkupElement(tooltip, walked, content), element.Element.start);
            EXPECT_EQ(Show(PartOf(tooltip, element.Content)), Show(content));
            walked = static_cast<int>(end);
        }
        ExpectAttributes(tooltip, element);
        ExpectDiagnostics(tooltip, element, diagnostics);
    }
    EXPECT_EQ(FindNextMarkupElement(tooltip, walked, content), -1);
}

/// Compares InsertFilterFieldAt with InsertFilterFieldIntoMarkupText on the fields that the selection
/// touches.
inline void ExpectInsertion(const TString& tooltip, const CorvaneCharRange& selection, const TString& field)
{
    const TString all = Text(u"ALL");
    const auto insertion = InsertFilterFieldAt(tooltip, selection, field, all);
    if (!insertion)
        return;
    const TString edited = ApplyTextEdits(tooltip, {insertion->Edit});
    SCOPED_TRACE(Show(tooltip) + ' ' + Show(selection) + " -> " + Show(edited));
    EXPECT_EQ(edited[insertion->NewCursorPosition - 1], u'"');
    const auto before = FindElementRanges(tooltip);
    const auto after = FindElementRanges(edited);
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        const TString content = PartOf(tooltip, before[i].Content);
        const TString newContent = PartOf(edited, after[i].Content);
        EXPECT_EQ(before[i].End, after[i].End);
        if (selection.start < before[i].Content.start || before[i].Content.end < selection.end) {
            EXPECT_EQ(content, newContent);
            continue;
        }
        std::vector<int> indices;
        const auto attributes = FindAttributeRanges(tooltip, before[i].Content);
        const auto filter = std::find_if(attributes.begin(), attributes.end(), IsFilter);
        for (std::size_t j = 0; filter != attributes.end() && j < filter->Fields.size(); ++j) {
            const CorvaneCharRange& range = filter->Fields[j].first;
            if (range.start < selection.end && selection.start < range.end)
                indices.push_back(static_cast<int>(j));
        }
        const auto sheet = VizInTooltipProperties::FromMarkupText(MarkupText(newContent));
        ASSERT_TRUE(sheet);
        // None if an attribute's name holds a quote: its canonical form doesn't parse.
        const auto expected = VizInTooltipProperties::FromMarkupText(
            InsertFilterFieldIntoMarkupText(MarkupText(content), field, all, indices));
        if (expected) {
            EXPECT_EQ(Show(sheet->GetFilterFields()), Show(expected->GetFilterFields()));
        }
    }
}

/// Renames a sheet and a field to names with every special character.
inline void ExpectRenaming(const TString& tooltip, const TString& sheet, const TString& field)
{
    for (const std::u16string_view newField : {u"x", u"y''z<<", u"q'r>>"}) {
        if (Text(newField) == sheet)
            continue; // ShowReading would rename the field again
        const std::map<TString, TString> newSheets{{sheet, Text(u"'<S>")}};
        const std::map<TString, TString> newFields{{field, Text(newField)}};
        const auto edits = RenameSheetsAndFields(tooltip, newSheets, newFields);
        const TString renamed = ApplyTextEdits(tooltip, edits);
        const auto names = FindSheetAndFieldNames(tooltip);
        for (const TextEdit& edit : edits)
            EXPECT_TRUE(std::any_of(names.begin(), names.end(), [&](const SheetOrFieldName& name) {
                return name.Status == NameStatus::Reachable && Show(name.Range) == Show(edit.Range);
            }));
        std::map<TString, TString> all = newSheets;
        all.insert(newFields.begin(), newFields.end());
        EXPECT_EQ(ShowReading(tooltip, all), ShowReading(renamed, all))
            << Show(tooltip) << " -> " << Show(renamed);
        EXPECT_TRUE(newField != u"x" || RenameSheetsAndFields(renamed, newSheets, newFields).empty())
            << "a plain name is always possible: " << Show(renamed);
    }
}
