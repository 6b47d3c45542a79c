#include <corvanemarkup/TokenizeAttributedMarkupText.h>
#include <corvanemarkup/internal/ContentReader.h>

namespace corvanemarkup {

TokenizeResult TokenizeAttributedMarkupText(const MarkupText& text)
{
    const Internal::TokenViews views = Internal::ReadTokens(Internal::ViewOf(text));
    TokenizeResult result{views.Success, {}};
    result.Tokens.reserve(views.Tokens.size());
    for (const Internal::TokenView& view : views.Tokens)
        result.Tokens.push_back({view.Kind, Internal::ToString(view.Text)});
    return result;
}

} // namespace corvanemarkup
