/// Compares the library with what a host might write instead, on the same texts. All must give the same
/// answers before any is timed.

#include "Peers.h"
#include "Texts.h"

#include <corvanemarkup/VizInTooltip.h>

#include <benchmark/benchmark.h>

#include <iostream>
#include <list>
#include <memory>

namespace {

using namespace benchmarks;
using namespace corvanemarkup;

std::u16string ToU16String(const TString& text)
{
    return std::u16string(text.constData(), static_cast<std::size_t>(text.length()));
}

/// Texts in the forms that the library and its peers take, equally compact in memory.
struct Texts
{
    explicit Texts(const std::vector<std::u16string>& texts) : Peers(texts)
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

/// Lower bounds of any implementation. "answer only": a copy of each answer found before, which is the cost
/// of the strings and the standard containers. "limit": each byte of the text read once, and such a copy.
template <typename Answer>
void RegisterLimits(const std::string& task, const Texts& texts, Answer (*answer)(const TString&))
{
    struct Answered
    {
        std::u16string_view Text;
        Answer Found;
    };
    const auto answers = std::make_shared<std::vector<Answered>>();
    for (std::size_t i = 0; i < texts.Library.size(); ++i)
        answers->push_back({texts.Peers[i], answer(texts.Library[i])});
    Register(task + "/answer only", *answers, [answers](const Answered& text) { return text.Found; });
    Register(task + "/limit", *answers, [answers](const Answered& text) {
        char16_t units = 0;
        for (const char16_t unit : text.Text)
            units = static_cast<char16_t>(units ^ unit);
        benchmark::DoNotOptimize(units);
        return text.Found;
    });
}

template <typename Peer>
bool Agrees(const Peer& peer, const Texts& texts, bool withFields)
{
    for (std::size_t i = 0; i < texts.Peers.size(); ++i) {
        Names names;
        for (const TString& name : VizInTooltip::GetTargetSheetNamesFromTooltipText(texts.Library[i]))
            names.insert(ToU16String(name));
        if (names != peer.FindNames(texts.Peers[i]))
            return false;
        if (!withFields)
            continue;
        FieldsBySheet sheets;
        for (const auto& [name, fields] :
             VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(texts.Library[i]))
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
        std::cerr << name << " gives a different answer on " << textsName << '\n';
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
    constexpr auto findNames = VizInTooltip::GetTargetSheetNamesFromTooltipText;
    constexpr auto findFields = VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText;

    const Pcre pcre;
    const HandWritten handWritten;
    // Fields only where no sheet is named twice: elsewhere the peers may choose another element's.
    const auto registerNames = [&](const std::string& name, const Texts& texts, bool withFields = false) {
        Register("names " + name + "/corvanemarkup", texts.Library, findNames);
        RegisterPeer("PCRE2 JIT", pcre, name, texts, withFields);
        RegisterPeer("u16string_view", handWritten, name, texts, withFields);
    };

    constexpr std::size_t largest = std::size_t(16) << 20;
    const Texts shortTooltips(ShortTooltips(20000));
    const Texts longTooltip({LongTooltip(largest)});
    const Texts prose({Prose(largest)});
    registerNames("S", shortTooltips, true);
    registerNames("L", longTooltip);
    registerNames("P", prose);
    Register("fields S/corvanemarkup", shortTooltips.Library, findFields);
    RegisterLimits("names S", shortTooltips, findNames);
    RegisterLimits("fields S", shortTooltips, findFields);
    RegisterLimits("names L", longTooltip, findNames);
    RegisterLimits("names P", prose, findNames);

    std::list<Texts> bySize;
    for (std::size_t size = 1024; size <= largest; size *= 4)
        registerNames("in " + std::to_string(size), bySize.emplace_back(std::vector{LongTooltip(size)}));

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
