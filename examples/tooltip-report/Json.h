#pragma once

/// JSON that is written piece by piece, so that a long document takes no memory, and what its documents
/// share.

#include "Files.h"
#include "Positions.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

namespace tooltipreport {

/// A JSON value that keeps the order of its members.
using Json = nlohmann::ordered_json;

/// Writes one document. Each `Begin...` has its `End`; a name is given within objects alone.
class JsonWriter
{
public:
    explicit JsonWriter(std::ostream& out) : m_out(out) {}

    void BeginObject(const std::string& name = {}) { Begin(name, "{}"); }
    void BeginList(const std::string& name = {}) { Begin(name, "[]"); }
    void End();
    void Member(const std::string& name, const Json& value);
    void Item(const Json& value);

private:
    void Begin(const std::string& name, const char* brackets);
    void BeginValue(const std::string& name);

    struct Level
    {
        char ClosingBracket;
        bool IsEmpty;
    };
    std::ostream& m_out;
    std::vector<Level> m_levels;
};

/// Begins the document of a verb: the version of the form, and the verb.
void BeginDocument(JsonWriter& writer, const std::string& verb);

/// The members `start` and `end` of what stands in that range.
[[nodiscard]] Json RangeMembers(const Positions& positions, corvanemarkup::CorvaneCharRange range);

} // namespace tooltipreport
