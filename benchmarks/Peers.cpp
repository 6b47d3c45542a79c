#include "Peers.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>
#include <stdexcept>

namespace benchmarks {

namespace {

constexpr std::u16string_view AllFields = u"All Fields";

/// The value with its doubled quotes made single.
std::u16string Unescaped(std::u16string_view value)
{
    std::u16string unescaped;
    for (std::size_t quote; (quote = value.find(u"\"\"")) != value.npos; value.remove_prefix(quote + 2))
        unescaped.append(value, 0, quote + 1);
    return unescaped.append(value);
}

/// Adds the sheet unless it is known or its filter has no fields. A null `filter` means "All Fields".
void AddSheet(FieldsBySheet& sheets, std::u16string_view name, const std::u16string_view* filter)
{
    std::set<std::u16string> fields;
    if (filter == nullptr) {
        fields.emplace(AllFields);
    } else {
        const std::u16string value = Unescaped(*filter);
        for (std::size_t start = value.find(u'<'); start != value.npos;) {
            const std::size_t end = value.find(u'>', start);
            fields.insert(value.substr(start + 1, end - start - 1));
            start = value.find(u'<', end);
        }
    }
    if (!fields.empty())
        sheets.try_emplace(Unescaped(name), std::move(fields));
}

} // namespace

struct Pcre::Compiled
{
    pcre2_code* Code;
    pcre2_match_data* Match;
};

Pcre::Pcre() : m_compiled(new Compiled{})
{
    constexpr char16_t pattern[] = uR"x(<Sheet(?: ++(?:name="((?:[^"]++|"")++)"|filter="((?:[^"]++|"")*+)")x"
                                   uR"x(|max(?:width|height)="[0-9]++"))++ *+>)x";
    int error = 0;
    PCRE2_SIZE offset = 0;
    m_compiled->Code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern), PCRE2_ZERO_TERMINATED, 0, &error,
                                     &offset, nullptr);
    if (m_compiled->Code == nullptr || pcre2_jit_compile(m_compiled->Code, PCRE2_JIT_COMPLETE) != 0)
        throw std::runtime_error("PCRE2 can't compile the expression");
    m_compiled->Match = pcre2_match_data_create_from_pattern(m_compiled->Code, nullptr);
}

Pcre::~Pcre()
{
    pcre2_match_data_free(m_compiled->Match);
    pcre2_code_free(m_compiled->Code);
    delete m_compiled;
}

template <typename Visit>
void Pcre::ForEachSheetElement(std::u16string_view text, Visit visit) const
{
    const auto* const units = reinterpret_cast<PCRE2_SPTR>(text.data());
    const PCRE2_SIZE* const group = pcre2_get_ovector_pointer(m_compiled->Match);
    for (PCRE2_SIZE from = 0;; from = group[1]) {
        const int groups =
            pcre2_jit_match(m_compiled->Code, units, text.size(), from, 0, m_compiled->Match, nullptr);
        if (groups < 2)
            break;
        const std::u16string_view name = text.substr(group[2], group[3] - group[2]);
        const bool hasFilter = groups > 2 && group[4] != PCRE2_UNSET;
        const std::u16string_view filter = hasFilter ? text.substr(group[4], group[5] - group[4]) : name;
        visit(name, hasFilter ? &filter : nullptr);
    }
}

Names Pcre::FindNames(std::u16string_view text) const
{
    Names names;
    ForEachSheetElement(
        text, [&](std::u16string_view name, const std::u16string_view*) { names.insert(Unescaped(name)); });
    return names;
}

FieldsBySheet Pcre::FindFields(std::u16string_view text) const
{
    FieldsBySheet sheets;
    ForEachSheetElement(text, [&](std::u16string_view name, const std::u16string_view* filter) {
        AddSheet(sheets, name, filter);
    });
    return sheets;
}

namespace {

/// The first quote at or after `from` that isn't doubled.
std::size_t FindClosingQuote(std::u16string_view text, std::size_t from)
{
    for (;;) {
        const std::size_t quote = text.find(u'"', from);
        if (quote == text.npos || quote + 1 == text.size() || text[quote + 1] != u'"')
            return quote;
        from = quote + 2;
    }
}

template <typename Visit>
void ForEachSheetElementByHand(std::u16string_view text, Visit visit)
{
    constexpr std::u16string_view start = u"<Sheet ";
    for (std::size_t at = text.find(start); at != text.npos; at = text.find(start, at)) {
        at += start.size();
        std::u16string_view name;
        std::u16string_view filter;
        const std::u16string_view* found = nullptr;
        while (at < text.size() && text[at] != u'>') {
            if (text[at] == u' ') {
                ++at;
                continue;
            }
            const std::size_t quote = text.find(u'"', at);
            const std::size_t end = quote == text.npos ? text.npos : FindClosingQuote(text, quote + 1);
            if (end == text.npos)
                return;
            const std::u16string_view attribute = text.substr(at, quote - at - 1);
            if (attribute == u"name") {
                name = text.substr(quote + 1, end - quote - 1);
            } else if (attribute == u"filter") {
                filter = text.substr(quote + 1, end - quote - 1);
                found = &filter;
            }
            at = end + 1;
        }
        if (!name.empty())
            visit(name, found);
    }
}

} // namespace

Names HandWritten::FindNames(std::u16string_view text) const
{
    Names names;
    ForEachSheetElementByHand(
        text, [&](std::u16string_view name, const std::u16string_view*) { names.insert(Unescaped(name)); });
    return names;
}

FieldsBySheet HandWritten::FindFields(std::u16string_view text) const
{
    FieldsBySheet sheets;
    ForEachSheetElementByHand(text, [&](std::u16string_view name, const std::u16string_view* filter) {
        AddSheet(sheets, name, filter);
    });
    return sheets;
}

} // namespace benchmarks
