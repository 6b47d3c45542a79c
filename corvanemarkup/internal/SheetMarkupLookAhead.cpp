#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/WhiteSpace.h>

#include <algorithm>

namespace corvanemarkup::Internal {

using namespace VizInTooltip::Impl;

namespace {

constexpr std::size_t LengthOfLongestName()
{
    std::size_t longest = 0;
    for (const TextView name : SheetMarkupAttributeLiterals)
        longest = std::max(longest, name.size());
    return longest;
}

} // namespace

boost::optional<SheetMarkupAttribute> FindAllowedAttribute(TextView name)
{
    for (std::size_t i = 0; i < std::size(SheetMarkupAttributeLiterals); ++i)
        if (AreSameAttributeName(name, SheetMarkupAttributeLiterals[i]))
            return static_cast<SheetMarkupAttribute>(i);
    return boost::none;
}

bool StartsSheetElement(TextView text, std::size_t offset)
{
    if (offset >= text.size() || !HasElementNameAt(text, offset))
        return false;

    // The first attribute name is the rest of the text, trimmed, up to its first `=`. So a name ends at the
    // `=`, or at white space that nothing else follows.
    const std::size_t start = SkipWhiteSpace(text, offset + SheetMarkupElementLiteral.size() + 1);
    std::size_t end = start;
    constexpr std::size_t longestName = LengthOfLongestName();
    while (end < text.size() && text[end] != u'=' && !IsWhiteSpace(text[end])) {
        if (end - start == longestName)
            return false;
        ++end;
    }
    const bool isWholeName =
        end == text.size() || text[end] == u'=' || SkipWhiteSpace(text, end) == text.size();
    return isWholeName && FindAllowedAttribute(text.substr(start, end - start));
}

} // namespace corvanemarkup::Internal
