// Elements of the page. Texts always become text nodes, never markup.

function fill(element, attributes, children) {
    for (const [name, value] of Object.entries(attributes))
        element.setAttribute(name, value);
    element.append(...children);
    return element;
}

const html = (tag, attributes = {}, ...children) => fill(document.createElement(tag), attributes, children);

const svg = (tag, attributes = {}, ...children) =>
    fill(document.createElementNS('http://www.w3.org/2000/svg', tag), attributes, children);

/** A text of the profile, in any script, which leaves the direction of the text around it as it is. */
const foreign = text => html('bdi', {}, text);

/** A path, which breaks before its dots where there is too little room. */
const pathElement = path => html('code', {}, ...path.split(/(?=\.)/).flatMap(step => [html('wbr'), step]));

/** A text that only screen readers give. */
const spoken = text => html('span', { class: 'spoken' }, text);

function table(headings, rows, attributes = {}) {
    const head = html('tr', {}, ...headings.map(heading => html('th', { scope: 'col' }, heading)));
    const lines = rows.map(cells => html('tr', {}, ...cells.map((cell, column) =>
        column === 0 ? html('th', { scope: 'row' }, cell) : html('td', {}, cell))));
    return html('table', attributes, html('thead', {}, head), html('tbody', {}, ...lines));
}

/** A section that folds. */
const section = (title, attributes, ...children) =>
    html('details', { open: '', ...attributes }, html('summary', {}, html('h3', {}, title)), ...children);

/** The first characters of a text that is too long. */
function shortened(text, length) {
    const characters = [...text];
    return characters.length <= length ? text : characters.slice(0, length - 1).join('') + '\u2026';
}
