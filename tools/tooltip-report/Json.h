#pragma once

/// JSON output, and what the documents of all verbs share.

#include "Files.h"
#include "Positions.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

namespace tooltipreport {

/// A JSON value that keeps the order of its members.
using Json = nlohmann::ordered_json;

/// Streams one document, in constant memory. Each `Begin...` needs an `End`. Pass a name in objects only.
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

/// Begins a document with its `version` and `verb`.
void BeginDocument(JsonWriter& writer, const std::string& verb);

/// Returns the members `start` and `end` of a range.
[[nodiscard]] Json RangeMembers(const Positions& positions, corvanemarkup::CorvaneCharRange range);

} // namespace tooltipreport
