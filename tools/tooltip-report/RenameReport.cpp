#include "RenameReport.h"

#include "Json.h"
#include "Positions.h"
#include "TooltipText.h"

#include <algorithm>
#include <utility>

namespace tooltipreport {

namespace {

using corvanemarkup::VizInTooltip::NameKind;
using corvanemarkup::VizInTooltip::NameStatus;
using Outcome = MetName::Outcome;

struct Reason
{
    const char* Identifier;
    const char* Description;
};

/// Returns why a name with that status is kept, if it is.
Reason ReasonOf(NameStatus status)
{
    switch (status) {
    case NameStatus::InInvalidSheet:
        return {"invalid-sheet", "its sheet element is not valid; see tooltip-report check"};
    case NameStatus::InUnclosedElement:
        return {"unclosed-element", "its element is not closed; add the '>'"};
    case NameStatus::WithoutBrackets:
        return {"without-brackets", "it has no brackets; enclose it in '<' and '>'"};
    case NameStatus::Reachable:
        break;
    }
    return {"conflict", "the new name would change other elements; choose another name"};
}

const char* KindOf(const MetName& name)
{
    return name.Occurrence.Kind == NameKind::Sheet ? "sheet" : "field";
}

class TextReport : public RenameReport
{
public:
    explicit TextReport(std::ostream& out) : m_out(out) {}

    void Renamed(const TooltipFile& file, const std::vector<MetName>& names) override
    {
        FlushLastFile();
        const Positions positions(file.Text);
        for (const MetName& name : names)
            if (name.Result == Outcome::Kept)
                m_out << OnOneLine(file.Path) << ':' << ToText(positions.At(name.Occurrence.Range.start))
                      << ": " << KindOf(name) << ' ' << Quoted(name.Occurrence.Name)
                      << " is not renamed: " << ReasonOf(name.Occurrence.Status).Description << '\n';
        if (!names.empty())
            m_lastFile = OnOneLine(file.Path) + ": " + std::to_string(Count(names, Outcome::Renamed)) +
                         " renamed, " + std::to_string(Count(names, Outcome::Kept)) + " not renamed\n";
    }

    void Unreadable(const std::string& /*path*/, const std::string& /*problem*/) override
    {
        FlushLastFile(); // a line about this file follows
    }

    void End(const RenameCounts& counts, const Renaming& missing) override
    {
        if (counts.Files > 1)
            FlushLastFile();
        const auto report = [this](const auto& names, const char* kind) {
            for (const auto& name : names)
                m_out << kind << ' ' << Quoted(name.first) << " does not occur; check the old name\n";
        };
        report(missing.Sheets, "sheet");
        report(missing.Fields, "field");
        m_out << Counted(counts.Renamed, "name") << " renamed, " << counts.Kept << " not renamed in "
              << Counted(counts.Files, "file");
        if (counts.Unreadable > 0)
            m_out << "; " << Counted(counts.Unreadable, "file") << " could not be read or written";
        m_out << '\n';
    }

private:
    static std::ptrdiff_t Count(const std::vector<MetName>& names, Outcome outcome)
    {
        return std::count_if(names.begin(), names.end(),
                             [outcome](const MetName& name) { return name.Result == outcome; });
    }

    void FlushLastFile() { m_out << std::exchange(m_lastFile, {}); }

    std::ostream& m_out;
    std::string m_lastFile; ///< its counts; those of a single file are the total
};

class JsonReport : public RenameReport
{
public:
    explicit JsonReport(std::ostream& out) : m_writer(out)
    {
        BeginDocument(m_writer, "rename");
        m_writer.BeginList("files");
    }

    void Renamed(const TooltipFile& file, const std::vector<MetName>& names) override
    {
        m_writer.BeginObject();
        m_writer.Member("path", OnOneLine(file.Path));
        m_writer.Member("byteOrderMark", file.HasByteOrderMark);
        const Positions positions(file.Text);
        for (const Outcome outcome : {Outcome::Renamed, Outcome::Kept}) {
            m_writer.BeginList(outcome == Outcome::Renamed ? "renamed" : "kept");
            for (const MetName& name : names) {
                if (name.Result != outcome)
                    continue;
                Json item{{"kind", KindOf(name)},
                          {"name", ToUtf8(name.Occurrence.Name)},
                          {"newName", ToUtf8(name.NewName)}};
                if (outcome == Outcome::Kept)
                    item["reason"] = ReasonOf(name.Occurrence.Status).Identifier;
                item.update(RangeMembers(positions, name.Occurrence.Range));
                m_writer.Item(item);
            }
            m_writer.End();
        }
        m_writer.End();
    }

    void Unreadable(const std::string& path, const std::string& problem) override
    {
        m_writer.Item({{"path", OnOneLine(path)}, {"problem", OnOneLine(problem)}});
    }

    void End(const RenameCounts& counts, const Renaming& missing) override
    {
        const auto names = [](const std::map<TString, TString>& newNames) {
            Json list = Json::array();
            for (const auto& name : newNames)
                list.push_back(ToUtf8(name.first));
            return list;
        };
        m_writer.End();
        m_writer.Member("renamed", counts.Renamed);
        m_writer.Member("kept", counts.Kept);
        m_writer.Member("unreadable", counts.Unreadable);
        m_writer.Member("missingSheets", names(missing.Sheets));
        m_writer.Member("missingFields", names(missing.Fields));
        m_writer.End();
    }

private:
    JsonWriter m_writer;
};

} // namespace

std::unique_ptr<RenameReport> MakeRenameTextReport(std::ostream& out)
{
    return std::make_unique<TextReport>(out);
}

std::unique_ptr<RenameReport> MakeRenameJsonReport(std::ostream& out)
{
    return std::make_unique<JsonReport>(out);
}

} // namespace tooltipreport
