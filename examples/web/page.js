// A tooltip editor: a text field that asks the library at every key, and panels that do after a pause.

import { autocompletion, completionKeymap } from '@codemirror/autocomplete';
import { lintKeymap, openLintPanel, setDiagnostics } from '@codemirror/lint';
import { Compartment, EditorSelection, EditorState, Prec } from '@codemirror/state';
import { Decoration, EditorView, keymap, lineNumbers, ViewPlugin } from '@codemirror/view';
import { minimalSetup } from 'codemirror';
import {
    filterFields, filterFieldsBySheet, findMarkupFaults, insertFilterFieldAt, isFieldName, renameSheetsAndFields,
    sheetsWithChangedFilters, targetSheetNames,
} from 'corvanemarkup';
import { fromHash, longestAddress, toHash } from './address.js';
import { Elements, readSheet } from './elements.js';

const samples = new Map(SAMPLES); // put in by the build
const exclusiveField = 'All';
const pause = 300; // milliseconds
const mostShown = 200; // of each kind

const sentences = {
    missingEnd: 'No > ends this element, which hides all that follows it.',
    openQuotes: 'The quotes stay open, which hides all that follows.',
    restart: 'Another element begins before this one ends.',
    otherLetterCase: 'The element must be called Sheet, in these letters.',
    noAttributes: 'A space and a name="..." must follow.',
    otherWhiteSpace: 'Only spaces may stand between attributes.',
    spaceAroundEquals: 'No space may stand around the =.',
    unquotedValue: 'The value must stand in double quotes.',
    missingValue: 'The attribute has no value.',
    unprotectedQuotes: 'The quotes are still open where the element ends.',
    duplicateAttribute: 'This attribute occurs twice.',
    missingSheetName: 'The name of the sheet is missing.',
    invalidSheetSize: 'maxwidth must be from 1 to 2000, and maxheight from 1 to 1500.',
    unallowedAttribute: 'Only name, maxwidth, maxheight and filter are allowed.',
    strayFilterText: 'This text stands outside of the fields.',
    duplicateField: 'This field stands in the filter already.',
};

const find = (id) => document.getElementById(id);
const status = (text) => { find('status').textContent = text; };

// What a host would know: here, all that the samples name.
const allSheets = new Set();
const allFields = new Set([exclusiveField]);
function learn(tooltip) {
    targetSheetNames(tooltip).forEach((sheet) => allSheets.add(sheet));
    filterFields(tooltip).forEach((field) => allFields.add(field));
}
samples.forEach(learn);

// Colours.

const colours = ViewPlugin.fromClass(class {
    elements = new Elements();

    constructor(view) {
        this.colour(view);
    }

    update(update) {
        if (update.docChanged) {
            update.changes.iterChangedRanges((from) => this.elements.forget(from));
            this.colour(update.view);
        } else if (update.viewportChanged) {
            this.colour(update.view);
        }
    }

    colour({ state: { doc }, visibleRanges }) {
        const marks = [];
        const from = visibleRanges[0]?.from ?? 0;
        const to = visibleRanges.at(-1)?.to ?? 0;
        const mark = (range, kind) => {
            const [start, end] = [Math.max(range.start, from), Math.min(range.end, to)];
            if (start < end)
                marks.push(Decoration.mark({ class: kind }).range(start, end));
        };
        for (const element of this.elements.in(doc, from, to)) {
            const sheet = readSheet(doc, element);
            mark(element.element, sheet === null ? 'element' : sheet.isValid ? 'sheet' : 'invalid');
            for (const attribute of sheet?.attributes ?? []) {
                mark(attribute.name, 'name');
                attribute.fields.forEach(({ range }) => mark(range, 'field'));
            }
        }
        this.decorations = Decoration.set(marks, true);
    }
}, { decorations: (plugin) => plugin.decorations });

// Completion: sheets in a name, fields in a filter, and either after a bracket elsewhere.

function complete(context) {
    const { state, pos } = context;
    const element = context.view.plugin(colours).elements.in(state.doc, pos, pos)
        .find(({ element: { start, end }, end: ending }) => start < pos && (pos < end || ending === 'endOfText'));
    const attribute = element && readSheet(state.doc, element)?.attributes
        .find(({ name, value }) => name.end < value.start && value.start <= pos && pos <= value.end);
    const name = attribute && state.sliceDoc(attribute.name.start, attribute.name.end).toLowerCase();
    if (name === 'name') {
        const options = [...allSheets].map((label) => ({ label, apply: label.replaceAll('"', '""') }));
        return { from: attribute.value.start, to: attribute.text ? attribute.value.end : pos, options };
    }
    const open = context.matchBefore(/<[^<>"]*/);
    if (open === null && !(context.explicit && name === 'filter'))
        return null;
    const options = [...allFields].map((field) => ({
        label: `<${field}>`,
        apply: `<${name === 'filter' ? field.replaceAll('"', '""') : field}>`,
    }));
    if (name !== 'filter')
        options.unshift({ label: '<Sheet name="">', apply: startSheet });
    const end = state.sliceDoc(pos, pos + 1) === '>' ? pos + 1 : pos;
    return { from: open?.from ?? pos, to: end, options };
}

function startSheet(view, completion, from, to) {
    view.dispatch({ changes: { from, to, insert: completion.label }, selection: { anchor: from + completion.label.length - 2 } });
}

// Edits.

function apply(edits, cursor) {
    view.dispatch({
        changes: edits.map(({ replaced, text }) => ({ from: replaced.start, to: replaced.end, insert: text })),
        selection: cursor === undefined ? undefined : EditorSelection.cursor(cursor),
        scrollIntoView: true,
        userEvent: 'input',
    });
    view.focus();
}

find('insertion').addEventListener('submit', (event) => {
    event.preventDefault();
    const field = find('field').value;
    const { from, to } = view.state.selection.main;
    const insertion = insertFilterFieldAt(view.state.doc.toString(), { start: from, end: to }, field, exclusiveField);
    if (insertion !== null)
        apply([insertion.edit], insertion.newCursorPosition);
    else
        status(isFieldName(field) ? 'Put the cursor into a sheet element first.' : 'A field can\'t have this name.');
});

find('renaming').addEventListener('submit', (event) => {
    event.preventDefault();
    const [kind, name] = JSON.parse(find('renamed').value || '["sheet",""]');
    const names = new Map([[name, find('new-name').value]]);
    try {
        const edits = renameSheetsAndFields(
            view.state.doc.toString(), kind === 'sheet' ? names : [], kind === 'field' ? names : []);
        apply(edits);
        status(`Renamed in ${edits.length} place${edits.length === 1 ? '' : 's'}.`);
    } catch (error) {
        status(error.condition ? `A ${kind} can't have this name.` : error.message);
    }
});

// What follows after a pause.

let textAtStart = '';
let pending;
let lastText = null;

function fill(id, items, make) {
    const shown = items.slice(0, mostShown).map(make);
    if (items.length > mostShown)
        shown.push(make(`and ${items.length - mostShown} more`));
    find(id).replaceChildren(...shown);
}

const makeItem = (text) => Object.assign(document.createElement('li'), { textContent: text });
const quoted = (name) => `"${name}"`;

async function followUp() {
    const { state } = view;
    const text = state.doc.toString();
    const faults = findMarkupFaults(text).slice(0, mostShown);
    view.dispatch(setDiagnostics(state, faults.map(({ kind, range: { start, end }, isError }) => {
        const message = `Line ${state.doc.lineAt(start).number}: ${sentences[kind]}`;
        return { from: start, to: end, severity: isError ? 'error' : 'warning', message };
    })));
    const sheets = [...targetSheetNames(text)];
    const fieldsBySheet = filterFieldsBySheet(text);
    fill('sheets', sheets.map((sheet) => `${quoted(sheet)}: ${[...fieldsBySheet.get(sheet) ?? ['no fields']].join(', ')}`), makeItem);
    const changes = sheetsWithChangedFilters(textAtStart, text).map(quoted);
    fill('changes', changes.length > 0 ? changes : ['none'], makeItem);
    learn(text);
    fill('fields', [...allFields], (value) => new Option(value));
    const chosen = find('renamed').value;
    const makeChoice = (kind, name, shown) => new Option(shown, JSON.stringify([kind, name]));
    const choices = [
        ...sheets.map((sheet) => makeChoice('sheet', sheet, quoted(sheet))),
        ...[...new Set(filterFields(text))].map((field) => makeChoice('field', field, `<${field}>`)),
    ].slice(0, mostShown);
    find('renamed').replaceChildren(...choices);
    if (choices.some(({ value }) => value === chosen))
        find('renamed').value = chosen;

    const address = new URL(await toHash(text) ?? '#', location.href).href;
    if (view.state.doc !== state.doc)
        return; // the next pause has its own
    const fits = address.length <= longestAddress && !address.endsWith('#');
    history.replaceState(null, '', fits ? address : location.pathname + location.search);
    lastText = text;
    if (!fits)
        status('The text is too long to be kept in the address.');
}

function follow(update) {
    if (update.selectionSet || update.docChanged) {
        const { from, to } = update.state.selection.main;
        status(`${from === to ? `Cursor at ${from}` : `Selected: ${from} to ${to}`} of ${update.state.doc.length}`);
    }
    if (update.docChanged) {
        clearTimeout(pending);
        pending = setTimeout(followUp, pause);
    }
}

// The editor.

const darkness = matchMedia('(prefers-color-scheme: dark)');
const theme = new Compartment();
const themeNow = () => EditorView.darkTheme.of(darkness.matches);
const focusOn = (id) => () => {
    find(id).focus();
    return true;
};

function makeState(text) {
    return EditorState.create({
        doc: text,
        extensions: [
            Prec.high(keymap.of([{ key: 'Mod-i', run: focusOn('field') }, { key: 'F2', run: focusOn('renamed') }])),
            minimalSetup,
            lineNumbers(),
            keymap.of([...completionKeymap, ...lintKeymap]),
            autocompletion({ override: [complete], icons: false }),
            colours,
            theme.of(themeNow()),
            EditorState.lineSeparator.of('\n'), // so that all other units stay as they are
            EditorView.lineWrapping,
            EditorView.cspNonce.of(document.querySelector('[nonce]').nonce),
            EditorView.contentAttributes.of({ 'aria-label': 'Tooltip', spellcheck: 'false' }),
            EditorView.updateListener.of(follow),
        ],
    });
}

const view = new EditorView({ state: makeState(''), parent: find('editor') }); // which needs the nonce from the start

function open(text) {
    textAtStart = text;
    view.setState(makeState(text));
    openLintPanel(view);
    view.focus();
    clearTimeout(pending);
    followUp();
}

async function openAddress() {
    try {
        const text = await fromHash(location.hash);
        if (text !== lastText)
            open(text);
        find('samples').value = [...samples].find(([, sample]) => sample === text)?.[0] ?? '';
    } catch {
        open('');
        status('The address holds no text that can be read.');
    }
}

find('samples').replaceChildren(new Option('(own text)', ''), ...[...samples.keys()].map((name) => new Option(name)));
find('samples').addEventListener('change', (event) => open(samples.get(event.target.value) ?? ''));
darkness.addEventListener('change', () => view.dispatch({ effects: theme.reconfigure(themeNow()) }));
addEventListener('hashchange', openAddress);
if (location.hash.length > 1) {
    await openAddress();
} else {
    find('samples').value = 'sales-overview';
    open(samples.get('sales-overview'));
}
