// The elements of a long text that changes with every key. Reads only the text between the last known element before the
// change and the end of the visible part.

import { elementKind, findAttributeRanges, findElementRanges } from 'corvanemarkup';

const shifted = ({ start, end }, by) => ({ start: start + by, end: end + by });

export class Elements {
    #known = []; // in text order
    #knownUpTo = 0; // not inside an element; all elements before it are known

    get #last() {
        return this.#known[this.#known.length - 1];
    }

    // To be called when the text from `position` on has changed.
    forget(position) {
        this.#knownUpTo = Math.max(0, Math.min(this.#knownUpTo, position - 1)); // a bracket before it may become half of a pair
        // An element that ends right at the change continues if the new text begins with a bracket. Reading can resume only
        // after an element that ends with a bracket: quotes may still protect brackets after an interrupted one.
        while (this.#known.length > 0 && (this.#last.element.end >= position || this.#last.end !== 'bracket'))
            this.#knownUpTo = Math.min(this.#knownUpTo, this.#known.pop().element.start);
    }

    // Returns the elements that overlap or touch the range from `from` to `to`.
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
        // Starts after the last element, or later where that can't split a run of brackets, which is read in pairs.
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
        // A bracket at the end may be the first half of a pair, or start an element.
        this.#knownUpTo = end === doc.length ? end : Math.max(this.#last?.element.end ?? 0, Math.min(cut, end - 1));
    }
}

// The kind of an element, and the attributes of one called Sheet.
export function readElement(doc, { element, content, end }) {
    const text = doc.sliceString(element.start, element.end);
    const contentInText = shifted(content, -element.start);
    const kind = elementKind(text, { element: shifted(element, -element.start), content: contentInText, end });
    const attributes = kind === 'plain' ? [] : findAttributeRanges(text, contentInText);
    return {
        kind,
        attributes: attributes.map(({ name, value, nameAndValue, fields }) => ({
            name: shifted(name, element.start),
            value: shifted(value, element.start),
            nameAndValue,
            fields: fields.map(({ range }) => shifted(range, element.start)),
        })),
    };
}
