#pragma once

/// Every operation that the library exports, in one table.

#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <string_view>
#include <vector>

namespace benchmarks {

/// One text in all the forms that operations take.
struct OperationInput
{
    explicit OperationInput(std::u16string_view text);

    TString Text;
    TString QuotedText;
    corvanemarkup::MarkupText Content; ///< without the outer brackets, as an element's content
    corvanemarkup::VizInTooltipProperties Sheet;
    /// Those of the content; of one that isn't read as an element, each word.
    corvanemarkup::AttributeNamesAndValues Attributes;
    std::set<TString> Elements;
    std::vector<TString> Fields;
    TString Delimiters; ///< as many as the text has code units; none that occurs in a hostile text
};

struct Operation
{
    const char* Name;
    void (*Function)(const OperationInput&);

    /// Runs the operation. That it finds a condition broken is an outcome like others.
    void Run(const OperationInput& input) const;
};

const std::vector<Operation>& Operations();

} // namespace benchmarks
