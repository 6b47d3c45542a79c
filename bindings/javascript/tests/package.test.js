import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { readFileSync, statSync } from 'node:fs';
import test from 'node:test';
import { Worker } from 'node:worker_threads';
import { buildSync } from 'esbuild';

// Intercepts the calls from the package to the module.
const calls = [];
let memory;
let answer = null; // words to return instead of the module's answer
const instantiate = WebAssembly.instantiate;
WebAssembly.instantiate = async (...given) => {
    const { exports } = await instantiate(...given);
    memory = exports.memory;
    let place, count;
    const put = (words) => {
        const address = exports.Reserve(words.length);
        new Uint32Array(memory.buffer, address).set(words);
        return address;
    };
    const Reserve = (length) => ([count, place] = [length, exports.Reserve(length)])[1];
    const Call = (operation) => {
        calls.push([operation, count, ...new Uint32Array(memory.buffer, place, count)].join(' '));
        return answer === null ? exports.Call(operation) : put(answer);
    };
    return { exports: { ...exports, Reserve, Call } };
};
const markup = await import('corvanemarkup');

let seed = 1;
const random = (below) => {
    seed = (Math.imul(seed, 1664525) + 1013904223) >>> 0;
    return Math.floor((seed / 2 ** 32) * below);
};
const fragments = [
    '<', '>', '"', '""', ' ', '=', ',', 'a', '\0', '\ud800', '\udc00', '\uffff', '🎯', '\t', 'sheet ', '<Sheet name="', 'Sheet ', 'name="',
    'filter="<a>,<b>"', ' maxwidth="9"', '<a>', '">', '<Sheet name="a" filter="<a>,<b>">', 'Sheet name="\ud800" filter="<\0>, <a>"',
];
const randomText = (most) => Array.from({ length: random(most + 1) }, () => fragments[random(fragments.length)]).join('');

// Returns one call of each function with these arguments.
function questions({ offset, range, tooltip, other, name }) {
    const m = markup;
    const names = new Map([[name, other]]);
    const element = m.findElementRanges(tooltip)[offset] ?? { element: range, content: range, end: 'interrupted' };
    return [
        [m.targetSheetNames, tooltip], [m.filterFieldsBySheet, tooltip], [m.filterFields, tooltip],
        [m.sheetsWithChangedFilters, tooltip, other], [m.markupElements, tooltip], [m.isSheetMarkup, tooltip, offset],
        [m.readSheetElement, tooltip], [m.makeSheetElement, name, other], [m.targetSheetName, tooltip],
        [m.targetSheetNamesOfElements, m.markupElements(tooltip)],
        [m.replaceSheetName, tooltip, m.targetSheetName(tooltip), name], [m.replaceSheetNameWithThatOf, tooltip, other],
        [m.findSheetName, tooltip], [m.findFilterAttribute, tooltip], [m.filterIndicesAt, tooltip, range],
        [m.insertFilterField, tooltip, name, other, [offset, offset + 1]],
        [m.insertFilterFieldAtCursor, tooltip, range, name, other],
        [m.findElementRanges, tooltip], [m.elementKind, tooltip, element], [m.findAttributeRanges, tooltip, range],
        [m.findSheetAndFieldNames, tooltip], [m.findDiagnostics, tooltip],
        [m.applyTextEdits, tooltip, [{ range, newText: name }, { range: { start: range.end, end: range.end }, newText: other }]],
        [m.isFieldName, name], [m.renameSheetsAndFields, tooltip, names, names],
        [m.insertFilterFieldAt, tooltip, range, name, other],
    ].map(([ask, ...given]) => () => ask(...given));
}

// Compares the results of the module with those that the package reads from the native library's answers.
function compare(cases) {
    const all = cases.flatMap(questions);
    calls.length = 0;
    const answers = all.map((ask) => {
        try {
            return ask();
        } catch (error) {
            return error.condition ?? error;
        }
    });
    assert.equal(calls.length, all.length);
    const native = execFileSync('../native/native-answers', { input: calls.join('\n'), maxBuffer: 2 ** 30 }).toString().split('\n');
    all.forEach((ask, i) => {
        answer = native[i].split(' ').slice(0, -1);
        assert.deepEqual(answers[i], native[i][0] === '!' ? native[i].slice(1) : ask(), calls[i]);
    });
    answer = null;
}

test('the package returns what the native library does', () => {
    for (let round = 0; round < 10; ++round) {
        compare(Array.from({ length: 2000 }, () => {
            const tooltip = randomText(9);
            const start = random(tooltip.length + 2) - 1;
            const range = { start, end: start + random(tooltip.length) };
            return { offset: random(4) - 1, range, tooltip, other: randomText(5), name: randomText(1) };
        }));
    }
    compare([...fragments, '<<', '<"', '<Sheet name="a<', '<Sheet name="a" <', '<Sheet filter="<'].map((part) => {
        const tooltip = part.repeat(Math.ceil(30000 / part.length));
        const range = { start: -(2 ** 52), end: 2 ** 52 };
        return { offset: tooltip.length, range, tooltip, other: tooltip + '">', name: 'a'.repeat(30000) };
    }));
});

test('types and documentation list the kinds of the library', () => {
    const kinds = markup.diagnosticKinds.map(({ kind }) => kind);
    const [, union] = /type DiagnosticKind =([^;]*);/.exec(readFileSync('node_modules/corvanemarkup/corvanemarkup.d.ts', 'utf8'));
    assert.deepEqual(Array.from(union.matchAll(/'(.*?)'/g), ([, kind]) => kind).sort(), kinds.slice().sort());
    const rows = readFileSync('../../../docs/checking.md', 'utf8').matchAll(/^\| `([a-z][a-z-]*)` \|/gm);
    const ofNames = ['unknown-sheet', 'unknown-field']; // these depend on the host
    assert.deepEqual(new Set([...Array.from(rows, ([, kind]) => kind), ...ofNames]), new Set(kinds));
    assert.ok(Object.isFrozen(markup.diagnosticKinds) && markup.diagnosticKinds.every(Object.isFrozen));
});

test('no code unit of a text is altered', () => {
    const units = String.fromCharCode(...Array.from({ length: 2 ** 16 }, (_, unit) => unit)).repeat(2);
    for (const text of [units, units.slice(1), ...Array.from({ length: 1000 }, () => randomText(9))]) {
        assert.ok(markup.applyTextEdits('', [{ range: { start: 0, end: 0 }, newText: text }]) === text);
        const { name, filter } = markup.readSheetElement(markup.makeSheetElement(text, text));
        assert.ok(name === text && filter === text);
    }
});

test('100,000 calls leak no memory, even those that fail', () => {
    const call = () => {
        const range = { start: 40, end: 40 };
        markup.insertFilterFieldAt('<Sheet name="a" filter="<a>,<b>"> <a> <Sheet name = "a">', range, 'c', 'd');
        assert.throws(() => markup.findSheetName('Sheet filter="<a>,<b>"'), { name: 'PreconditionError', condition: 'nameToken' });
        assert.throws(() => markup.targetSheetNames(7), TypeError);
        assert.throws(() => markup.elementKind('', { element: range, content: range, end: 'restart' }), TypeError);
    };
    const used = () => {
        calls.length = 0;
        globalThis.gc();
        const { heapUsed, external, arrayBuffers } = process.memoryUsage();
        return heapUsed + external + arrayBuffers;
    };
    call();
    const [inModule, before] = [memory.buffer.byteLength, used()];
    for (let i = 0; i < 100000; ++i)
        call();
    assert.equal(memory.buffer.byteLength, inModule);
    assert.ok(used() < before + 2 ** 20);
});

test('a call without enough memory fails, and the next one succeeds', () => {
    const longest = 'a'.repeat(2 ** 29 - 24);
    const named = [['a', 'b'.repeat(10 ** 7)]];
    for (const fail of [
        () => markup.sheetsWithChangedFilters(longest, longest), // not enough memory for the arguments
        () => markup.renameSheetsAndFields('<a>'.repeat(60), [], named), // or for the operation
    ]) {
        assert.throws(fail, { name: 'RangeError' });
        assert.deepEqual(markup.markupElements('<a>'), new Set('a'));
    }
});

test('a bundle works in a worker', async () => {
    const contents = "import { markupElements } from 'corvanemarkup'; postMessage(markupElements('<\\ud800>'));";
    buildSync({
        stdin: { contents: `import { parentPort } from 'node:worker_threads'; const postMessage = (m) => parentPort.postMessage(m); ${contents}`, resolveDir: '.' },
        bundle: true, format: 'esm', platform: 'node', target: 'es2022', outfile: 'bundle.mjs',
    });
    const answer = await new Promise((resolve, reject) =>
        new Worker(new URL('bundle.mjs', import.meta.url)).once('message', resolve).once('error', reject));
    assert.deepEqual(answer, new Set(['\ud800']));
});

test('the package is small', () => assert.ok(statSync('../corvanemarkup.tgz').size <= 60000));
