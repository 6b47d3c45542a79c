#pragma once

/// Where sheets and fields are named in a tooltip.

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <functional>

namespace tooltipreport {

enum class NameKind { Sheet, Field };

/// Calls `visit` with each name of a sheet in a valid sheet element, of a field in the filter of one, and of
/// a plain element, in text order: the name as meant, and the range that holds it.
void ForEachName(
    const TString& tooltip,
    const std::function<void(NameKind, const TString& name, corvanemarkup::CorvaneCharRange)>& visit);

} // namespace tooltipreport
