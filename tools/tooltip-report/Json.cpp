#include "Json.h"

namespace tooltipreport {

void JsonWriter::Begin(const std::string& name, const char* brackets)
{
    BeginValue(name);
    m_out << brackets[0];
    m_levels.push_back({brackets[1], true});
}

void JsonWriter::End()
{
    const Level level = m_levels.back();
    m_levels.pop_back();
    if (!level.IsEmpty)
        m_out << '\n' << std::string(m_levels.size(), ' ');
    m_out << level.ClosingBracket;
    if (m_levels.empty())
        m_out << '\n';
}

void JsonWriter::Member(const std::string& name, const Json& value)
{
    BeginValue(name);
    m_out << value.dump();
}

void JsonWriter::Item(const Json& value)
{
    Member({}, value);
}

void JsonWriter::BeginValue(const std::string& name)
{
    if (m_levels.empty())
        return;
    m_out << (m_levels.back().IsEmpty ? "\n" : ",\n") << std::string(m_levels.size(), ' ');
    m_levels.back().IsEmpty = false;
    if (!name.empty())
        m_out << Json(name).dump() << ": ";
}

void BeginDocument(JsonWriter& writer, const std::string& verb)
{
    constexpr int formVersion = 1;
    writer.BeginObject();
    writer.Member("version", formVersion);
    writer.Member("verb", verb);
}

Json RangeMembers(const Positions& positions, corvanemarkup::CorvaneCharRange range)
{
    const auto position = [&positions](std::int64_t offset) {
        const LineAndColumn place = positions.At(offset);
        return Json{{"offset", offset}, {"line", place.Line}, {"column", place.Column}};
    };
    return {{"start", position(range.start)}, {"end", position(range.end)}};
}

} // namespace tooltipreport
