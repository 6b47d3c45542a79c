#pragma once

/// Every operation that the library exports, in one table.

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>

/// One text in all the forms that operations take, and what they write to.
struct Arguments
{
    explicit Arguments(const TString& text);

    TString Text;
    TString Quoted = TString(u"\"", 1) + Text + u'"';
    corvanemarkup::MarkupText Content;            ///< without the outer brackets, as an element's content
    TString Phrase = TString(Content).mid(5, -1); ///< without an element name, too
    corvanemarkup::AttributeNamesAndValues List;
    corvanemarkup::VizInTooltipProperties Sheet{List};
    std::set<TString> Elements = corvanemarkup::CollectMarkupElements(Text);
    std::vector<TString> Fields{Elements.begin(), Elements.end()};
    std::map<TString, TString> NewNames; ///< for all elements and filter fields, with a quote
    TString Delimiters;                  ///< as many as the text has code units, which are none of them
    corvanemarkup::CorvaneMarkupTokenizer InFront{TString(u"<> ", 3) + Text}; ///< after the first element
    TString Written = Quoted;
    corvanemarkup::MarkupText Replaced{Quoted};
    int Length = 99;
    std::vector<corvanemarkup::AttributeNameAndValue> Pairs;
};

struct Operation
{
    Operation(const char* name, void (*function)(Arguments&)) : Name(name), Function(function) {}
    const char* Name;
    void (*Function)(Arguments&);

    /// Runs the operation. That it finds a condition broken is an outcome like others.
    void Run(Arguments& arguments) const;
    /// The processor time of a run, in milliseconds.
    [[nodiscard]] double TimeOf(Arguments& arguments) const;
};

const std::vector<Operation>& Operations();
