/// The library beside what a host might write instead, on the same texts. All must give the same answers
/// before any of them is timed.

#include "Peers.h"
#include "Texts.h"

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/VizInTooltip.h>

#include <benchmark/benchmark.h>

#include <iostream>

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

    const Texts shortTooltips(ShortTooltips(20000));
    const Texts longTooltip({LongTooltip(std::size_t(16) << 20)});
    const Texts prose({Prose(std::size_t(16) << 20)});
    const Pcre pcre;
    const HandWritten handWritten;
    const Pugixml pugixml;

    const struct
    {
        const char* Name;
        const Texts& Inputs;
        bool WithFields;
    } rows[] = {{"S", shortTooltips, true}, {"L", longTooltip, false}, {"P", prose, false}};
    for (const auto& row : rows) {
        const std::string name = row.Name;
        Register("names " + name + "/corvanemarkup", row.Inputs.Library,
                 VizInTooltip::GetTargetSheetNamesFromTooltipText);
        if (row.WithFields)
            Register("fields " + name + "/corvanemarkup", row.Inputs.Library,
                     VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText);
        Register("elements " + name + "/corvanemarkup", row.Inputs.Library, CollectMarkupElements);
        RegisterPeer("PCRE2 JIT", pcre, name, row.Inputs, row.WithFields);
        RegisterPeer("u16string_view", handWritten, name, row.Inputs, row.WithFields);
        RegisterPeer("pugixml", pugixml, name, row.Inputs, row.WithFields);
    }

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
