#pragma once

/// What an editor asks about the elements of its tooltip, and the edits that it makes. Positions count UTF-16
/// code units from the start of the tooltip.

#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <string>
#include <vector>

namespace editor {

/// A half-open range.
struct Range
{
    int Start;
    int End;
};

/// An element with its brackets, or a `<` whose element never ends.
struct Element
{
    Range Where; ///< without end, up to the next element or the end of the tooltip
    bool HasEnd;
};

enum class ElementKind { Plain, Sheet, InvalidSheet, Unfinished };

struct ElementDetails
{
    ElementKind Kind = ElementKind::Plain;
    TString SheetName;
    boost::optional<Range> SheetNameRange;
    std::vector<Range> FieldRanges; ///< brackets included
    std::string Fault;              ///< English sentences; empty if all is well
};

struct Edit
{
    Range Replaced;
    TString Text;
};

struct Insertion
{
    Edit Change;
    int Cursor; ///< in the tooltip that comes of it
};

/// All elements in the order of the text, none inside another.
[[nodiscard]] std::vector<Element> FindElements(const TString& tooltip);

/// `element` must be one of the elements of `tooltip`.
[[nodiscard]] ElementDetails ReadElement(const TString& tooltip, const Element& element);

/// Inserts the field into the filter of a sheet element, in place of the fields that `selection` touches. The
/// exclusive field is "All". `selection` must stand between the brackets of `element`. Throws
/// `std::runtime_error` with a message for the user if the element, or the field, doesn't allow it.
[[nodiscard]] Insertion InsertField(const TString& tooltip, const Element& element, Range selection,
                                    const TString& field);

/// The edits that rename the sheet in each of its elements, in the order of the text.
[[nodiscard]] std::vector<Edit> RenameSheet(const TString& tooltip, const std::vector<Element>& elements,
                                            const TString& currentName, const TString& newName);

} // namespace editor
