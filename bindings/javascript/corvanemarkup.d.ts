/**
 * Text functions for the markup of tooltip templates.
 *
 * A tooltip is a whole template: plain text with elements in angle brackets. A markup text is the content of one element,
 * without its brackets. A valid sheet element is a markup text for which `readSheetElement` returns an object with
 * `isValid`; its target sheet is its name.
 *
 * Any string is a text, lone surrogates and U+0000 included, and no code unit is altered. Positions are indices into
 * JavaScript strings, and ranges are half-open. Sets and maps are in the order of UTF-16 code units, which is that of
 * `sort()` without a function. Every function takes time linear in its texts, except for sorting.
 *
 * Every function throws
 * - `PreconditionError` where its comment says so,
 * - `TypeError` if an argument has the wrong type,
 * - `RangeError` if there isn't enough memory for the call; the module has at most 1 GB.
 *
 * None of these affects later calls.
 */

/** A precondition violation. */
export class PreconditionError extends Error {
    /** The text of the condition that doesn't hold, such as `isInOrder`. */
    readonly condition: string;
}

/** The version of the library, such as `1.0.0`. */
export const version: string;

/** A half-open range of code units: from `start` up to, but not including, `end`. */
export interface Range {
    start: number;
    end: number;
}

// Whole tooltips

/** Returns the target sheets of the valid sheet elements in a tooltip. */
export function targetSheetNames(tooltip: string): Set<string>;

/**
 * Returns the filter fields of each target sheet. An element without a `filter` has the one field "All Fields". An element
 * whose `filter` contains no field is ignored. If several elements have the same target sheet, only the one whose content
 * is least is used.
 */
export function filterFieldsBySheet(tooltip: string): Map<string, Set<string>>;

/**
 * Returns all filter fields of the valid sheet elements, duplicates included. Of elements with the same content, only one
 * contributes. Elements are in descending order of their contents, and the fields of each in text order.
 */
export function filterFields(tooltip: string): string[];

/**
 * Returns, in ascending order, the target sheets of the previous tooltip whose fields differ in the current one or are
 * missing there. Fields are those that `filterFieldsBySheet` returns.
 */
export function sheetsWithChangedFilters(previousTooltip: string, currentTooltip: string): string[];

/** Returns the contents of the elements of a tooltip, up to the first unterminated one. */
export function markupElements(tooltip: string): Set<string>;

/**
 * Returns whether the text at `offset`, the position just after a `<`, starts with the name of a sheet element and one of
 * its attribute names with a `=`. What follows the `=` isn't read. Returns false if the offset is outside the text.
 */
export function isSheetMarkup(text: string, offset: number): boolean;

// Single elements

export interface SheetElement {
    /** The target sheet; empty if there is no `name`. */
    name: string;
    /** The largest size of the sheet: 300 if the attribute is absent, 0 if its value isn't a decimal number. */
    size: { width: number; height: number };
    /** The whole value of `filter`, such as `<Region>,<Year>`; null if there is no such attribute. */
    filter: string | null;
    /** The fields of the filter, in text order, duplicates included. */
    fields: string[];
    /** True if the four properties below are false. */
    isValid: boolean;
    /** Two attributes have the same name. */
    hasDuplicateAttributes: boolean;
    /** There is no `name`, or it is empty. */
    missesSheetName: boolean;
    /** `maxwidth` isn't a number from 1 to 2000, or `maxheight` isn't one from 1 to 1500. */
    hasInvalidSheetSize: boolean;
    /** An attribute isn't `name`, `maxwidth`, `maxheight` or `filter`. */
    hasUnallowedAttributes: boolean;
}

/**
 * Returns the values of a sheet element, valid or not. Returns null if the text has another element name, no space, or an
 * attribute that isn't a name and a quoted value.
 */
export function readSheetElement(markupText: string): SheetElement | null;

/**
 * Returns the markup text for a sheet, with all four attributes and the default size. `filterValue` is a whole filter
 * value, such as `<Region>,<Year>`. The element is valid unless `sheetName` is empty.
 */
export function makeSheetElement(sheetName: string, filterValue: string): string;

/** Returns the target sheet of a valid sheet element; an empty string for any other text. */
export function targetSheetName(markupText: string): string;

/** Returns the target sheets of those markup texts that are valid sheet elements. */
export function targetSheetNamesOfElements(markupTexts: Iterable<string>): Set<string>;

/**
 * Returns the element with the new sheet name; null unless it is a valid sheet element with the target sheet
 * `currentSheetName`. The element is rebuilt from its attributes, with one space before each. The new name isn't
 * validated: an empty one makes the element invalid.
 */
export function replaceSheetName(markupText: string, currentSheetName: string, newSheetName: string): string | null;

/**
 * Returns the first element with the sheet name of the second, rebuilt from its attributes; the first one unchanged if the
 * second isn't a valid sheet element. Throws `PreconditionError` if the first isn't one.
 */
export function replaceSheetNameWithThatOf(firstMarkupText: string, secondMarkupText: string): string;

/**
 * Returns the range of the raw sheet name in the element's text; a doubled quote is two code units:
 *
 *     Sheet name="a""b" maxwidth="300"
 *                 ^   ^
 *             start   end
 *
 * Throws `PreconditionError` if the attributes up to the name can't be read, or if there is no `name`.
 */
export function findSheetName(markupText: string): Range;

/**
 * Returns the range of the first `filter` attribute in the element's text, from its name through its closing quote; null
 * if there is none. Throws `PreconditionError` if the attributes up to there can't be read.
 */
export function findFilterAttribute(markupText: string): Range | null;

/**
 * Returns the indices of the filter fields that an editor's cursor or selection touches, ascending; none without a
 * `filter`. A field is touched if `start` is strictly inside it, brackets included, if it starts strictly inside the range,
 * or if the range is exactly the field:
 *
 *     Sheet name="S" filter="<a>,<b>"
 *                            ^^          [24, 24), between these two: field 0
 *                             ^^^^^      [24, 29): fields 0 and 1
 *                               ^        [26, 26), after the `>`: none
 *
 * Any range is valid. The positions of the fields are those in the unescaped value: each doubled quote before a field
 * shifts it to the left by one. `insertFilterFieldAt` uses positions in the text instead. Throws `PreconditionError` where
 * `findFilterAttribute` does.
 */
export function filterIndicesAt(markupText: string, range: Range): number[];

/**
 * Returns the element with the field in its filter. The field replaces those from the first of `fieldIndices` through the
 * last; if the last is the first less one, it is inserted before the first. Without indices it is appended, and fields
 * equal to it are removed. `exclusiveField` is never combined with others: it replaces all fields when it is inserted, and
 * is removed when another one is. The element is rebuilt from its attributes, with one space before each.
 *
 * Throws `PreconditionError` if `readSheetElement` returns null for the text, and unless
 * 0 <= first <= last + 1 <= number of fields.
 */
export function insertFilterField(
    markupText: string, field: string, exclusiveField: string, fieldIndices: Iterable<number>): string;

/**
 * Calls `insertFilterField` with the indices that `filterIndicesAt` returns. The new position is just after the closing
 * quote of `filter`. Throws where these two do, and if a quote in an attribute's name makes the new element unreadable.
 */
export function insertFilterFieldAtCursor(
    markupText: string, range: Range, field: string, exclusiveField: string,
): { newMarkupText: string; newCursorPosition: number };

// Source ranges: a doubled quote or bracket is two code units.

/**
 * An element and its content:
 *
 *     See <b>the <Sheet name="a>b">
 *         ^^^    ^^^^^^^^^^^^^^^^^^     element, with its brackets
 *          ^      ^^^^^^^^^^^^^^^^      content, without
 */
export interface ElementRanges {
    /** Up to the further `<` if interrupted, to the end of the text if unterminated. */
    element: Range;
    content: Range;
    /** `bracket`: at its `>`. `interrupted`: at a further `<`, where another one starts. `unterminated`: not at all, up to the end of the text. */
    end: 'bracket' | 'interrupted' | 'unterminated';
}

/**
 * Returns an element for every `<` that starts one, in text order. Those that end with a bracket are the elements that
 * `markupElements` returns. None overlaps another. At most one is unterminated, the last.
 *
 *     <b> if < 5, see <Total> <Sheet name="S
 *     ^^^                                       bracket
 *            ^^^^^^^^^                          interrupted
 *                     ^^^^^^^                   bracket
 *                             ^^^^^^^^^^^^^^    unterminated
 */
export function findElementRanges(tooltip: string): ElementRanges[];

/**
 * What an element is. It is called Sheet if its content begins with `Sheet`, in any ASCII letter case, followed by white
 * space or the end of the content. It is readable if `readSheetElement` returns an object for its content, and valid if
 * that object has `isValid` and the element ends with its bracket.
 *
 * - `plain`: not called Sheet.
 * - `sheet`: valid.
 * - `invalid-sheet`: readable, but not valid.
 * - `unreadable-sheet`: called Sheet, but not readable, such as `<Sheet name=S>` or a field `<Sheet 2>`.
 */
export type ElementKind = 'plain' | 'sheet' | 'invalid-sheet' | 'unreadable-sheet';

/**
 * Returns the kind of one of the elements that `findElementRanges` returns for that text; `plain` for ranges outside the
 * text. The whole text is copied into the module: for many elements of a long text, pass each one's own text instead, with
 * ranges in that.
 */
export function elementKind(text: string, element: ElementRanges): ElementKind;

/**
 * One attribute and its parts:
 *
 *     Sheet name="S" filter="<a>,<b>"
 *                    ^^^^^^^^^^^^^^^^      attribute
 *                    ^^^^^^                name
 *                            ^^^^^^^       value
 *                            ^^^ ^^^       fields
 */
export interface AttributeRanges {
    attribute: Range;
    /** Up to the first `=`; the whole attribute if there is none. */
    name: Range;
    /**
     * The raw value: what follows the `=`, without a quote at its start and the closing quote at its end. Empty, at the end
     * of the attribute, if there is no `=`.
     */
    value: Range;
    /** With the unescaped value. Null if the attribute isn't a name and a quoted value. */
    nameAndValue: { name: string; value: string } | null;
    /** Of an attribute named `filter`, in text order: each field with its brackets, and its unescaped content. */
    fields: { range: Range; field: string }[];
}

/**
 * Returns the attributes of an element in text order, whatever the element is called. `contentRange` is the range of its
 * content in `text`. Returns nothing unless 0 <= start <= end <= the length of the text.
 *
 * Also reads what it can of a content that `readSheetElement` rejects. An attribute with unterminated quotes is the last
 * one, extends to the end of the content and has no `nameAndValue`. A content without a space has no attributes.
 */
export function findAttributeRanges(text: string, contentRange: Range): AttributeRanges[];

/** An occurrence of the name of a sheet or field. */
export interface SheetOrFieldName {
    kind: 'sheet' | 'field';
    /**
     * Whether the name has an effect, or why not:
     *
     * - `reachable`: the name of a valid sheet element or a field in its filter, or the content of a plain element.
     *   `renameSheetsAndFields` renames it, at least to any name that consists of letters.
     * - `in-invalid-sheet`: in an element called Sheet that isn't valid, or can't be read.
     * - `in-unclosed-element`: in an element that is interrupted or unterminated.
     * - `without-brackets`: in a valid element's filter, outside fields, such as `filter="Region"`.
     */
    status: 'reachable' | 'in-invalid-sheet' | 'in-unclosed-element' | 'without-brackets';
    /** Unescaped. */
    name: string;
    /** Without quotes and brackets. */
    range: Range;
    /** The element that contains it, as in `ElementRanges`. */
    element: Range;
}

/**
 * Returns every name of a sheet and of a field, ascending by the start of its range:
 *
 *     <Year> <Sheet name="A" filter="<x>, y"> <Sheet name=B> <Sheet name="C"
 *      ^^^^                                                                   field, reachable
 *                         ^                                                   sheet, reachable
 *                                     ^                                       field, reachable
 *                                         ^                                   field, without-brackets
 *                                                         ^                   sheet, in-invalid-sheet
 *                                                                         ^   sheet, in-unclosed-element
 *
 * In an element that isn't readable, names are found as its author probably meant them. Such an element can also be a field
 * itself, such as `<sheet name="A">`: the content is a reachable field then, and the sheet another name within it. A sheet
 * name is never empty; outside fields, only what `isFieldName` accepts is a name.
 *
 * Each edit of `renameSheetsAndFields` replaces the range of a reachable name.
 */
export function findSheetAndFieldNames(tooltip: string): SheetOrFieldName[];

// Diagnostics

export type DiagnosticKind =
    // any element
    | 'unterminated-element' | 'unterminated-quotes' | 'interrupted-element' | 'stray-angle-bracket'
    // broken sheet elements
    | 'misspelled-element' | 'wrong-letter-case' | 'missing-attributes' | 'invalid-white-space' | 'space-around-equals'
    | 'unquoted-value' | 'missing-value' | 'quotes-open-at-bracket'
    // readable elements that end with a bracket
    | 'duplicate-attribute' | 'missing-sheet-name' | 'invalid-sheet-size' | 'unknown-attribute'
    // valid elements
    | 'stray-filter-text' | 'duplicate-field' | 'text-after-element'
    // text that would be a valid sheet element
    | 'escaped-element' | 'missing-bracket'
    // names that aren't known
    | 'unknown-sheet' | 'unknown-field';

/** All kinds, in the order of the library, each with one English sentence that explains it in general. */
export const diagnosticKinds: readonly { readonly kind: DiagnosticKind; readonly description: string }[];

export interface Diagnostic {
    /** Never changes between versions. */
    kind: DiagnosticKind;
    /**
     * `error` if a sheet is lost: the element was meant as a sheet element and isn't valid. `warning` if the text is
     * possibly intended, such as the `<` in `x < 5`.
     */
    severity: 'error' | 'warning';
    /**
     * One line in English, without a period: what is wrong, with the text in question shortened to about 40 code units,
     * then what to do. Its words may change between versions.
     */
    message: string;
    /** What to underline. */
    range: Range;
    /** The element that contains it, as in `ElementRanges` or, if it was guessed, as it was meant. */
    element: Range;
}

/**
 * Returns all diagnostics of a tooltip, ascending by the start of their ranges, then in the order of `diagnosticKinds`.
 * Ranges may overlap.
 *
 *     <Sheet name="A" filter="<x>,<x>,y"> <Sheet name = "B"> if < 5 <b>
 *                                 ^^^                                    duplicate-field
 *                                     ^                                  stray-filter-text
 *                                                ^^^^^^^^^^              space-around-equals, an error
 *                                                               ^^^^     stray-angle-bracket
 */
export function findDiagnostics(tooltip: string): Diagnostic[];

// Edits that leave all other text unchanged

/** Replaces a range with `newText`; an empty range inserts. */
export interface TextEdit {
    range: Range;
    newText: string;
}

/**
 * Returns the text with all edits applied. Their ranges refer to the text before any of them; insertions at one position
 * keep their order. Throws `PreconditionError` unless each edit is within the text and starts at or after the end of the
 * previous one.
 */
export function applyTextEdits(text: string, edits: Iterable<TextEdit>): string;

/**
 * Returns whether a field can have that name: it isn't empty, and `<name>` reads back as this one element, which isn't a
 * sheet element, in a tooltip and in a filter. `Region` is a field name; `a<b`, `a>` and `Sheet name="S"` aren't.
 */
export function isFieldName(name: string): boolean;

/**
 * Returns the edits that rename sheets and fields from their old names, the keys, to their new ones, in text order. Each
 * occurrence is renamed once: two names can be swapped. Old names are case-sensitive. A name that is mapped to itself yields
 * no edit.
 *
 * Sheets are renamed in valid sheet elements, fields in the filters of these and in elements whose whole content is the
 * field: `<b>` is the field `b`. The edits replace only the names; quotes in a new name are doubled as needed. An occurrence
 * is left unchanged where the new name would change how the rest of the tooltip is read. If the new fields of one filter
 * can't be combined, because of quotes or brackets in them, only some of them are renamed, not always as many as possible.
 *
 * Throws `PreconditionError` if a new sheet name is empty, or `isFieldName` is false for a new field, whether or not the
 * old names occur.
 */
export function renameSheetsAndFields(
    tooltip: string, newSheetNames: Iterable<readonly [string, string]>, newFields: Iterable<readonly [string, string]>,
): TextEdit[];

/**
 * Returns the edit that inserts a field into a filter at an editor's cursor (an empty range) or selection. It applies to the
 * element that ends with a bracket, is readable by `readSheetElement`, and whose content contains the selection, both ends
 * included.
 *
 * The field replaces the fields, from the first to the last, that the selection overlaps, or that the cursor is strictly
 * inside. Without such fields it is appended, and fields equal to it are removed. `exclusiveField` is never combined with
 * others: it replaces all fields when it is inserted, and is removed when another one is. Pass an empty string if there is
 * no such field; empty fields are removed then. The new fields, joined by commas, replace the whole value of the first
 * `filter`; without one, a `filter` is added after the last attribute.
 *
 *     <Sheet name="S" filter="<a>,<b>">
 *                              ^             with the cursor here, `x` makes it "<x>,<b>"
 *                             ^^^^^          with this selected, "<x>"
 *
 * The new position is in the tooltip after the edit, just after the closing quote of `filter`. Returns null if no such
 * element contains the selection, if the selection starts after its end, if `isFieldName(field)` is false, or if the result
 * would not read back.
 */
export function insertFilterFieldAt(
    tooltip: string, selection: Range, field: string, exclusiveField: string,
): { edit: TextEdit; newCursorPosition: number } | null;
