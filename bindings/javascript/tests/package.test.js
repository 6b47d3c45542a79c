import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { statSync } from 'node:fs';
import test from 'node:test';
import { Worker } from 'node:worker_threads';
import { buildSync } from 'esbuild';

// Seen as it is made, since the package doesn't show it.
let memory;
const instantiate = WebAssembly.instantiate;
WebAssembly.instantiate = async (...given) => {
    const instance = await instantiate(...given);
    memory = instance.exports.memory;
    return instance;
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

function askPackage({ offset, range, tooltip, other, name }) {
    const m = markup;
    const names = new Map([[name, other]]);
    return [
        [m.targetSheetNames, tooltip], [m.filterFieldsBySheet, tooltip], [m.filterFields, tooltip],
        [m.sheetsWithChangedFilters, tooltip, other], [m.markupElements, tooltip], [m.isSheetMarkup, tooltip, offset],
        [m.readSheetElement, tooltip], [m.makeSheetElement, name, other], [m.targetSheetName, tooltip],
        [m.targetSheetNamesOfElements, m.markupElements(tooltip)],
        [m.replaceSheetName, tooltip, m.targetSheetName(tooltip), name], [m.replaceSheetNameWithThatOf, tooltip, other],
        [m.findSheetName, tooltip], [m.findFilterAttribute, tooltip], [m.filterIndicesAt, tooltip, range],
        [m.insertFilterField, tooltip, name, other, [offset, offset + 1]],
        [m.insertFilterFieldAtCursor, tooltip, range, name, other],
        [m.findElementRanges, tooltip], [m.findAttributeRanges, tooltip, range], [m.findMarkupFaults, tooltip],
        [m.applyTextEdits, tooltip, [{ replaced: range, text: name }, { replaced: { start: range.end, end: range.end }, text: other }]],
        [m.isFieldName, name], [m.renameSheetsAndFields, tooltip, names, names],
        [m.insertFilterFieldAt, tooltip, range, name, other],
    ].map(([ask, ...given]) => {
        try {
            return ask(...given);
        } catch (error) {
            return error.condition ?? error;
        }
    });
}

// As the native program tells it: lists for all that holds something, and indices of names.
const names = {
    end: ['bracket', 'restart', 'endOfText'],
    kind: [
        'missingEnd', 'openQuotes', 'restart', 'otherLetterCase', 'noAttributes', 'otherWhiteSpace', 'spaceAroundEquals',
        'unquotedValue', 'missingValue', 'unprotectedQuotes', 'duplicateAttribute', 'missingSheetName', 'invalidSheetSize',
        'unallowedAttribute', 'strayFilterText', 'duplicateField',
    ],
};
function plain(value, key) {
    if (typeof value === 'string')
        return names[key]?.indexOf(value) ?? value;
    if (value === null || typeof value !== 'object')
        return value;
    if (typeof value[Symbol.iterator] === 'function')
        return Array.from(value, (item) => plain(item));
    return Object.entries(value).map(([name, part]) => plain(part, name));
}

function compare(cases) {
    const hex = (text) => 'x' + Array.from(text.split(''), (unit) => unit.charCodeAt(0).toString(16).padStart(4, '0')).join('');
    const input = cases.map(({ offset, range, tooltip, other, name }) =>
        [offset, range.start, range.end, hex(tooltip), hex(other), hex(name)].join(' ')).join('\n');
    const output = execFileSync('../native/native-answers', { input, maxBuffer: 2 ** 30 }).toString();
    const answers = output.trimEnd().split('\n');
    assert.equal(answers.length, cases.length);
    cases.forEach((each, i) => assert.deepEqual(plain(askPackage(each)), JSON.parse(answers[i]), JSON.stringify(each)));
}

test('the package answers as the native library does', () => {
    for (let round = 0; round < 15; ++round) {
        compare(Array.from({ length: 2000 }, () => {
            const tooltip = randomText(9);
            const start = random(tooltip.length + 2) - 1;
            const range = { start, end: start + random(tooltip.length) };
            return { offset: random(4) - 1, range, tooltip, other: randomText(5), name: randomText(1) };
        }));
    }
});

test('the package answers as the native library does about hostile texts', () => {
    compare([...fragments, '<<', '<"', '<Sheet name="a<', '<Sheet name="a" <', '<Sheet filter="<'].map((part) => {
        const tooltip = part.repeat(Math.ceil(30000 / part.length));
        const range = { start: -(2 ** 52), end: 2 ** 52 };
        return { offset: tooltip.length, range, tooltip, other: tooltip + '">', name: 'a'.repeat(30000) };
    }));
});

test('no memory is lost over 100,000 calls, and none after calls that fail', () => {
    const call = () => {
        const range = { start: 40, end: 40 };
        markup.insertFilterFieldAt('<Sheet name="a" filter="<a>,<b>"> <a> <Sheet name = "a">', range, 'c', 'd');
        assert.throws(() => markup.findSheetName('Sheet filter="<a>,<b>"'), { name: 'PreconditionError', condition: 'nameToken' });
        assert.throws(() => markup.targetSheetNames(7), TypeError);
    };
    const used = () => {
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

test('without memory a call fails, and the next one goes on', () => {
    const longest = 'a'.repeat(2 ** 29 - 24);
    const named = [['a', 'b'.repeat(10 ** 7)]];
    for (const fail of [
        () => markup.sheetsWithChangedFilters(longest, longest), // no room for the arguments
        () => markup.renameSheetsAndFields('<a>'.repeat(60), [], named), // nor for what is done with them
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

test('the package is small', () => assert.ok(statSync('../corvanemarkup.tgz').size <= 40000));
