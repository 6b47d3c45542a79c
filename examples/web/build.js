// Builds the page in a folder. Usage: node build.js FOLDER

import { build } from 'esbuild';
import { randomBytes } from 'node:crypto';
import { copyFileSync, mkdirSync, readdirSync, readFileSync, writeFileSync } from 'node:fs';

const folder = process.argv[2];
const tooltips = '../tooltips';
const samples = readdirSync(tooltips).sort().map((name) => [name.replace('.tooltip', ''), readFileSync(`${tooltips}/${name}`, 'utf8')]);

await build({
    entryPoints: ['page.js'],
    bundle: true,
    minify: true,
    format: 'esm',
    target: 'es2022',
    legalComments: 'external',
    define: { SAMPLES: JSON.stringify(samples) },
    outdir: folder,
});
mkdirSync(folder, { recursive: true });
for (const name of ['page.css', 'icon.svg'])
    copyFileSync(name, `${folder}/${name}`);
// One for all visits, as the page is static.
const nonce = randomBytes(16).toString('base64');
writeFileSync(`${folder}/index.html`, readFileSync('index.html', 'utf8').replaceAll('@NONCE@', nonce));
