// The rows of the parameters: name, value, and a bar with its range.

const TRACK = 13;               // the height in the drawing of the line that is the range
const LANE = 14;                // height of a line of preset names
const NARROWEST_BAR = 290;      // pixels; names that do not overlap here do not overlap anywhere
const CHARACTER = 6.3;          // average width of a character of a preset name
const LONGEST_NAME = 22;        // characters

// The bounds of the number types, which parameters without bounds have.
const NO_MINIMUM = new Set([undefined, -Number.MAX_VALUE, -2147483648]);
const NO_MAXIMUM = new Set([undefined, Number.MAX_VALUE, 2147483647, 4294967295]);

/**
 * How the numbers of a parameter map to 0 to 100 (percent of the bar): logarithmically for more than three decades.
 * Undefined for constants and for parameters without bounds.
 */
function scaleOf({ minimum, maximum }) {
    if (NO_MINIMUM.has(minimum) || NO_MAXIMUM.has(maximum) || minimum === maximum)
        return undefined;
    const isLogarithmic = minimum > 0 && maximum / minimum > 1000;
    // Halves, because the difference of two numbers may be too large for a number.
    const place = isLogarithmic
        ? number => Math.log(number / minimum) / Math.log(maximum / minimum)
        : number => (number / 2 - minimum / 2) / (maximum / 2 - minimum / 2);
    return { isLogarithmic, place: number => 100 * place(number) };
}

/**
 * The names of the presets with their places, each in a lane (0 is the uppermost) where it covers neither another name
 * nor the line from another tick to its name. Names extend towards the middle; those that are nearer to it go first.
 */
function placeNames(presets, place) {
    const names = Object.entries(presets).map(([name, number]) => {
        const at = place(number);
        const label = shortened(name, LONGEST_NAME) + ' ' + textOf(number);
        const width = CHARACTER * [...label].length + 8;
        const x = at / 100 * NARROWEST_BAR;
        return { name, label, at, x, isLeft: at <= 50, from: at <= 50 ? x : x - width, to: at <= 50 ? x + width : x };
    });
    names.sort((a, b) => Math.abs(a.at - 50) - Math.abs(b.at - 50));
    let lanes = 0;
    names.forEach((name, index) => {
        const overlaps = other => name.from < other.to && other.from < name.to;
        const covers = other => name.from < other.x && other.x < name.to;
        const isTaken = lane => names.slice(0, index).some(other =>
            other.lane === lane ? overlaps(other) : other.lane > lane && covers(other));
        name.lane = 0;
        while (isTaken(name.lane))
            ++name.lane;
        lanes = Math.max(lanes, name.lane + 1);
    });
    return { names, lanes };
}

function drawBar(parameter, { place }) {
    const { value, defaultValue, other, presets = {} } = parameter;
    const { names, lanes } = placeNames(presets, place);
    const bar = svg('svg', { class: 'bar', height: 2 * TRACK + (lanes > 0 ? lanes * LANE + 4 : 0), 'aria-hidden': 'true' });
    const line = (kind, x1, y1, x2, y2) =>
        svg('line', { class: kind, x1: x1 + '%', y1, x2: x2 + '%', y2 });
    bar.append(line('track', 0, TRACK, 100, TRACK));
    for (const { name, label, at, isLeft, lane } of names) {
        const y = 2 * TRACK + lane * LANE + 8;
        const text = svg('text', { x: at + '%', y, dx: isLeft ? 4 : -4, class: isLeft ? 'left' : 'right' }, svg('title', {}, name), label);
        bar.append(fill(line('preset', at, TRACK - 5, at, y + 1), { 'data-name': name }, []), text);
    }
    if (parameter.differsFromDefault)
        bar.append(line('difference', place(defaultValue), TRACK, place(value), TRACK));
    bar.append(line('default', place(defaultValue), TRACK - 9, place(defaultValue), TRACK + 9));
    if (parameter.differsFromOther && other !== undefined) {
        const at = Math.min(100, Math.max(0, place(other)));
        bar.append(svg('svg', { x: (Number.isFinite(at) ? at : 0) + '%', y: TRACK, class: 'place' },
            svg('path', { class: 'other', d: 'M0-9 9 0 0 9-9 0Z' })));
    }
    bar.append(svg('circle', { class: 'value', cx: place(value) + '%', cy: TRACK, r: 5.5 }));
    return bar;
}

/** What is said about a parameter without a bar. */
function describeBounds({ minimum, maximum, defaultValue, unit }) {
    if (defaultValue === undefined || (minimum !== undefined && minimum === maximum))
        return 'constant';
    if (!NO_MINIMUM.has(minimum))
        return 'at least ' + withUnit(minimum, unit);
    return NO_MAXIMUM.has(maximum) ? 'no bounds' : 'at most ' + withUnit(maximum, unit);
}

function detailsOf({ defaultValue, precision, other, differsFromOther }, scale) {
    const details = [];
    if (defaultValue !== undefined)
        details.push('default ' + textOf(defaultValue));
    if (differsFromOther)
        details.push(`${otherName()} ${other === undefined ? 'has none' : textOf(other)}`);
    if (precision !== undefined)
        details.push('precision ' + textOf(precision));
    if (scale?.isLogarithmic)
        details.push('log scale');
    return details;
}

function makeScale(parameter) {
    const { minimum, maximum, unit, presets = {} } = parameter;
    const scale = scaleOf(parameter);
    const details = detailsOf(parameter, scale);
    const named = Object.entries(presets).map(([name, number]) => `${name} ${textOf(number)}`).join(', ');
    if (!scale)
        return html('div', { class: 'scale' }, html('p', { class: 'ends' },
            [describeBounds(parameter), ...details, ...(named ? ['presets: ' + named] : [])].join(' \u00b7 ')));
    const ends = [textOf(minimum), details.join(' \u00b7 '), withUnit(maximum, unit)];
    return html('div', { class: 'scale' },
        drawBar(parameter, scale),
        html('p', { class: 'ends', 'aria-hidden': 'true' }, ...ends.map(end => html('span', {}, end))),
        spoken(`Range ${textOf(minimum)} to ${withUnit(maximum, unit)}, ${details.join(', ')}` +
               (named ? `, presets: ${named}` : '')));
}

function makeValue({ value, defaultValue, unit, other, differsFromDefault, differsFromOther }) {
    const cell = html('div', { class: 'figure' }, html('b', {}, textOf(value)), unit ? ' ' + unit : '');
    if (differsFromDefault)
        cell.append(html('span', { class: 'from-default' }, differenceOf(value, defaultValue) + ' from default'));
    if (differsFromOther && other !== undefined)
        cell.append(html('span', { class: 'from-other' }, `${differenceOf(value, other)} from ${otherName()}`));
    return cell;
}

/** The row of a parameter in the section with the path `sectionPath`. */
function makeRow(parameter, sectionPath) {
    const { path, differsFromDefault, differsFromOther } = parameter;
    const label = path.slice(sectionPath.length + 1).split('.').map(wordsOf).join(' \u203a ');
    const kinds = ['row', differsFromDefault && 'differs', differsFromOther && 'differs-from-other'];
    return html('li', { class: kinds.filter(Boolean).join(' '), 'data-path': path },
        html('div', { class: 'name' }, html('span', {}, label), pathElement(path)),
        makeValue(parameter), makeScale(parameter));
}
