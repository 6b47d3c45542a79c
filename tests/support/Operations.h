#pragma once

/// Every operation that the library exports, in one table.

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>

/// One text in every form that operations take, and their out-parameters.
struct Arguments
{
    explicit Arguments(const TString& text);

    TString Text;
    TString Quoted = TString(u"\"", 1) + Text + u'"';
    corvanemarkup::MarkupText Content;            ///< without the outer brackets
    TString Phrase = TString(Content).mid(5, -1); ///< and without the element name
    corvanemarkup::AttributeNamesAndValues List;
    corvanemarkup::VizInTooltipProperties Sheet{List};
    std::set<TString> Elements = corvanemarkup::CollectMarkupElements(Text);
    std::vector<TString> Fields{Elements.begin(), Elements.end()};
    std::map<TString, TString> NewNames; ///< of all elements and fields; with a quote
    TString Delimiters;                  ///< as many as the text has units; none is in it
    corvanemarkup::CorvaneMarkupTokenizer Tokenizer{TString(u"<> ", 3) + Text}; ///< after the first element
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

    /// Runs the operation. A precondition violation is a valid outcome.
    void Run(Arguments& arguments) const;
    /// The CPU time of a run, in milliseconds.
    [[nodiscard]] double TimeOf(Arguments& arguments) const;
};

const std::vector<Operation>& Operations();
