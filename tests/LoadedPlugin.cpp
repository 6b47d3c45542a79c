#include <corvanemarkup/VizInTooltip.h>
#include <corvaneplatform/ThrowLogicException.h>

/// What a plug-in of a host does before it is unloaded: meets an exception, and builds what is built once.
extern "C" __attribute__((visibility("default"))) bool CallTheLibrary()
try {
    const TString tooltip(u"<Sheet name=\"a\" maxwidth=\"0300\">", -1);
    return corvanemarkup::VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip).size() != 1 ||
           corvanemarkup::VizInTooltip::FindFilterAttributeToken(corvanemarkup::MarkupText());
} catch (const LogicException&) {
    return true;
}
