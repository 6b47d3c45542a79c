/// A host: uses each library through its installed headers, and catches the exception across the boundary.

#include <corvanemarkup/Version.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/ThrowLogicException.h>

#include <cstring>

[[gnu::visibility("default")]] int main() // also called as a plug-in that is loaded and unloaded
{
    using namespace corvanemarkup;
    if (std::strncmp(GetVersion(), "1.", 2) != 0 || VersionMajor != 1)
        return 4;
    const TString sales(u"Sales", -1);
    const TString tooltip = SurroundWithAngleBrackets(
        VizInTooltipProperties::GetDefault(sales, TString(u"<Region>", -1)).ToSheetMarkupText());
    if (VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip).count(sales) != 1)
        return 1;
    try {
        (void)VizInTooltip::FindFilterAttributeToken(MarkupText(sales));
    } catch (const LogicException& exception) {
        return std::strcmp(exception.Condition(), "tokenizeResult.Success") == 0 ? 0 : 2;
    }
    return 3;
}
