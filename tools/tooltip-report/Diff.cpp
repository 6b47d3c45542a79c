#include "Diff.h"

#include "TooltipText.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>

namespace tooltipreport {

namespace {

using corvanemarkup::VizInTooltip::TextEdit;

/// Returns the start of the line `count` lines above the one that contains `offset`, at least 0.
int LineStart(const TString& text, int offset, int count)
{
    for (; offset > 0; --offset) {
        if (text[offset - 1] == u'\n' && count-- == 0)
            break;
    }
    return offset;
}

/// Returns the end of the line `count` lines below the one that contains `offset`, after its U+000A; at most
/// the end of the text.
int LineEnd(const TString& text, int offset, int count)
{
    for (; count >= 0 && offset < text.length(); --count) {
        const int lineFeed = text.Find(u'\n', offset);
        offset = lineFeed < 0 ? text.length() : lineFeed + 1;
    }
    return offset;
}

/// Returns a file name in the notation of `patch` and `git`: quoted if it contains control characters, quotes
/// or backslashes, otherwise followed by a tab if it contains spaces.
std::string FileName(const std::string& name)
{
    std::ostringstream quoted;
    bool isOdd = false;
    for (const char character : name) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F) {
            quoted << '\\' << byte / 64 << byte / 8 % 8 << byte % 8;
            isOdd = true;
        } else if (character == '"' || character == '\\') {
            quoted << '\\' << character;
            isOdd = true;
        } else {
            quoted << character;
        }
    }
    if (isOdd)
        return '"' + quoted.str() + '"';
    return name.find(' ') == std::string::npos ? name : name + '\t';
}

/// A range of whole lines that is replaced.
struct Change
{
    int Start;
    int End;
    std::vector<TextEdit> Edits; // ranges are in the whole text
};

std::vector<Change> WholeLines(const TString& text, const std::vector<TextEdit>& edits)
{
    std::vector<Change> changes;
    for (const TextEdit& edit : edits) {
        if (changes.empty() || edit.Range.start >= changes.back().End) {
            const int start = LineStart(text, static_cast<int>(edit.Range.start), 0);
            changes.push_back({start, start, {}});
        }
        if (edit.Range.end >= changes.back().End)
            changes.back().End = LineEnd(text, static_cast<int>(edit.Range.end), 0);
        changes.back().Edits.push_back(edit);
    }
    return changes;
}

TString NewLines(const TString& text, const Change& change)
{
    std::vector<TextEdit> edits = change.Edits;
    for (TextEdit& edit : edits)
        edit.Range = {edit.Range.start - change.Start, edit.Range.end - change.Start};
    return corvanemarkup::VizInTooltip::ApplyTextEdits(text.mid(change.Start, change.End - change.Start),
                                                       edits);
}

/// Appends lines, each prefixed with `sign`. Returns their number.
int AddLines(std::string& hunk, char sign, const std::string& lines)
{
    int count = 0;
    for (std::size_t start = 0; start < lines.size(); ++count) {
        const std::size_t lineFeed = lines.find('\n', start);
        const std::size_t end = lineFeed == std::string::npos ? lines.size() : lineFeed + 1;
        hunk += sign;
        hunk.append(lines, start, end - start);
        if (lineFeed == std::string::npos)
            hunk += "\n\\ No newline at end of file\n";
        start = end;
    }
    return count;
}

} // namespace

void WriteDiff(std::ostream& out, const TooltipFile& file, const std::vector<TextEdit>& edits)
{
    constexpr int contextLines = 3;
    const TString& text = file.Text;
    const std::vector<Change> changes = WholeLines(text, edits);
    if (!changes.empty()) {
        const std::string path = std::filesystem::u8path(file.Path).generic_u8string();
        out << "--- " << FileName("a/" + path) << "\n+++ " << FileName("b/" + path) << '\n';
    }

    const auto lines = [&file](int offset, const TString& part) {
        const bool hasMark = file.HasByteOrderMark && offset == 0 && !part.empty();
        std::string bytes = ToUtf8(part);
        return hasMark ? ByteOrderMark + bytes : bytes;
    };
    int line = 1; // of `counted`
    int counted = 0;
    int addedLines = 0;
    for (auto change = changes.begin(); change != changes.end();) {
        const int hunkStart = LineStart(text, change->Start, contextLines);
        for (; counted < hunkStart; ++counted)
            line += text[counted] == u'\n' ? 1 : 0;
        std::string hunk;
        int oldCount = 0;
        int newCount = 0;
        const auto keep = [&](int start, int end) {
            const int count = AddLines(hunk, ' ', lines(start, text.mid(start, end - start)));
            oldCount += count;
            newCount += count;
        };
        int written = hunkStart;
        int contextEnd = hunkStart;
        for (; change != changes.end() && LineStart(text, change->Start, contextLines) <= contextEnd;
             ++change) {
            keep(written, change->Start);
            const TString removed = text.mid(change->Start, change->End - change->Start);
            oldCount += AddLines(hunk, '-', lines(change->Start, removed));
            newCount += AddLines(hunk, '+', lines(change->Start, NewLines(text, *change)));
            written = change->End;
            contextEnd = LineEnd(text, written, contextLines - 1);
        }
        keep(written, contextEnd);
        out << "@@ -" << line << ',' << oldCount << " +" << line + addedLines << ',' << newCount << " @@\n"
            << hunk;
        addedLines += newCount - oldCount;
    }
}

} // namespace tooltipreport
