#include "CheckReport.h"
#include "Json.h"
#include "Positions.h"
#include "TooltipText.h"

#include <cctype>
#include <cstring>
#include <filesystem>

namespace tooltipreport {

namespace {

using corvanemarkup::VizInTooltip::DiagnosticSeverity;

/// Returns the path as a URI, relative if the path is.
std::string UriOf(const std::string& path)
{
    constexpr char hexDigits[] = "0123456789ABCDEF";
    const auto file = std::filesystem::u8path(path).lexically_normal();
    std::string uri = !file.is_absolute() ? "" : file.has_root_name() ? "file:///" : "file://";
    for (const char character : file.generic_u8string()) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isAsItIs =
            byte < 0x80 && (std::isalnum(byte) != 0 || std::strchr("-._~/", character) != nullptr);
        if (isAsItIs)
            uri += character;
        else
            uri.append({'%', hexDigits[byte / 16], hexDigits[byte % 16]});
    }
    return uri;
}

Json Text(const std::string& text)
{
    return {{"text", OnOneLine(text)}};
}

Json ArtifactLocation(const std::string& path)
{
    return {{"artifactLocation", {{"uri", UriOf(path)}}}};
}

class SarifReport : public CheckReport
{
public:
    explicit SarifReport(std::ostream& out) : m_writer(out)
    {
        Json rules = Json::array();
        for (const FindingKind& kind : FindingKinds())
            rules.push_back({{"id", kind.Identifier}, {"shortDescription", Text(kind.Description)}});
        m_writer.BeginObject();
        m_writer.Member("$schema", "https://json.schemastore.org/sarif-2.1.0.json");
        m_writer.Member("version", "2.1.0");
        m_writer.BeginList("runs");
        m_writer.BeginObject();
        m_writer.Member("tool", {{"driver",
                                  {{"name", "tooltip-report"},
                                   {"version", TOOLTIP_REPORT_VERSION},
                                   {"rules", std::move(rules)}}}});
        m_writer.Member("columnKind", "unicodeCodePoints");
        m_writer.BeginList("results");
    }

    void Checked(const TooltipFile& file, const std::vector<Finding>& findings) override
    {
        const Positions positions(file.Text);
        for (const Finding& finding : findings) {
            const LineAndColumn start = positions.At(finding.Range.start);
            const LineAndColumn end = positions.At(finding.Range.end);
            Json location = ArtifactLocation(file.Path);
            location["region"] = {{"startLine", start.Line},
                                  {"startColumn", start.Column},
                                  {"endLine", end.Line},
                                  {"endColumn", end.Column}};
            m_writer.Item({{"ruleId", finding.Identifier},
                           {"level", finding.Severity == DiagnosticSeverity::Error ? "error" : "warning"},
                           {"message", Text(finding.Message)},
                           {"locations", Json::array({{{"physicalLocation", std::move(location)}}})}});
        }
    }

    void Unreadable(const std::string& path, const std::string& problem) override
    {
        m_notifications.push_back(
            {{"level", "error"},
             {"message", Text(problem)},
             {"locations", Json::array({{{"physicalLocation", ArtifactLocation(path)}}})}});
    }

    void End(const CheckCounts& counts) override
    {
        m_writer.End();
        m_writer.Member("invocations",
                        Json::array({{{"executionSuccessful", counts.Unreadable == 0},
                                      {"toolExecutionNotifications", std::move(m_notifications)}}}));
        m_writer.End();
        m_writer.End();
        m_writer.End();
    }

private:
    JsonWriter m_writer;
    Json m_notifications = Json::array();
};

} // namespace

std::unique_ptr<CheckReport> MakeSarifReport(std::ostream& out)
{
    return std::make_unique<SarifReport>(out);
}

} // namespace tooltipreport
