// Stores a text in the fragment of the page's address: its code units, deflated, in the URL-safe variant of Base64.

export const longestAddress = 8000;

async function pump(bytes, transform) {
    return new Uint8Array(await new Response(new Blob([bytes]).stream().pipeThrough(transform)).arrayBuffer());
}

export async function toHash(text) {
    const bytes = new Uint8Array(2 * text.length);
    for (let i = 0; i < text.length; ++i) {
        bytes[2 * i] = text.charCodeAt(i) & 255;
        bytes[2 * i + 1] = text.charCodeAt(i) >> 8;
    }
    const deflated = await pump(bytes, new CompressionStream('deflate'));
    if (deflated.length > longestAddress)
        return null;
    return '#' + btoa(String.fromCharCode(...deflated)).replace(/\+/g, '-').replace(/\//g, '_').replace(/=+$/, '');
}

export async function fromHash(hash) {
    const deflated = Uint8Array.from(atob(hash.slice(1).replace(/-/g, '+').replace(/_/g, '/')), (unit) => unit.charCodeAt(0));
    const bytes = await pump(deflated, new DecompressionStream('deflate'));
    let text = '';
    for (let i = 0; i + 1 < bytes.length; i += 2)
        text += String.fromCharCode(bytes[i] | (bytes[i + 1] << 8));
    return text;
}
