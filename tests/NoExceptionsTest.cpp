/// A host built without exceptions and run-time type information: it includes every header, links and calls.
/// An exception of the library would terminate it.

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/MarkupDiagnostics.h>
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
