// What stands where in a long text that changes at every key: only what lies between the last element known in front of the
// change and the end of what is shown is read anew.

import { findAttributeRanges, findElementRanges, readSheetElement } from 'corvanemarkup';

const shifted = ({ start, end }, by) => ({ start: start + by, end: end + by });

export class Elements {
    #known = []; // in the order of the text
    #knownUpTo = 0; // between elements; those in front of it are all known

    get #last() {
        return this.#known[this.#known.length - 1];
    }

    // The text from `position` on is another one.
    forget(position) {
        this.#knownUpTo = Math.max(0, Math.min(this.#knownUpTo, position - 1)); // a bracket there may become half of a pair
        // An element that ends right at the change may go on, if that begins with a bracket. And reading can begin anew after
        // an element with its bracket alone, since one that is given up may leave quotes in force.
        while (this.#known.length > 0 && (this.#last.element.end >= position || this.#last.end !== 'bracket'))
            this.#knownUpTo = Math.min(this.#knownUpTo, this.#known.pop().element.start);
    }

    // The elements that overlap or touch what stands between `from` and `to`.
    in(doc, from, to) {
        for (let more = 4000; this.#knownUpTo < doc.length && this.#knownUpTo <= to; more *= 4)
            this.#read(doc, Math.min(doc.length, to + more));
        const first = this.#firstThat((element) => element.end >= from);
        return this.#known.slice(first, this.#firstThat((element) => element.start > to));
    }

    #firstThat(holds) {
        let low = 0;
        for (let high = this.#known.length; low < high;) {
            const middle = (low + high) >> 1;
            if (holds(this.#known[middle].element))
                high = middle;
            else
                low = middle + 1;
        }
        return low;
    }

    #read(doc, end) {
        // From the last element on, or from further on if no run of brackets, which is read in pairs, begins earlier.
        const lastEnd = this.#last?.element.end ?? 0;
        const near = Math.max(lastEnd, this.#knownUpTo - 100);
        const text = doc.sliceString(near, this.#knownUpTo).replace(/<+$/, '');
        const start = text === '' ? lastEnd : near + text.length;
        const isCut = ({ element, end: ending }) => ending !== 'bracket' || start + element.end === end;
        const elements = findElementRanges(doc.sliceString(start, end));
        let cut = end;
        while (end < doc.length && elements.length > 0 && isCut(elements.at(-1)))
            cut = start + elements.pop().element.start;
        for (const { element, content, end: ending } of elements)
            this.#known.push({ element: shifted(element, start), content: shifted(content, start), end: ending });
        // A last bracket may be the first half of a pair, or of an element.
        this.#knownUpTo = end === doc.length ? end : Math.max(this.#last?.element.end ?? 0, Math.min(cut, end - 1));
    }
}

// The attributes of an element, with what is told of the whole: `null` unless it is written as a sheet element.
export function readSheet(doc, { content, end }) {
    const text = doc.sliceString(content.start, content.end);
    if (!/^Sheet\s/.test(text))
        return null;
    const isValid = end === 'bracket' && readSheetElement(text)?.isValid === true;
    const attributes = findAttributeRanges(text, { start: 0, end: text.length }).map((attribute) => ({
        called: attribute.nameAndValue?.name.toLowerCase() ?? '',
        name: shifted(attribute.name, content.start),
        value: shifted(attribute.value, content.start),
        text: attribute.nameAndValue,
        fields: attribute.fields.map(({ range, field }) => ({ range: shifted(range, content.start), field })),
    }));
    return { isValid, attributes };
}
