#include "Faults.h"

#include "Names.h"
#include "TooltipText.h"

#include <corvanemarkup/SheetMarkupFormat.h>

#include <algorithm>
#include <stdexcept>

namespace tooltipreport {

namespace {

using corvanemarkup::VizInTooltip::LargestMaxSize;
using Kind = corvanemarkup::VizInTooltip::MarkupFaultKind;

struct Description
{
    const char* Identifier;
    std::string Message;
};

/// The names of the attributes that a sheet element can have.
std::string AttributeList()
{
    std::string list;
    for (const std::u16string_view name : corvanemarkup::VizInTooltip::Impl::SheetMarkupAttributeLiterals)
        list += (list.empty() ? "" : ", ") + ToUtf8(TString(name.data(), -1));
    return list;
}

Description Describe(Kind kind)
{
    switch (kind) {
    case Kind::MissingEnd:
        return {"missing-end", "This < has no >, so that nothing after it is read: add the >, or write << if "
                               "plain text is meant."};
    case Kind::OpenQuotes:
        return {"open-quotes",
                "The quotes of this element are never closed, so that nothing after it is read: "
                "add the closing quote."};
    case Kind::Restart:
        return {"restart", "This < is given up at the next <: add a > between the two, or write << if plain "
                           "text is meant."};
    case Kind::OtherLetterCase:
        return {"other-letter-case", "A sheet element is called Sheet, in these letters: write it so."};
    case Kind::NoAttributes:
        return {"no-attributes", "This sheet element has no attributes: add name=\"...\" with its sheet."};
    case Kind::OtherWhiteSpace:
        return {"other-white-space",
                "Only spaces separate attributes: write a space in place of this tab or line break."};
    case Kind::SpaceAroundEquals:
        return {"space-around-equals", "White space stands around this =: remove it."};
    case Kind::UnquotedValue:
        return {"unquoted-value",
                "A value stands between double quotes, with a space after it: write name=\"value\"."};
    case Kind::MissingValue:
        return {"missing-value", "This has no value: write name=\"value\", or remove it."};
    case Kind::UnprotectedQuotes:
        return {"unprotected-quotes",
                "The element ends between these quotes: close them, or, if the value goes on, put one of " +
                    AttributeList() + " first, so that quotes protect brackets."};
    case Kind::DuplicateAttribute:
        return {"duplicate-attribute", "The element has this attribute already: remove one of the two."};
    case Kind::MissingSheetName:
        return {"missing-sheet-name", "The element names no sheet: write its name into name=\"...\"."};
    case Kind::InvalidSheetSize:
        return {"invalid-sheet-size", "maxwidth is a number from 1 to " +
                                          std::to_string(LargestMaxSize.width) +
                                          ", and maxheight one from 1 to " +
                                          std::to_string(LargestMaxSize.height) + ": write such a number."};
    case Kind::UnallowedAttribute:
        return {"unallowed-attribute",
                "A sheet element has no attributes but " + AttributeList() + ": correct or remove this one."};
    case Kind::StrayFilterText:
        return {"stray-filter-text",
                "This is not part of a field, and has no effect: write fields as <Field>, "
                "or remove it."};
    case Kind::DuplicateField:
        return {"duplicate-field", "The filter has this field already: remove one of the two."};
    }
    throw std::logic_error("a fault of an unknown kind");
}

Description Describe(const Finding& finding)
{
    if (finding.Kind)
        return Describe(*finding.Kind);
    return {"unknown-sheet", "No sheet is called " + Quoted(finding.SheetName) +
                                 ": correct the name, or list the sheet as one that exists."};
}

} // namespace

std::vector<Finding> FindFaults(const TString& tooltip, const boost::optional<std::set<TString>>& sheets)
{
    std::vector<Finding> findings;
    for (const auto& fault : corvanemarkup::VizInTooltip::FindMarkupFaults(tooltip))
        findings.push_back({fault.Kind, fault.Range, fault.IsError, {}});
    if (!sheets)
        return findings;

    const auto faultCount = static_cast<std::ptrdiff_t>(findings.size());
    ForEachName(tooltip, [&](NameKind kind, const TString& name, corvanemarkup::CorvaneCharRange range) {
        if (kind == NameKind::Sheet && sheets->count(name) == 0)
            findings.push_back({boost::none, range, true, name});
    });
    const auto isBefore = [](const Finding& left, const Finding& right) {
        return left.Range.start < right.Range.start;
    };
    std::inplace_merge(findings.begin(), findings.begin() + faultCount, findings.end(), isBefore);
    return findings;
}

std::string Identifier(const Finding& finding)
{
    return Describe(finding).Identifier;
}

std::string Message(const Finding& finding)
{
    return Describe(finding).Message;
}

std::vector<Finding> OneOfEachKind()
{
    std::vector<Finding> findings;
    for (int kind = 0; kind <= static_cast<int>(Kind::DuplicateField); ++kind)
        findings.push_back({static_cast<Kind>(kind), {0, 0}, true, {}});
    findings.push_back({boost::none, {0, 0}, true, TString(u"...", -1)});
    return findings;
}

} // namespace tooltipreport
