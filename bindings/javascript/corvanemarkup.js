// The JavaScript side of the WebAssembly module. `Binding.cpp` documents the format of arguments and results in the module's
// memory, and `corvanemarkup.d.ts` the functions.

import deflatedModule from './module.js';

export class PreconditionError extends Error {
    constructor(condition) {
        super(`Precondition violated: ${condition}`);
        this.name = 'PreconditionError';
        this.condition = condition;
    }
}

const imports = {
    env: {
        emscripten_notify_memory_growth() {},
        ThrowError(address) {
            const bytes = new Uint8Array(wasm.memory.buffer);
            throw new PreconditionError(
                String.fromCharCode(...bytes.subarray(address, bytes.indexOf(0, address))));
        },
    },
    wasi_snapshot_preview1: { proc_exit() {} },
};

const stream = new Blob([Uint8Array.from(atob(deflatedModule), (letter) => letter.charCodeAt(0))])
    .stream().pipeThrough(new DecompressionStream('deflate'));
const module = await WebAssembly.compile(await new Response(stream).arrayBuffer());
let wasm; // the exports of the instance; null after a call that ran out of memory
let memoryAtStart;
let stackAtStart;

function start(instance) {
    wasm = instance.exports;
    wasm._initialize();
    memoryAtStart = new Uint8Array(wasm.memory.buffer.slice(0));
    stackAtStart = wasm.stackSave();
}

// After a call that threw an error in the module, where no destructors ran.
function reset() {
    new Uint8Array(wasm.memory.buffer).set(memoryAtStart);
    wasm.stackRestore(stackAtStart);
}

start(await WebAssembly.instantiate(module, imports));

// Views of the instance's memory, and the index of the next word to read or write.
let words, units, next;

function lookAt(address) {
    words = new Int32Array(wasm.memory.buffer);
    units = new Uint16Array(wasm.memory.buffer);
    next = address / 4;
}

function writeText(text) {
    words[next++] = text.length;
    const start = 2 * next;
    for (let i = 0; i < text.length; ++i)
        units[start + i] = text.charCodeAt(i);
    next += (text.length + 1) >> 1;
}

function readText() {
    let rest = words[next++];
    let start = 2 * next;
    next += (rest + 1) >> 1;
    let text = '';
    for (; rest > 0; rest -= 4096) { // within the limit of every engine on arguments
        text += String.fromCharCode.apply(null, units.subarray(start, start + Math.min(rest, 4096)));
        start += 4096;
    }
    return text;
}

// Types of values. `put` appends the strings and words of an argument to a list, and `take` reads a result.

function wholeNumber(value) {
    if (!Number.isSafeInteger(value))
        throw new TypeError(`Expected an integer, got ${String(value)}`);
    return value;
}

const text = {
    put(value, items) {
        if (typeof value !== 'string')
            throw new TypeError(`Expected a string, got ${String(value)}`);
        items.push(value);
    },
    take: readText,
};
const number = { // clamping makes no difference: any number beyond 32 bits is out of range
    put: (value, items) => items.push(Math.max(-(2 ** 31), Math.min(wholeNumber(value), 2 ** 31 - 1))),
    take: () => words[next++],
};
const range = {
    put({ start, end }, items) {
        for (const position of [start, end])
            items.push(wholeNumber(position), Math.floor(position / 2 ** 32));
    },
    take: () => ({ start: words[next++], end: words[next++] }),
};
const truth = { take: () => words[next++] !== 0 };
const oneOf = (...names) => ({
    put(value, items) {
        const index = names.indexOf(value);
        if (index < 0)
            throw new TypeError(`Expected one of ${names.join(', ')}, got ${String(value)}`);
        items.push(index);
    },
    take: () => names[words[next++]],
});
const optional = (value) => ({ take: () => (words[next++] === 0 ? null : value.take()) });
const list = (item) => ({
    put(values, items) {
        const all = [...values];
        items.push(all.length);
        for (const value of all)
            item.put(value, items);
    },
    take: () => Array.from({ length: words[next++] }, item.take),
});
const set = (item) => ({ put: list(item).put, take: () => new Set(list(item).take()) });
const pair = (first, second) => ({
    put(value, items) {
        first.put(value[0], items);
        second.put(value[1], items);
    },
    take: () => [first.take(), second.take()],
});
const map = (key, value) => {
    const entries = list(pair(key, value));
    return {
        put: (values, items) => entries.put(new Map(values), items),
        take: () => new Map(entries.take()),
    };
};
const record = (parts) => {
    const entries = Object.entries(parts);
    return {
        put(value, items) {
            for (const [name, part] of entries)
                part.put(value[name], items);
        },
        take() {
            const value = {};
            for (const [name, part] of entries)
                value[name] = part.take();
            return value;
        },
    };
};

function call(index, items, result) {
    try {
        if (wasm === null)
            start(new WebAssembly.Instance(module, imports));
        const count = items.reduce(
            (sum, item) => sum + (typeof item === 'string' ? 1 + ((item.length + 1) >> 1) : 1), 0);
        lookAt(wasm.Reserve(Math.min(count, 2 ** 31)));
        for (const item of items) {
            if (typeof item === 'string')
                writeText(item);
            else
                words[next++] = item; // its low 32 bits
        }
        lookAt(wasm.Call(index));
        const value = result.take();
        wasm.Reserve(0);
        return value;
    } catch (error) {
        if (error instanceof PreconditionError) {
            reset();
            throw error;
        }
        wasm = null; // memory that has grown doesn't shrink
        throw new RangeError('Out of memory, or a text that is too long', { cause: error });
    } finally {
        words = units = null; // which would keep the memory of a discarded instance alive
    }
}

let operationCount = 0;

// Returns the function for the next operation in the table of `Binding.cpp`.
function operation(parameters, result) {
    const index = operationCount++;
    return (...values) => {
        const items = [];
        parameters.forEach((parameter, i) => parameter.put(values[i], items));
        return call(index, items, result);
    };
}

const textEdit = record({ range, newText: text });
const elementRanges = record({
    element: range,
    content: range,
    end: oneOf('bracket', 'interrupted', 'unterminated'),
});

export const version = operation([], text)();
export const diagnosticKinds = Object.freeze(
    operation([], list(record({ kind: text, description: text })))().map(Object.freeze));
export const targetSheetNames = operation([text], set(text));
export const filterFieldsBySheet = operation([text], map(text, set(text)));
export const filterFields = operation([text], list(text));
export const sheetsWithChangedFilters = operation([text, text], list(text));
export const markupElements = operation([text], set(text));
export const isSheetMarkup = operation([text, number], truth);
export const readSheetElement = operation([text], optional(record({
    name: text,
    size: record({ width: number, height: number }),
    filter: optional(text),
    fields: list(text),
    isValid: truth,
    hasDuplicateAttributes: truth,
    missesSheetName: truth,
    hasInvalidSheetSize: truth,
    hasUnallowedAttributes: truth,
})));
export const makeSheetElement = operation([text, text], text);
export const targetSheetName = operation([text], text);
export const targetSheetNamesOfElements = operation([set(text)], set(text));
export const replaceSheetName = operation([text, text, text], optional(text));
export const replaceSheetNameWithThatOf = operation([text, text], text);
export const findSheetName = operation([text], range);
export const findFilterAttribute = operation([text], optional(range));
export const filterIndicesAt = operation([text, range], list(number));
export const insertFilterField = operation([text, text, text, list(number)], text);
export const insertFilterFieldAtCursor =
    operation([text, range, text, text], record({ newMarkupText: text, newCursorPosition: number }));
export const findElementRanges = operation([text], list(elementRanges));
export const elementKind =
    operation([text, elementRanges], oneOf('plain', 'sheet', 'invalid-sheet', 'unreadable-sheet'));
export const findAttributeRanges = operation([text, range], list(record({
    attribute: range,
    name: range,
    value: range,
    nameAndValue: optional(record({ name: text, value: text })),
    fields: list(record({ range, field: text })),
})));
export const findSheetAndFieldNames = operation([text], list(record({
    kind: oneOf('sheet', 'field'),
    status: oneOf('reachable', 'in-invalid-sheet', 'in-unclosed-element', 'without-brackets'),
    name: text,
    range,
    element: range,
})));
export const findDiagnostics = operation([text], list(record({
    kind: oneOf(...diagnosticKinds.map(({ kind }) => kind)),
    severity: oneOf('error', 'warning'),
    message: text,
    range,
    element: range,
})));
export const applyTextEdits = operation([text, list(textEdit)], text);
export const isFieldName = operation([text], truth);
export const renameSheetsAndFields = operation([text, map(text, text), map(text, text)], list(textEdit));
export const insertFilterFieldAt =
    operation([text, range, text, text], optional(record({ edit: textEdit, newCursorPosition: number })));
