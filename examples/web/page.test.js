import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import { extname } from 'node:path';
import test from 'node:test';
import { Text } from '@codemirror/state';
import { findElementRanges } from 'corvanemarkup';
import puppeteer from 'puppeteer-core';
import { Elements } from './elements.js';

const types = { '.html': 'text/html', '.js': 'text/javascript', '.css': 'text/css', '.svg': 'image/svg+xml' };
const server = createServer(async ({ url }, response) => {
    const file = url === '/' ? '/index.html' : url;
    response.setHeader('Content-Type', types[extname(file)] ?? 'text/plain');
    response.end(await readFile(`../page${file}`).catch(() => response.writeHead(404) && ''));
}).listen(0, '127.0.0.1');
const browser = await puppeteer.launch({
    executablePath: '/usr/bin/chromium',
    args: process.getuid() === 0 ? ['--no-sandbox'] : [],
});
const page = await browser.newPage();
const troubles = [];
page.on('console', (message) => message.type() === 'error' && troubles.push(message.text()));
page.on('pageerror', (error) => troubles.push(error.message));
page.on('request', (request) => new URL(request.url()).hostname === '127.0.0.1' || troubles.push(request.url()));

const home = `http://127.0.0.1:${server.address().port}/`;
// As JSON, which preserves lone surrogates.
const text = async () => JSON.parse(await page.$eval('.cm-content', (content) => JSON.stringify(content.cmView.view.state.doc.toString())));
const type = (keys) => page.keyboard.type(keys);
const press = async (key) => {
    await page.keyboard.down('Control');
    await page.keyboard.press(key);
    await page.keyboard.up('Control');
};
const shown = (id, words) => page.waitForFunction(
    (selector, sought) => document.querySelector(selector)?.textContent.includes(sought), {}, id, words);

test.after(async () => {
    await browser.close();
    server.close();
});

test('a tooltip can be edited, and is restored from its address', async () => {
    await page.goto(home);
    await shown('#sheets', 'Top Customers');
    await press('a');
    await type('<Sheet name = "S">');
    await shown('.cm-panel-lint', "Line 1: 'name = \"S\"' has white space around its '='; remove it");
    await shown('.unreadable-sheet .name', 'name');

    await press('a');
    await type('<Sheet name="S" filter="<Reg');
    await shown('.cm-tooltip-autocomplete', '<Region>');
    await new Promise((resolve) => setTimeout(resolve, 200)); // a list that has just opened ignores keys
    await page.keyboard.press('Enter');
    await type('"> 🎯');
    assert.equal(await text(), '<Sheet name="S" filter="<Region>"> 🎯');
    await page.evaluate("document.querySelector('.cm-content').cmView.view.dispatch({ changes: { from: 0, insert: '\\ud83c\\r\\0' } })");

    for (let i = 0; i < 4; ++i)
        await page.keyboard.press('ArrowLeft');
    await press('i');
    await type('Year\n');
    assert.equal(await text(), '\ud83c\r\0<Sheet name="S" filter="<Region>,<Year>"> 🎯');
    await shown('#sheets', '"S": Region, Year');
    await shown('.sheet .field', '<Region>');
    await page.keyboard.press('F2');
    await page.keyboard.press('Tab');
    await type('T\n');
    await shown('#sheets', '"T": Region, Year');
    await press('z');
    await shown('#sheets', '"S": Region, Year');

    const written = await text();
    await page.waitForFunction(() => location.hash.length > 1);
    await page.reload();
    await shown('#sheets', '"S": Region, Year');
    assert.equal(await text(), written);
    assert.deepEqual(troubles, []);
});

test('elements found while the text changes are those of the whole text', () => {
    const fragments = ['<', '<<', '>', '>>', '"', 'a', '<Sheet name="', '<Sheet name="a">', '<b>', ' '.repeat(3000)];
    let seed = 1;
    const some = (count) => (seed = (seed * 48271) % 2147483647) % count;
    for (let round = 0; round < 300; ++round) {
        const elements = new Elements();
        let doc = Text.of(['']);
        for (let step = 0; step < 20; ++step) {
            const from = some(doc.length + 1);
            const to = Math.min(doc.length, from + some(3) * some(3));
            doc = doc.replace(from, to, Text.of([Array.from({ length: some(9) }, () => fragments[some(fragments.length)]).join('')]));
            elements.forget(from);
            const [start, end] = [some(doc.length + 1), some(doc.length + 1)].sort((left, right) => left - right);
            const expected = findElementRanges(doc.toString()).filter(({ element }) => element.end >= start && element.start <= end);
            assert.deepEqual(elements.in(doc, start, end), expected, JSON.stringify([doc.toString(), from, start, end]));
        }
    }
});
