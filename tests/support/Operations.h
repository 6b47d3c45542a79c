#pragma once

/// Every operation that the library exports, in one table.

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>

/// One text in all the forms that operations take, and what they write to.
struct Arguments
{
    explicit Arguments(const TString& text);

    TString Text;
    TString Quoted;                    ///< between quotes; written to as well
    corvanemarkup::MarkupText Content; ///< without the outer brackets, as an element's content
    /// Those of the content; of one that isn't read as an element, each word.
    corvanemarkup::AttributeNamesAndValues List;
    corvanemarkup::VizInTooltipProperties Sheet{List};
    std::set<TString> Elements = corvanemarkup::CollectMarkupElements(Text);
    std::vector<TString> Fields{Elements.begin(), Elements.end()};
    TString Delimiters; ///< as many as the text has code units, which are none of them
    corvanemarkup::CorvaneMarkupTokenizer InFront; ///< on the text, behind an element put in front of it

    TString Found = Quoted;
    corvanemarkup::MarkupText Replaced{Quoted};
    int Length = 99;
    std::vector<corvanemarkup::AttributeNameAndValue> Pairs;
};

struct Operation
{
    const char* Name;
    void (*Function)(Arguments&);

    /// Runs the operation. That it finds a condition broken is an outcome like others.
    void Run(Arguments& arguments) const;
    /// The processor time of a run, in milliseconds.
    [[nodiscard]] double TimeOf(Arguments arguments) const;
};

const std::vector<Operation>& Operations();
