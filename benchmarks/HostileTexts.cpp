#include "HostileTexts.h"

#include <algorithm>

namespace benchmarks {

namespace {

HostileFamily::Part Repeated(std::u16string_view text)
{
    return {std::u16string(text), true};
}

void AppendNumber(std::u16string& text, std::size_t number)
{
    for (const char digit : std::to_string(number))
        text += static_cast<char16_t>(digit);
}

std::vector<HostileFamily> MakeHostileFamilies()
{
    std::vector<HostileFamily> families = {
        {"run of <", {Repeated(u"<")}},
        {"run of >", {Repeated(u">")}},
        {"run of quotes", {Repeated(u"\"")}},
        {"run of spaces", {Repeated(u" ")}},
        {"quotes behind a sheet's start", {{u"<Sheet name="}, Repeated(u"\"")}},
        {"unfinished elements", {Repeated(u"<a")}},
        {"unfinished sheet elements", {Repeated(u"<Sheet name=\"a\" ")}},
        {"unfinished quotes", {Repeated(u"<Sheet name=\"")}},
        {"elements that restart", {Repeated(u"<a"), {u">"}}},
        {"sheet elements that restart", {Repeated(u"<Sheet name=\"a\" "), {u">"}}},
        {"doubled delimiters in one element", {{u"<a"}, Repeated(u"b>>\"\""), {u">"}}},
        {"doubled delimiters in one sheet element", {{u"<Sheet name=\"a\" "}, Repeated(u"b>>\"\""), {u">"}}},
        {"doubled < in elements", {Repeated(u"<a<<b<<c<<d<<e>")}},
        // A walk that refuses the whole element meets another one, up to the same end, from the second `<` of
        // each pair. The contents that its predicate sees are quadratic in the text, with a small factor.
        {"doubled < far apart in one element",
         {{u"<a"}, Repeated(u"<<" + std::u16string(500, u'b')), {u">"}}},
        {"doubled < in front of elements", {Repeated(u"<<a>")}},
        {"doubled > behind elements", {Repeated(u"<a>>")}},
        // Read from an even offset, the run restarts as the second element, and from an odd one as the first:
        // a walk that refuses both meets them by turns.
        {"long elements by turns",
         {{u"<"}, Repeated(u"<<"), Repeated(u"a"), {u"><"}, Repeated(u"b"), {u">"}}},
        {"elements by turns over and over", {Repeated(u"<<<a><b>")}},
        {"white space behind the element name", {{u"<Sheet "}, Repeated(u" \t"), {u"<Sheet name"}}},
        {"white space behind the attribute name", {{u"<Sheet name"}, Repeated(u"\t ")}},
        {"names that white space follows", {Repeated(u"<Sheet name\t")}},
        {"fields", {Repeated(u"<f>,")}},
        {"numbered fields", {Repeated(u"<f#>,")}},
        {"commas", {Repeated(u",")}},
        {"a wide number", {{u"<Sheet name=\"a\" maxwidth=\""}, Repeated(u"1"), {u"\">"}}},
        {"attributes", {{u"<Sheet name=\"a\""}, Repeated(u" n#=\"v\""), {u">"}}},
        {"attributes without spaces", {{u"<Sheet name=\"a\" "}, Repeated(u"n#=\"v\""), {u">"}}},
        {"attributes of one name", {{u"<Sheet name=\"a\""}, Repeated(u" filter=\"<v#>\""), {u">"}}},
        {"numbered elements", {Repeated(u"<a#>")}},
        {"sheets", {Repeated(u"<Sheet name=\"s#\" filter=\"<f>\">")}},
        {"elements of one sheet", {Repeated(u"<Sheet name=\"s\" filter=\"<f#>\">")}},
        {"invalid sheet elements", {Repeated(u"<Sheet name=\"\" name=\"#\">")}},
    };
    for (std::size_t i = 0, count = families.size(); i < count; ++i)
        families.push_back(families[i].AsFilterValue());
    return families;
}

} // namespace

std::u16string HostileFamily::Make(std::size_t length) const
{
    const auto repeatedParts =
        std::count_if(m_parts.begin(), m_parts.end(), [](const Part& part) { return part.IsRepeated; });
    const std::size_t share = length / static_cast<std::size_t>(repeatedParts);
    std::u16string text;
    for (const Part& part : m_parts) {
        const std::size_t end = text.size() + (part.IsRepeated ? share : 1);
        for (std::size_t i = 0; text.size() < end; ++i)
            for (const char16_t unit : part.Text)
                if (unit == u'#')
                    AppendNumber(text, i);
                else
                    text += unit;
    }
    return text;
}

HostileFamily HostileFamily::AsFilterValue() const
{
    std::vector<Part> parts = {{u"<Sheet name=\"a\" filter=\""}};
    for (const Part& part : m_parts) {
        Part& escaped = parts.emplace_back(Part{{}, part.IsRepeated});
        for (const char16_t unit : part.Text)
            escaped.Text.append(unit == u'"' ? 2 : 1, unit);
    }
    parts.push_back({u"\">"});
    return HostileFamily(m_name + ", as a filter value", std::move(parts));
}

const std::vector<HostileFamily>& HostileFamilies()
{
    static const std::vector<HostileFamily> families = MakeHostileFamilies();
    return families;
}

} // namespace benchmarks
