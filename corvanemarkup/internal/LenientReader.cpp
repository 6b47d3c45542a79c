#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/LenientReader.h>
#include <corvanemarkup/internal/WhiteSpace.h>

namespace corvanemarkup::Internal {

namespace {

struct Word
{
    TextView Text;
    bool IsOpen; ///< whether its quotes are, up to the end of the content
};

/// Up to white space, or through the first quotes.
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

/// Where the text goes on, after white space if there is any, if `unit` stands there; otherwise `NotFound`.
std::size_t FindAfterWhiteSpace(TextView content, std::size_t from, char16_t unit)
{
    const std::size_t next = SkipWhiteSpace(content, from);
    return next < content.size() && content[next] == unit ? next : NotFound;
}

MeantAttribute::Fault Judge(const Word& word)
{
    using Fault = MeantAttribute::Fault;
    const std::size_t equals = word.Text.find(u'=');
    const bool hasValue = equals != NotFound && equals + 1 < word.Text.size();
    const bool startsWithQuote = hasValue && word.Text[equals + 1] == u'"';
    if (hasValue && !startsWithQuote)
        return Fault::UnquotedValue;
    if (word.IsOpen)
        return Fault::OpenQuotes;
    if (!hasValue)
        return Fault::MissingValue;
    return SplitAttribute(word.Text) ? Fault::None : Fault::UnquotedValue;
}

} // namespace

MeantAttribute ReadMeantAttribute(TextView content, std::size_t position)
{
    const auto upTo = [&](const Word& last) {
        const auto end = static_cast<std::size_t>(last.Text.data() + last.Text.size() - content.data());
        return content.substr(position, end - position);
    };
    const Word word = ReadWord(content, position);
    const std::size_t end = position + word.Text.size();
    const std::size_t equals = word.Text.find(u'=');
    if (equals == NotFound && word.Text.back() != u'"') {
        const std::size_t lateEquals = FindAfterWhiteSpace(content, end, u'=');
        if (lateEquals != NotFound) {
            const std::size_t quote = FindAfterWhiteSpace(content, lateEquals + 1, u'"');
            return {upTo(ReadWord(content, quote != NotFound ? quote : lateEquals)),
                    MeantAttribute::Fault::SpaceAroundEquals};
        }
    } else if (equals + 1 == word.Text.size()) {
        const std::size_t quote = FindAfterWhiteSpace(content, end, u'"');
        if (quote != NotFound)
            return {upTo(ReadWord(content, quote)), MeantAttribute::Fault::SpaceAroundEquals};
    }
    return {word.Text, Judge(word)};
}

} // namespace corvanemarkup::Internal
