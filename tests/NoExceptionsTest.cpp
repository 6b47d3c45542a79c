/// A host that is built without exceptions and without run-time type information: it includes what there is,
/// links and calls. What the library throws would end it.

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/TokenizeAttributedMarkupText.h>
#include <corvanemarkup/Version.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/ThrowLogicException.h>
#include <corvaneplatform/transform_to.h>

int main()
{
    const TString tooltip(u"<Sheet name=\"a\">", -1);
    return corvanemarkup::VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip).size() == 1 ? 0 : 1;
}
