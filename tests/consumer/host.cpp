/// A host: uses each library through its installed headers, and catches the exception across the boundary.

#include <corvanemarkup/Version.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/ThrowLogicException.h>

#include <cstring>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

/// Calls that come before `main`, and before the library's own globals where it is linked statically.
struct EarlyCalls
{
    const MarkupText Markup{TString(u"Sheet name=\"Q1 > Q2\"", -1)};
    const AttributeName Name{TString(u"NAME", -1)};
    const boost::optional<VizInTooltipProperties> Element = VizInTooltipProperties::FromMarkupText(Markup);
    const bool AreRight =
        Impl::IsSheetMarkupText(Markup, 0) && Element && Element->IsValid() &&
        GetTargetSheetNamesFromTooltipText(SurroundWithAngleBrackets(Markup)).size() == 1 &&
        TString(InsertFilterFieldIntoMarkupText(Markup, Name.GetName(), Markup, {})).Find(u'<', 0) == 29 &&
        Impl::FindAttributeTokenOffsetAndContent(Markup, Name);
};
static const EarlyCalls earlyCalls;

[[gnu::visibility("default")]] int main() // also called as a plug-in that is loaded and unloaded
{
    if (std::strncmp(GetVersion(), "1.", 2) != 0 || VersionMajor != 1)
        return 4;
    if (!earlyCalls.AreRight)
        return 5;
    const TString sales(u"Sales", -1);
    const TString tooltip = SurroundWithAngleBrackets(
        VizInTooltipProperties::GetDefault(sales, TString(u"<Region>", -1)).ToSheetMarkupText());
    if (GetTargetSheetNamesFromTooltipText(tooltip).count(sales) != 1)
        return 1;
    try {
        (void)FindFilterAttributeToken(MarkupText(sales));
    } catch (const LogicException& exception) {
        return std::strcmp(exception.Condition(), "tokenizeResult.Success") == 0 ? 0 : 2;
    }
    return 3;
}
