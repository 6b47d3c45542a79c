#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/LenientReader.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

namespace {

struct Word
{
    TextView Text;
    bool IsUnterminated; ///< whether its quotes are
};

/// Reads up to white space, or through the first closing quote.
Word ReadWord(TextView content, std::size_t start)
{
    std::size_t end = start;
    while (end < content.size() && content[end] != u'"' && !IsWhiteSpace(content[end]))
        ++end;
    if (end == content.size() || content[end] != u'"')
        return {content.substr(start, end - start), false};
    const std::size_t closingQuote = FindNotEscaped<u'"'>(content, end + 1);
    return {content.substr(start, closingQuote == NotFound ? NotFound : closingQuote + 1 - start),
            closingQuote == NotFound};
}

/// Returns the value after a `=` and white space: a quoted one, or a word that isn't the next attribute.
/// Empty if there is none.
TextView FindLateValue(TextView content, std::size_t from)
{
    const std::size_t next = SkipWhiteSpace(content, from);
    if (next == content.size())
        return {};
    const TextView word = ReadWord(content, next).Text;
    return word.front() == u'"' || word.find(u'=') == NotFound ? word : TextView();
}

LenientAttribute::Problem Judge(const Word& word)
{
    using Problem = LenientAttribute::Problem;
    const std::size_t equals = word.Text.find(u'=');
    const bool hasValue = equals != NotFound && equals + 1 < word.Text.size();
    const bool startsWithQuote = hasValue && word.Text[equals + 1] == u'"';
    if (hasValue && !startsWithQuote)
        return Problem::UnquotedValue;
    if (!hasValue)
        return Problem::MissingValue;
    if (word.IsUnterminated)
        return Problem::UnterminatedQuotes;
    return SplitAttribute(word.Text).IsNameAndValue ? Problem::None : Problem::UnquotedValue;
}

} // namespace

LenientAttribute ReadLenientAttribute(TextView content, std::size_t position)
{
    const auto withSpaceAroundEquals = [&](TextView last) {
        const auto end = static_cast<std::size_t>(last.data() + last.size() - content.data());
        return LenientAttribute{content.substr(position, end - position),
                                LenientAttribute::Problem::SpaceAroundEquals};
    };
    const Word word = ReadWord(content, position);
    const std::size_t end = position + word.Text.size();
    const std::size_t equals = word.Text.find(u'=');
    if (equals == NotFound && word.Text.back() != u'"') {
        const std::size_t next = SkipWhiteSpace(content, end);
        if (next < content.size() && content[next] == u'=') {
            const TextView rest = ReadWord(content, next).Text;
            const TextView lateValue = rest.size() == 1 ? FindLateValue(content, next + 1) : TextView();
            return withSpaceAroundEquals(lateValue.empty() ? rest : lateValue);
        }
    } else if (equals + 1 == word.Text.size()) {
        const TextView lateValue = FindLateValue(content, end);
        if (!lateValue.empty())
            return withSpaceAroundEquals(lateValue);
    }
    return {word.Text, Judge(word)};
}

} // namespace corvanemarkup::Internal
