// Calls every function once, with its declared types.

import assert from 'node:assert/strict';
import test from 'node:test';
import {
    applyTextEdits, diagnosticKinds, elementKind, filterFields, filterFieldsBySheet, filterIndicesAt, findAttributeRanges,
    findDiagnostics, findElementRanges, findFilterAttribute, findSheetAndFieldNames, findSheetName, insertFilterField,
    insertFilterFieldAt, insertFilterFieldAtCursor, isFieldName, isSheetMarkup, makeSheetElement, markupElements,
    PreconditionError, readSheetElement, renameSheetsAndFields, replaceSheetName, replaceSheetNameWithThatOf,
    sheetsWithChangedFilters, targetSheetName, targetSheetNames, targetSheetNamesOfElements, version,
    type AttributeRanges, type Diagnostic, type DiagnosticKind, type ElementKind, type ElementRanges, type Range,
    type SheetElement, type SheetOrFieldName, type TextEdit,
} from 'corvanemarkup';

test('every function has its declared types and names', () => {
    const tooltip = '<Sheet name="S" filter="<a>,<b>"> <c>';
    const content: Range = { start: 1, end: 32 };
    const element: string = tooltip.slice(content.start, content.end);
    const cursor: Range = { start: 25, end: 25 };
    assert.match(version satisfies string, /^\d+\.\d+\.\d+$/);

    assert.deepEqual(targetSheetNames(tooltip) satisfies Set<string>, new Set(['S']));
    assert.deepEqual(filterFieldsBySheet(tooltip) satisfies Map<string, Set<string>>, new Map([['S', new Set(['a', 'b'])]]));
    assert.deepEqual(filterFields(tooltip) satisfies string[], ['a', 'b']);
    assert.deepEqual(sheetsWithChangedFilters(tooltip, '') satisfies string[], ['S']);
    assert.deepEqual(markupElements(tooltip) satisfies Set<string>, new Set([element, 'c']));
    assert.equal(isSheetMarkup(tooltip, 1) satisfies boolean, true);

    assert.deepEqual(readSheetElement(element) satisfies SheetElement | null, {
        name: 'S', size: { width: 300, height: 300 }, filter: '<a>,<b>', fields: ['a', 'b'], isValid: true,
        hasDuplicateAttributes: false, missesSheetName: false, hasInvalidSheetSize: false, hasUnallowedAttributes: false,
    });
    assert.equal(makeSheetElement('S', '') satisfies string, 'Sheet name="S" maxwidth="300" maxheight="300" filter=""');
    assert.equal(targetSheetName(element) satisfies string, 'S');
    assert.deepEqual(targetSheetNamesOfElements([element]) satisfies Set<string>, new Set(['S']));
    assert.equal(replaceSheetName(element, 'T', 'U') satisfies string | null, null);
    assert.equal(replaceSheetNameWithThatOf('Sheet name="T"', element) satisfies string, 'Sheet name="S"');
    assert.deepEqual(findSheetName(element) satisfies Range, { start: 12, end: 13 });
    assert.deepEqual(findFilterAttribute(element) satisfies Range | null, { start: 15, end: 31 });
    assert.deepEqual(filterIndicesAt(element, cursor) satisfies number[], [0]);
    assert.equal(insertFilterField(element, 'x', 'All', [0]) satisfies string, 'Sheet name="S" filter="<x>,<b>"');
    const { newMarkupText, newCursorPosition } = insertFilterFieldAtCursor(element, cursor, 'x', 'All');
    assert.deepEqual([newMarkupText, newCursorPosition] satisfies [string, number], ['Sheet name="S" filter="<x>,<b>"', 31]);

    assert.deepEqual(findElementRanges('<c') satisfies ElementRanges[],
        [{ element: { start: 0, end: 2 }, content: { start: 1, end: 2 }, end: 'unterminated' }]);
    assert.deepEqual((findAttributeRanges(tooltip, content) satisfies AttributeRanges[])[1], {
        attribute: { start: 16, end: 32 }, name: { start: 16, end: 22 }, value: { start: 24, end: 31 },
        nameAndValue: { name: 'filter', value: '<a>,<b>' },
        fields: [{ range: { start: 24, end: 27 }, field: 'a' }, { range: { start: 28, end: 31 }, field: 'b' }],
    });

    const broken = '<Year<Sheet name="A" filter="<x>, y"> <Sheet name=B> <Sheet name="C"';
    assert.deepEqual(
        findElementRanges(broken).map((ranges) => [ranges.end, elementKind(broken, ranges)] satisfies [string, ElementKind]),
        [['interrupted', 'plain'], ['bracket', 'sheet'], ['bracket', 'unreadable-sheet'], ['unterminated', 'invalid-sheet']]);
    const names: SheetOrFieldName[] = findSheetAndFieldNames(broken);
    assert.deepEqual(names.map(({ kind, status, name }) => [kind, status, name]), [
        ['field', 'in-unclosed-element', 'Year'], ['sheet', 'reachable', 'A'], ['field', 'reachable', 'x'],
        ['field', 'without-brackets', 'y'], ['sheet', 'in-invalid-sheet', 'B'], ['sheet', 'in-unclosed-element', 'C'],
    ]);
    assert.deepEqual([names[4]?.range, names[4]?.element], [{ start: 50, end: 51 }, { start: 38, end: 52 }]);
    assert.deepEqual(findDiagnostics('if < 5 <Sheet name=B>') satisfies Diagnostic[], [
        {
            kind: 'stray-angle-bracket', severity: 'warning', range: { start: 3, end: 7 }, element: { start: 3, end: 7 },
            message: "'<' starts an element that is not closed; write '<<' for a literal '<'",
        },
        {
            kind: 'unquoted-value', severity: 'error', range: { start: 14, end: 20 }, element: { start: 7, end: 21 },
            message: "the value in 'name=B' is not enclosed in double quotes; write 'attribute=\"value\"'",
        },
    ]);
    assert.deepEqual(diagnosticKinds[2] satisfies { readonly kind: DiagnosticKind; readonly description: string } | undefined,
        { kind: 'interrupted-element', description: "An element is not closed before the next '<'." });

    const edits: TextEdit[] = renameSheetsAndFields(tooltip, new Map([['S', 'T']]), [['c', 'd']]);
    assert.equal(applyTextEdits(tooltip, edits) satisfies string, '<Sheet name="T" filter="<a>,<b>"> <d>');
    assert.equal(isFieldName('<') satisfies boolean, false);
    assert.deepEqual(insertFilterFieldAt(tooltip, cursor, 'x', 'All') satisfies { edit: TextEdit; newCursorPosition: number } | null,
        { edit: { range: { start: 24, end: 31 }, newText: '<x>,<b>' }, newCursorPosition: 32 });
    const refused: (error: PreconditionError) => boolean = (error) => error.condition === 'isInOrder';
    assert.throws(() => applyTextEdits('', [{ range: cursor, newText: '' }]), refused);
});
