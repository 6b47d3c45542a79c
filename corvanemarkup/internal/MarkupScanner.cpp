#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::Internal {

ElementBounds FindEndOfElement(TextView text, std::size_t start, std::size_t from, bool quotesProtect)
{
    for (;;) {
        const std::size_t delimiter = quotesProtect ? FindNotEscaped<u'<', u'>', u'"'>(text, from)
                                                    : FindNotEscaped<u'<', u'>'>(text, from);
        if (delimiter == NotFound)
            return {start, NotFound};
        if (text[delimiter] == u'>')
            return {start, delimiter};
        from = delimiter + 1;
        if (text[delimiter] == u'<') {
            start = delimiter;
            // Once quotes protect brackets they do so whatever the element restarts as.
            quotesProtect = quotesProtect || StartsSheetElement(text, from);
        } else {
            const std::size_t closingQuote = FindNotEscaped<u'"'>(text, from);
            if (closingQuote == NotFound)
                return {start, NotFound};
            from = closingQuote + 1;
        }
    }
}

ElementBounds FindElement(TextView text, std::size_t offset)
{
    const std::size_t start = FindNotEscaped<u'<'>(text, offset);
    if (start == NotFound)
        return {};
    return FindEndOfElement(text, start, start + 1, StartsSheetElement(text, start + 1));
}

} // namespace corvanemarkup::Internal
