#pragma once

/// What the program changes in tooltips. All results are UTF-8.

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <string>

namespace tooltipreport {

/// The tooltip with the sheet renamed in every valid sheet element, and all other text as it was.
[[nodiscard]] std::string RenameSheet(const TString& tooltip, const TString& currentName,
                                      const TString& newName);

/// The tooltip with the field inserted at that cursor or selection, and a caret under the new cursor. Throws
/// with a message for the user unless `selection` lies between the brackets of one sheet element.
[[nodiscard]] std::string InsertField(const TString& tooltip, corvanemarkup::CorvaneCharRange selection,
                                      const TString& field, const TString& exclusiveField);

} // namespace tooltipreport
