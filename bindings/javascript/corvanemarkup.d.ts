/**
 * Text functions for the markup of tooltip templates.
 *
 * A tooltip is a whole template: plain text with elements in angle brackets. A markup text is the content of one element,
 * without its brackets. A valid sheet element is a markup text that `readSheetElement` reads as one with `isValid`; its
 * target sheet is its name.
 *
 * Any string is a text, lone surrogates and U+0000 included, and each code unit comes through as it is. Positions are those
 * of JavaScript's strings, and ranges are half-open. Sets and maps come in the order of UTF-16 code units, which is that of
 * `sort()` without a function. A function takes time linear in its texts, but for sorting.
 *
 * Each function throws
 * - `PreconditionError` where its comment tells so,
 * - `TypeError` if an argument isn't of its type,
 * - `RangeError` if there isn't enough memory for the call: a module has at most 1 GB.
 *
 * After each of them, all functions can be called as before.
 */

/** A precondition is broken. */
export class PreconditionError extends Error {
    /** The text of the condition that doesn't hold, such as `isInOrder`. */
    readonly condition: string;
}

/** The version of the library, such as `1.0.0`. */
export const version: string;

/** A half-open range of code units: from `start` up to `end`, without the one at `end`. */
export interface Range {
    start: number;
    end: number;
}

// Of whole tooltips.

/** The target sheets of a tooltip, of those elements that are valid sheet elements. */
export function targetSheetNames(tooltip: string): Set<string>;

/**
 * The filter fields of each target sheet. An element without a `filter` stands for the one field "All Fields". An element
 * whose `filter` holds no field is passed over. If several elements have the same target sheet, the first in the order of
 * their texts decides.
 */
export function filterFieldsBySheet(tooltip: string): Map<string, Set<string>>;

/**
 * All filter fields of the valid sheet elements, duplicates included, without those of an element that stands there twice.
 * The elements come in falling order of their texts, and the fields of each in their own order.
 */
export function filterFields(tooltip: string): string[];

/**
 * The target sheets of the previous tooltip that have other fields in the current one, or none, ascending. What the fields
 * of a sheet are, `filterFieldsBySheet` tells.
 */
export function sheetsWithChangedFilters(previousTooltip: string, currentTooltip: string): string[];

/** The contents of all elements of a tooltip, up to the first that has no end. */
export function markupElements(tooltip: string): Set<string>;

/**
 * Whether the text at `offset`, the position just after a `<`, starts with the name of a sheet element and one of its
 * attribute names. What follows the `=` isn't read. False with an offset outside the text.
 */
export function isSheetMarkup(text: string, offset: number): boolean;

// Of one element.

export interface SheetElement {
    /** The target sheet; empty if there is no `name`. */
    name: string;
    /** The largest size of the sheet: 300 for an absent attribute, 0 for what isn't a decimal number. */
    size: { width: number; height: number };
    /** The whole value of `filter`, such as `<Region>,<Year>`; null if there is no such attribute. */
    filter: string | null;
    /** The fields of the filter, in the order of the text, repeats included. */
    fields: string[];
    /** None of the four faults below. */
    isValid: boolean;
    hasDuplicateAttributes: boolean;
    missesSheetName: boolean;
    /** `maxwidth` isn't a number from 1 to 2000, or `maxheight` not one from 1 to 1500. */
    hasInvalidSheetSize: boolean;
    /** Some attribute is none of `name`, `maxwidth`, `maxheight` and `filter`. */
    hasUnallowedAttributes: boolean;
}

/**
 * The values of a sheet element, valid or not. Null if the text isn't of that shape: another element name, no space, or an
 * attribute that isn't a name and a quoted value.
 */
export function readSheetElement(markupText: string): SheetElement | null;

/**
 * The markup text for a sheet, with all four attributes and the default size. `filterValue` is a whole filter value, such
 * as `<Region>,<Year>`. Valid unless `sheetName` is empty.
 */
export function makeSheetElement(sheetName: string, filterValue: string): string;

/** The target sheet of a valid sheet element; empty for any other text. */
export function targetSheetName(markupText: string): string;

/** The target sheets of those markup texts that are valid sheet elements. */
export function targetSheetNamesOfElements(markupTexts: Iterable<string>): Set<string>;

/**
 * The element with the new sheet name; null unless it is a valid sheet element with the target sheet `currentSheetName`.
 * It is rebuilt from its attributes, with one space in front of each. The new name isn't judged.
 */
export function replaceSheetName(markupText: string, currentSheetName: string, newSheetName: string): string | null;

/**
 * The first element with the sheet name of the second, rebuilt from its attributes; the first as it is if the second isn't
 * a valid sheet element. Throws `PreconditionError` if the first isn't one.
 */
export function replaceSheetNameWithThatOf(firstMarkupText: string, secondMarkupText: string): string;

/**
 * Where the characters of the sheet name stand in the element's text, doubled quotes counting as two:
 *
 *     Sheet name="a""b" maxwidth="300"
 *                 ^   ^
 *             start   end
 *
 * Throws `PreconditionError` if the attributes up to the name can't be read, or if there is no `name`.
 */
export function findSheetName(markupText: string): Range;

/**
 * Where the first `filter` attribute stands in the element's text, from its name through its closing quote; null if there
 * is none. Throws `PreconditionError` if the attributes up to there can't be read.
 */
export function findFilterAttribute(markupText: string): Range | null;

/**
 * The indices of the filter fields that an editor's cursor or selection touches, ascending; none without a `filter`. A
 * field counts if `start` lies strictly inside it, brackets included, if it begins strictly inside the range, or if the
 * range is exactly the field:
 *
 *     Sheet name="S" filter="<a>,<b>"
 *                            ^^          [24, 24), between these two: field 0
 *                             ^^^^^      [24, 29): fields 0 and 1
 *                               ^        [26, 26), after the `>`: none
 *
 * Any range may be asked for. The fields count in the value with its doubled quotes made single; `insertFilterFieldAt`
 * counts in the text as it is. Throws `PreconditionError` where `findFilterAttribute` does.
 */
export function filterIndicesAt(markupText: string, range: Range): number[];

/**
 * The element with the field in its filter. The field replaces those from the first of `fieldIndices` through the last; if
 * the last is the first less one, it goes in front of the first. Without indices it goes to the end, and fields equal to it
 * are removed. `exclusiveField` stands alone in a filter: inserted, it replaces all fields; when another is inserted, it is
 * removed. The element is rebuilt from its attributes, with one space in front of each.
 *
 * Throws `PreconditionError` if `readSheetElement` gives nothing for the text, and unless
 * 0 <= first <= last + 1 <= number of fields.
 */
export function insertFilterField(
    markupText: string, field: string, exclusiveField: string, fieldIndices: Iterable<number>): string;

/**
 * `insertFilterField` with the indices of `filterIndicesAt`. The new position is just after the closing quote of `filter`.
 * Throws where these two do, and if the new element can't be read for a quote in an attribute's name.
 */
export function insertFilterFieldAtCursor(
    markupText: string, range: Range, field: string, exclusiveField: string,
): { newMarkupText: string; newCursorPosition: number };

// What stands where.

/**
 * An element and its content:
 *
 *     See <b>the <Sheet name="a>b">
 *         ^^^    ^^^^^^^^^^^^^^^^^^     element, with its brackets
 *          ^      ^^^^^^^^^^^^^^^^      content, without
 */
export interface ElementRanges {
    /** Given up, up to the further `<`; without end, to the end of the text. */
    element: Range;
    content: Range;
    /** With its `>`; given up at a further `<`, where another one starts; or not at all. */
    end: 'bracket' | 'restart' | 'endOfText';
}

/**
 * Every `<` that starts an element, in the order of the text. None overlaps another, and at most one has no end, the last.
 * Those that end with a bracket are the elements of `markupElements`.
 *
 *     <b> if < 5, see <Total> <Sheet name="S
 *     ^^^                                       bracket
 *            ^^^^^^^^^                          restart
 *                     ^^^^^^^                   bracket
 *                             ^^^^^^^^^^^^^^    endOfText
 */
export function findElementRanges(tooltip: string): ElementRanges[];

/**
 * An attribute and its parts:
 *
 *     Sheet name="S" filter="<a>,<b>"
 *                    ^^^^^^^^^^^^^^^^      attribute
 *                    ^^^^^^                name
 *                            ^^^^^^^       value
 *                            ^^^ ^^^       fields
 */
export interface AttributeRanges {
    attribute: Range;
    /** Up to the first `=`; all of the attribute if there is none. */
    name: Range;
    /** What follows the `=`, without the quotes around it. Empty, at the end of the attribute, if there is no `=`. */
    value: Range;
    /** As meant. Null if the attribute isn't a name and a quoted value. */
    nameAndValue: { name: string; value: string } | null;
    /** Of an attribute called `filter`: where each field stands, brackets included, and the field as meant. */
    fields: { range: Range; field: string }[];
}

/**
 * The attributes of an element in the order of the text, whatever the element is called. `contentRange` is where its
 * content stands in `text`; nothing unless it lies there. Reads what it can where `readSheetElement` gives nothing. An
 * attribute whose quotes are open is the last one, and runs to the end of the content.
 */
export function findAttributeRanges(text: string, contentRange: Range): AttributeRanges[];

// What is wrong.

/**
 * What is wrong. An element is called Sheet if its content begins with `Sheet`, in any ASCII letter case, followed by white
 * space or the end of the content.
 *
 * Of any element:
 * - `missingEnd`: no bracket ends it. From its `<` to the end of the text.
 * - `openQuotes`: the same, because the text ends between quotes that protect brackets.
 * - `restart`: given up at a further `<`. Up to that.
 *
 * Of elements called Sheet that can't be read, though a bracket ends them or gives them up:
 * - `otherLetterCase`: the element's name, which isn't `Sheet` in these letters.
 * - `noAttributes`: the element's name, with nothing but white space after it.
 * - `otherWhiteSpace`: white space other than spaces, where a space should be.
 * - `spaceAroundEquals`: an attribute with white space on a side of its `=`.
 * - `unquotedValue`: an attribute with a value that doesn't start with a quote, or goes on after its quotes.
 * - `missingValue`: an attribute without a `=`, or with nothing after it.
 * - `unprotectedQuotes`: an attribute whose quotes are still open where the bracket stands.
 *
 * Of those that can be read:
 * - `duplicateAttribute`: each attribute with the name of an earlier one.
 * - `missingSheetName`: the empty `name`, or the element if it has none.
 * - `invalidSheetSize`: the `maxwidth` or `maxheight` that is out of range.
 * - `unallowedAttribute`: an attribute that a sheet element can't have.
 *
 * Of valid ones:
 * - `strayFilterText`: what stands in a filter outside of fields, commas and spaces.
 * - `duplicateField`: each field that stands in its filter before.
 */
export type MarkupFaultKind =
    | 'missingEnd' | 'openQuotes' | 'restart'
    | 'otherLetterCase' | 'noAttributes' | 'otherWhiteSpace' | 'spaceAroundEquals' | 'unquotedValue' | 'missingValue'
    | 'unprotectedQuotes'
    | 'duplicateAttribute' | 'missingSheetName' | 'invalidSheetSize' | 'unallowedAttribute'
    | 'strayFilterText' | 'duplicateField';

/** A fault, and what to underline. */
export interface MarkupFault {
    kind: MarkupFaultKind;
    range: Range;
    /**
     * Whether a sheet is lost: the element is called Sheet, holds a `=` and isn't valid; or its quotes hide the rest of the
     * text. All else, such as `x < 5`, may well be meant.
     */
    isError: boolean;
}

/** All faults of a tooltip, ascending by start, then in the order of the kinds. Ranges may overlap. */
export function findMarkupFaults(tooltip: string): MarkupFault[];

// Edits that leave all other text as it is.

/** Puts `text` in the place of a range; an empty range inserts. */
export interface TextEdit {
    replaced: Range;
    text: string;
}

/**
 * The text with all edits made. Their ranges are told in the text as it is before any of them. Throws `PreconditionError`
 * unless each edit lies in the text and starts at or after the end of the one before.
 */
export function applyTextEdits(text: string, edits: Iterable<TextEdit>): string;

/**
 * Whether a field can have that name: it isn't empty, and `<name>` reads back as this one element, which is no sheet
 * element, in a tooltip and in a filter.
 */
export function isFieldName(name: string): boolean;

/**
 * The edits that rename sheets and fields, each from its old name, the key, to its new one. Each name is changed once, so
 * that two can be exchanged. Sheets are renamed in valid sheet elements, fields in the filters of these and in elements
 * whose whole content is the field. An occurrence stays as it is where the new name would change what the rest of the
 * tooltip reads as.
 *
 * Throws `PreconditionError` if a new sheet name is empty, or `isFieldName` is false for a new field.
 */
export function renameSheetsAndFields(
    tooltip: string, newSheetNames: Iterable<readonly [string, string]>, newFields: Iterable<readonly [string, string]>,
): TextEdit[];

/**
 * The edit that inserts a field into the filter at an editor's cursor (an empty range) or selection. The field takes the
 * place of the fields, from the first to the last, that the selection overlaps, or that the cursor stands strictly inside.
 * Without such it goes to the end, where it stands once. `exclusiveField` stands alone: inserted, it replaces all fields;
 * when another is inserted, it goes.
 *
 *     <Sheet name="S" filter="<a>,<b>">
 *                              ^             with the cursor here, `x` makes it "<x>,<b>"
 *                             ^^^^^          with this selected, "<x>"
 *
 * The new position is told in the tooltip after the edit: after the closing quote of `filter`. Null if no sheet element
 * that can be read holds the selection, if `isFieldName(field)` is false, or if the result would not read back.
 */
export function insertFilterFieldAt(
    tooltip: string, selection: Range, field: string, exclusiveField: string,
): { edit: TextEdit; newCursorPosition: number } | null;
