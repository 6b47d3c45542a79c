/// The library beside what a host might write instead, on the same texts. All must give the same answers
/// before any of them is timed.

#include "Peers.h"
#include "Texts.h"

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/VizInTooltip.h>

#include <benchmark/benchmark.h>

#include <iostream>
#include <list>

namespace {

using namespace benchmarks;

std::u16string ToU16String(const TString& text)
{
    return std::u16string(text.constData(), static_cast<std::size_t>(text.length()));
}

/// Texts in the forms that the library and its peers take.
struct Texts
{
    explicit Texts(std::vector<std::u16string> texts) : Peers(std::move(texts))
    {
        for (const std::u16string& text : Peers)
            Library.push_back(ToTString(text));
    }

    std::vector<std::u16string> Peers;
    std::vector<TString> Library;
};

/// The library's answers built from what was found beforehand: what no search, however fast, can do without.
std::set<TString> BuildNames(const std::vector<FoundSheet>& sheets)
{
    std::set<TString> names;
    for (const FoundSheet& sheet : sheets)
        names.insert(ToTString(sheet.Name));
    return names;
}

std::map<TString, std::set<TString>> BuildFields(const std::vector<FoundSheet>& sheets)
{
    std::map<TString, std::set<TString>> fieldsBySheet;
    for (const FoundSheet& sheet : sheets) {
        std::set<TString> fields;
        for (const std::u16string_view field : sheet.Fields)
            fields.insert(ToTString(field));
        fieldsBySheet.emplace(ToTString(sheet.Name), std::move(fields));
    }
    return fieldsBySheet;
}

template <typename Inputs, typename Function>
void Register(const std::string& name, const Inputs& inputs, Function function)
{
    benchmark::RegisterBenchmark(name.c_str(), [&inputs, function](benchmark::State& state) {
        for (auto _ : state)
            for (const auto& input : inputs)
                benchmark::DoNotOptimize(function(input));
    });
}

template <typename Peer>
bool Agrees(const Peer& peer, const Texts& texts, bool withFields)
{
    for (std::size_t i = 0; i < texts.Peers.size(); ++i) {
        Names names;
        for (const TString& name :
             corvanemarkup::VizInTooltip::GetTargetSheetNamesFromTooltipText(texts.Library[i]))
            names.insert(ToU16String(name));
        if (names.empty() || names != peer.FindNames(texts.Peers[i]))
            return false;
        if (!withFields)
            continue;
        FieldsBySheet sheets;
        for (const auto& [name, fields] :
             corvanemarkup::VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(
                 texts.Library[i]))
            for (const TString& field : fields)
                sheets[ToU16String(name)].insert(ToU16String(field));
        if (sheets != peer.FindFields(texts.Peers[i]))
            return false;
    }
    return true;
}

template <typename Peer>
void RegisterPeer(const std::string& name, const Peer& peer, const std::string& textsName, const Texts& texts,
                  bool withFields)
{
    if (!Agrees(peer, texts, withFields)) {
        std::cerr << name << " gives another answer on " << textsName << '\n';
        std::exit(1);
    }
    Register("names " + textsName + '/' + name, texts.Peers,
             [&peer](const std::u16string& text) { return peer.FindNames(text); });
    if (withFields)
        Register("fields " + textsName + '/' + name, texts.Peers,
                 [&peer](const std::u16string& text) { return peer.FindFields(text); });
}

} // namespace

int main(int argumentCount, char** arguments)
{
    using namespace corvanemarkup;

    const Pcre pcre;
    const HandWritten handWritten;
    const Pugixml pugixml;
    const auto registerAll = [&](const std::string& name, const Texts& texts, bool withFields) {
        Register("names " + name + "/corvanemarkup", texts.Library,
                 VizInTooltip::GetTargetSheetNamesFromTooltipText);
        if (withFields)
            Register("fields " + name + "/corvanemarkup", texts.Library,
                     VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText);
        RegisterPeer("PCRE2 JIT", pcre, name, texts, withFields);
        RegisterPeer("u16string_view", handWritten, name, texts, withFields);
        RegisterPeer("pugixml", pugixml, name, texts, withFields);
    };

    constexpr std::size_t largest = std::size_t(16) << 20;
    const Texts shortTooltips(ShortTooltips(20000));
    const Texts longTooltip({LongTooltip(largest)});
    const Texts prose({Prose(largest)});
    registerAll("S", shortTooltips, true);
    registerAll("L", longTooltip, false);
    registerAll("P", prose, false);
    Register("elements S/corvanemarkup", shortTooltips.Library, CollectMarkupElements);
    Register("elements L/corvanemarkup", longTooltip.Library, CollectMarkupElements);
    Register("elements P/corvanemarkup", prose.Library, CollectMarkupElements);

    std::vector<std::vector<FoundSheet>> found;
    for (const std::u16string& text : shortTooltips.Peers)
        found.push_back(handWritten.FindSheets(text));
    Register("names S/output alone", found, BuildNames);
    Register("fields S/output alone", found, BuildFields);

    std::list<Texts> bySize;
    for (std::size_t size = 1024; size <= largest; size *= 4)
        registerAll("in " + std::to_string(size), bySize.emplace_back(std::vector{LongTooltip(size)}), false);

    const std::vector<MarkupText> element(
        1, MarkupText(ToTString(
               u"Sheet name=\"Sales\" maxwidth=\"300\" maxheight=\"300\" filter=\"<Region>,<Year>\"")));
    Register("one edit at the cursor/corvanemarkup", element, [](const MarkupText& text) {
        return VizInTooltip::InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(
            text, {60, 60}, ToTString(u"Category"), ToTString(u"All"));
    });

    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
