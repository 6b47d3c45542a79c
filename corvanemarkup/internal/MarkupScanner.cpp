#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::Internal {

ElementStop FindStop(TextView text, std::size_t from, bool quotesProtect)
{
    if (!quotesProtect)
        return {FindNotEscaped<u'<', u'>'>(text, from), false};
    for (;;) {
        const std::size_t delimiter = FindNotEscaped<u'<', u'>', u'"'>(text, from);
        if (delimiter == NotFound || text[delimiter] != u'"')
            return {delimiter, false};
        const std::size_t closingQuote = FindNotEscaped<u'"'>(text, delimiter + 1);
        if (closingQuote == NotFound)
            return {NotFound, true};
        from = closingQuote + 1;
    }
}

ElementBounds FindEndOfElement(TextView text, std::size_t start, std::size_t from, bool quotesProtect)
{
    for (;;) {
        const std::size_t stop = FindStop(text, from, quotesProtect).Position;
        if (stop == NotFound || text[stop] == u'>')
            return {start, stop};
        start = stop;
        from = start + 1;
        // Once quotes protect brackets, they also do in the elements that interrupt this one.
        quotesProtect = quotesProtect || StartsSheetElement(text, from);
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
