// A tooltip editor: a text field that is updated with every key, and panels that are updated after a pause.

import { autocompletion, completionKeymap } from '@codemirror/autocomplete';
import { lintKeymap, openLintPanel, setDiagnostics } from '@codemirror/lint';
import { Compartment, EditorSelection, EditorState, Prec } from '@codemirror/state';
import { Decoration, EditorView, keymap, lineNumbers, ViewPlugin } from '@codemirror/view';
import { minimalSetup } from 'codemirror';
import {
    filterFields, filterFieldsBySheet, findDiagnostics, insertFilterFieldAt, isFieldName, renameSheetsAndFields,
    sheetsWithChangedFilters, targetSheetNames,
} from 'corvanemarkup';
import { fromHash, longestAddress, toHash } from './address.js';
import { Elements, readElement } from './elements.js';

const samples = new Map(SAMPLES); // defined by the build
const exclusiveField = 'All';
const pause = 300; // milliseconds
const mostShown = 200; // of each kind

const find = (id) => document.getElementById(id);
const status = (text) => { find('status').textContent = text; };

// The sheets and fields that exist. A host knows them; here they are those in the samples.
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
        const mark = (range, style) => {
            const [start, end] = [Math.max(range.start, from), Math.min(range.end, to)];
            if (start < end)
                marks.push(Decoration.mark({ class: style }).range(start, end));
        };
        for (const element of this.elements.in(doc, from, to)) {
            const { kind, attributes } = readElement(doc, element);
            mark(element.element, kind);
            for (const { name, fields } of attributes) {
                mark(name, 'name');
                fields.forEach((field) => mark(field, 'field'));
            }
        }
        this.decorations = Decoration.set(marks, true);
    }
}, { decorations: (plugin) => plugin.decorations });

// Completion: sheets in a name, fields in a filter, both after a bracket elsewhere.

function complete(context) {
    const { state, pos } = context;
    const element = context.view.plugin(colours).elements.in(state.doc, pos, pos)
        .find(({ element: { start, end }, end: ending }) => start < pos && (pos < end || ending === 'unterminated'));
    const attribute = element && readElement(state.doc, element).attributes
        .find(({ name, value }) => name.end < value.start && value.start <= pos && pos <= value.end);
    const name = attribute && state.sliceDoc(attribute.name.start, attribute.name.end).toLowerCase();
    if (name === 'name') {
        const options = [...allSheets].map((label) => ({ label, apply: label.replaceAll('"', '""') }));
        return { from: attribute.value.start, to: attribute.nameAndValue ? attribute.value.end : pos, options };
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
        changes: edits.map(({ range, newText }) => ({ from: range.start, to: range.end, insert: newText })),
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
        status(isFieldName(field) ? 'The cursor is not in a sheet element; move it there.' : 'This is not a valid name for a field.');
});

find('renaming').addEventListener('submit', (event) => {
    event.preventDefault();
    const [kind, name] = JSON.parse(find('renamed').value || '["sheet",""]');
    const names = new Map([[name, find('new-name').value]]);
    try {
        const edits = renameSheetsAndFields(
            view.state.doc.toString(), kind === 'sheet' ? names : [], kind === 'field' ? names : []);
        apply(edits);
        status(edits.length === 0 ? 'Nothing was renamed: the new name is the old one, or it would change other elements.'
            : `Renamed in ${edits.length} place${edits.length === 1 ? '' : 's'}.`);
    } catch (error) {
        status(error.condition ? `This is not a valid name for a ${kind}.` : error.message);
    }
});

// Updates after a pause.

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
    const diagnostics = findDiagnostics(text).slice(0, mostShown);
    view.dispatch(setDiagnostics(state, diagnostics.map(({ severity, message, range: { start, end } }) => (
        { from: start, to: end, severity, message: `Line ${state.doc.lineAt(start).number}: ${message}` }))));
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
        return; // the update after the next pause handles it
    const fits = address.length <= longestAddress && !address.endsWith('#');
    history.replaceState(null, '', fits ? address : location.pathname + location.search);
    lastText = text;
    if (!fits)
        status('The text is too long to save in the address.');
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
            EditorState.lineSeparator.of('\n'), // alters no other code unit
            EditorView.lineWrapping,
            EditorView.cspNonce.of(document.querySelector('[nonce]').nonce),
            EditorView.contentAttributes.of({ 'aria-label': 'Tooltip', spellcheck: 'false' }),
            EditorView.updateListener.of(follow),
        ],
    });
}

const view = new EditorView({ state: makeState(''), parent: find('editor') }); // creates the style sheets, with the nonce

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
        status('The address does not contain a readable text.');
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
