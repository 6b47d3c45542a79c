#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/TextView.h>

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

bool IsCalledSheet(TextView content)
{
    // Element names fold ASCII letters only. Attribute names follow the platform's rule instead.
    const auto fold = [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    };
    const auto isSame = [fold](char16_t left, char16_t right) { return fold(left) == fold(right); };
    const TextView name = SheetMarkupElementLiteral;
    return content.size() >= name.size() && std::equal(name.begin(), name.end(), content.begin(), isSame) &&
           (content.size() == name.size() || IsWhiteSpace(content[name.size()]));
}

bool StartsSheetElement(TextView text, std::size_t offset)
{
    if (offset >= text.size() || !HasElementNameAt(text, offset))
        return false;

    // The attribute's name is the rest of the text, trimmed, up to the first `=`. It therefore ends at the
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
