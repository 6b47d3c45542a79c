#include "CheckReport.h"

#include "Json.h"
#include "Positions.h"
#include "TooltipText.h"

namespace tooltipreport {

namespace {

std::string Severity(const Finding& finding)
{
    return finding.Severity == corvanemarkup::VizInTooltip::DiagnosticSeverity::Error ? "error" : "warning";
}

class TextReport : public CheckReport
{
public:
    TextReport(std::ostream& out, bool hasColours) : m_out(out), m_hasColours(hasColours) {}

    void Checked(const TooltipFile& file, const std::vector<Finding>& findings) override
    {
        const Positions positions(file.Text);
        for (const Finding& finding : findings) {
            const std::string colour = Severity(finding) == "error" ? "1;31" : "1;35";
            const RuledLine ruled = RuleLine(file.Text, finding.Range);
            m_out << Coloured("1",
                              OnOneLine(file.Path) + ':' + ToText(positions.At(finding.Range.start)) + ':')
                  << ' ' << Coloured(colour, Severity(finding) + ':') << ' ' << finding.Message << " ["
                  << finding.Identifier << "]\n  " << ruled.Line << '\n'
                  << "  " << Coloured("1;32", ruled.Ruler) << '\n';
        }
    }

    // Already reported on standard error.
    void Unreadable(const std::string& /*path*/, const std::string& /*problem*/) override {}

    void End(const CheckCounts& counts) override
    {
        m_out << Counted(counts.Errors, "error") << " and " << Counted(counts.Warnings, "warning") << " in "
              << Counted(counts.Files, "file");
        if (counts.Unreadable > 0)
            m_out << "; " << Counted(counts.Unreadable, "file") << " could not be read";
        m_out << '\n';
    }

private:
    [[nodiscard]] std::string Coloured(const std::string& colour, const std::string& text) const
    {
        return m_hasColours ? "\x1B[" + colour + 'm' + text + "\x1B[m" : text;
    }

    std::ostream& m_out;
    bool m_hasColours;
};

class JsonReport : public CheckReport
{
public:
    explicit JsonReport(std::ostream& out) : m_writer(out)
    {
        BeginDocument(m_writer, "check");
        m_writer.BeginList("files");
    }

    void Checked(const TooltipFile& file, const std::vector<Finding>& findings) override
    {
        m_writer.BeginObject();
        m_writer.Member("path", OnOneLine(file.Path));
        m_writer.Member("byteOrderMark", file.HasByteOrderMark);
        m_writer.BeginList("diagnostics");
        const Positions positions(file.Text);
        for (const Finding& finding : findings) {
            Json diagnostic{
                {"kind", finding.Identifier}, {"severity", Severity(finding)}, {"message", finding.Message}};
            diagnostic.update(RangeMembers(positions, finding.Range));
            m_writer.Item(diagnostic);
        }
        m_writer.End();
        m_writer.End();
    }

    void Unreadable(const std::string& path, const std::string& problem) override
    {
        m_writer.Item({{"path", OnOneLine(path)}, {"problem", OnOneLine(problem)}});
    }

    void End(const CheckCounts& counts) override
    {
        m_writer.End();
        m_writer.Member("errors", counts.Errors);
        m_writer.Member("warnings", counts.Warnings);
        m_writer.Member("unreadable", counts.Unreadable);
        m_writer.End();
    }

private:
    JsonWriter m_writer;
};

} // namespace

std::unique_ptr<CheckReport> MakeTextReport(std::ostream& out, bool hasColours)
{
    return std::make_unique<TextReport>(out, hasColours);
}

std::unique_ptr<CheckReport> MakeJsonReport(std::ostream& out)
{
    return std::make_unique<JsonReport>(out);
}

} // namespace tooltipreport
