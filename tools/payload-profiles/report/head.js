// The sensor head to scale: the points of all lever arms, from above and from the side. The axes of the profiles are x
// forward, y to the right and z down, in metres from the reference point.

const VIEW = { width: 360, left: 44, right: 214, labels: 230, top: 12, bottom: 44, tallest: 300 };
const PADDING = 24;     // pixels between the points and the edge of the grid
const ARROW = 30;       // pixels of a direction in the plane of the drawing
const LABEL = 16;       // pixels from one name to the next
const SMALLEST = 0.05;  // metres that a drawing spans at least

const SYMBOLS = {
    reference: 'M-8 0H8M0-8V8',
    antenna: 'M0-6 6 5H-6Z',
    camera: 'M-5 0A5 5 0 0 1 5 0 5 5 0 0 1-5 0Z',
    imu: 'M0-6 6 0 0 6-6 0Z',
    lidar: 'M-5-5H5V5H-5Z',
};

const vectorOf = (profile, path, keys) => keys.map(key => lookUp(profile, `${path}.${key}.value`));

/** Where a camera looks: straight down, turned about y by Ty, then about x by Tx. Tz turns it about this direction. */
function directionOf([tx, ty]) {
    const [x, y] = [tx, ty].map(arcminutes => arcminutes / 60 * Math.PI / 180);
    return [Math.sin(y), -Math.sin(x) * Math.cos(y), Math.cos(x) * Math.cos(y)];
}

/** The reference point and all that has a lever arm: name, kind, position and, for cameras, directions. */
function pointsOf(profile) {
    const points = [{ name: 'Reference point', path: '', kind: 'reference', position: [0, 0, 0] }];
    for (const parameterPath of data.paths) {
        const [, owner, arm] = /^(.*)\.(lever_arm(?:_antenna)?)\.x$/.exec(parameterPath) ?? [];
        const path = `${owner}.${arm}`;
        if (owner === undefined || lookUp(profile, path) === undefined)
            continue;
        const title = titleOf(profile, owner);
        const isAntenna = arm === 'lever_arm_antenna';
        const point = { name: title + (isAntenna ? ' antenna' : ''), path, position: vectorOf(profile, path, ['x', 'y', 'z']) };
        point.kind = isAntenna ? 'antenna' : ['camera', 'imu', 'lidar'].find(kind => title.toLowerCase().startsWith(kind));
        if (point.kind === 'camera') {
            point.angles = vectorOf(profile, owner + '.boresight_angles', ['Tx', 'Ty', 'Tz']);
            point.direction = directionOf(point.angles);
            point.kappa = lookUp(profile, owner + '.kappa_cardinal.value');
        }
        points.push(point);
    }
    return points;
}

/** The smallest and the largest coordinate of an axis. */
function extentOf(points, axis) {
    const numbers = points.map(point => point.position[axis]);
    const [from, to] = [Math.min(...numbers), Math.max(...numbers)];
    const missing = Math.max(0, SMALLEST - (to - from)) / 2;
    return { from: from - missing, to: to + missing, span: to - from + 2 * missing };
}

/** Pixels per metre, the same for both views; not a finite number above zero where the points cannot be drawn. */
function chooseScale(points) {
    const [x, y, z] = [0, 1, 2].map(axis => extentOf(points, axis).span);
    return Math.min((VIEW.right - VIEW.left - 2 * PADDING) / x, (VIEW.tallest - 2 * PADDING) / Math.max(y, z));
}

/** 1, 2 or 5 times a power of ten metres, at least 28 pixels wide. */
function chooseStep(scale) {
    const power = 10 ** Math.floor(Math.log10(28 / scale));
    return [1, 2, 5, 10].map(factor => factor * power).find(step => step * scale >= 28);
}

function drawArrow(kind, [x, y], [dx, dy]) {
    const length = Math.hypot(dx, dy);
    if (length < 4) // along the line of sight
        return svg('circle', { class: kind + ' end-on', cx: x, cy: y, r: 9 });
    const [ux, uy] = [dx / length, dy / length];
    const [tipX, tipY] = [x + dx, y + dy];
    const side = sign => `${tipX - 7 * ux - 3.5 * sign * uy} ${tipY - 7 * uy + 3.5 * sign * ux}`;
    return svg('path', { class: kind, d: `M${x} ${y}L${tipX} ${tipY}M${side(1)}L${tipX} ${tipY}L${side(-1)}` });
}

function drawGrid(view, scale) {
    const step = chooseStep(scale);
    const grid = svg('g', { class: 'grid' });
    const each = (origin, from, to, draw) => {
        for (let i = Math.ceil((from - origin) / scale / step); i * step * scale + origin <= to; ++i)
            draw(origin + i * step * scale, textOf(Number((i * step).toPrecision(6))), i === 0 ? 'axis' : 'step');
    };
    each(view.originX, VIEW.left, VIEW.right, (x, text, kind) => grid.append(
        svg('line', { class: kind, x1: x, x2: x, y1: VIEW.top, y2: view.bottom }),
        svg('text', { class: 'metres', x, y: view.bottom + 14, 'text-anchor': 'middle' }, text)));
    each(view.originY, VIEW.top, view.bottom, (y, text, kind) => grid.append(
        svg('line', { class: kind, x1: VIEW.left, x2: VIEW.right, y1: y, y2: y }),
        svg('text', { class: 'metres', x: VIEW.left - 5, y: y + 4, 'text-anchor': 'end' }, text)));
    grid.append(
        svg('text', { class: 'title', x: VIEW.right, y: view.bottom + 31, 'text-anchor': 'end' }, 'x forward (m) \u2192'),
        svg('text', { class: 'title', x: -view.bottom, y: 11, transform: 'rotate(-90)' }, `\u2190 ${view.axisName} (m)`));
    return grid;
}

/** The names beside the drawing, each with a line to its point. */
function drawNames(view, points) {
    const names = svg('g', { class: 'names' });
    const sorted = points.map(point => ({ point, at: view.toPixels(point.position) })).sort((a, b) => a.at[1] - b.at[1] || b.at[0] - a.at[0]);
    const highest = index => VIEW.top + 8 + index * LABEL;
    const lowest = index => view.bottom - 4 - (sorted.length - 1 - index) * LABEL;
    let y = -Infinity;
    sorted.forEach(({ point, at }, index) => {
        y = Math.min(Math.max(at[1], y + LABEL, highest(index)), lowest(index));
        names.append(
            svg('path', { class: 'leader', d: `M${at[0]} ${at[1]}L${VIEW.right + 2} ${y}H${VIEW.labels - 4}` }),
            svg('text', { x: VIEW.labels, y: y + 4 }, shortened(point.name, 22)));
    });
    return names;
}

function drawPoints(view, points, others) {
    const marks = svg('g');
    const mark = (point, kind) => {
        const [x, y] = view.toPixels(point.position);
        marks.append(svg('path', { class: kind, d: SYMBOLS[point.kind], transform: `translate(${x} ${y})`, 'data-point': point.path }));
        return [x, y];
    };
    others.forEach(point => mark(point, 'point moved'));
    for (const point of points) {
        const at = mark(point, 'point ' + point.kind);
        if (point.direction)
            marks.append(drawArrow('looks', at, [0, view.axis].map(axis => ARROW * point.direction[axis])));
        if (point.kappa !== undefined && view.axis === 1) {
            const angle = point.kappa * Math.PI / 180;
            marks.append(drawArrow('kappa', at, [ARROW * Math.cos(angle), ARROW * Math.sin(angle)]));
        }
    }
    return marks;
}

/** The view along the axis that is neither x nor `axis`. */
function drawView(points, others, scale, axis, axisName, title) {
    const all = [...points, ...others];
    const [across, along] = [extentOf(all, 0), extentOf(all, axis)];
    const height = Math.max(along.span * scale + 2 * PADDING, (points.length + 1) * LABEL, 96);
    const view = { axis, axisName, bottom: VIEW.top + height };
    view.originX = (VIEW.left + VIEW.right) / 2 - (across.from + across.to) / 2 * scale;
    view.originY = VIEW.top + height / 2 - (along.from + along.to) / 2 * scale;
    view.toPixels = position => [view.originX + position[0] * scale, view.originY + position[axis] * scale];
    const drawing = svg('svg', {
        class: 'view', viewBox: `0 0 ${VIEW.width} ${view.bottom + VIEW.bottom}`, role: 'img',
        'aria-label': `The sensor head ${title}. The table gives the positions.`,
    });
    drawing.append(drawGrid(view, scale), drawNames(view, points), drawPoints(view, points, others));
    drawing.dataset.origin = `${view.originX} ${view.originY}`;
    drawing.dataset.scale = scale;
    return html('figure', {}, html('figcaption', {}, 'Seen ' + title), drawing);
}

function makePointTables(points) {
    const cameras = points.filter(point => point.kind === 'camera');
    const numbers = list => list.map(textOf);
    const positions = table(['Point', 'x', 'y', 'z'], points.map(({ name, position }) => [name, ...numbers(position)]), { class: 'numbers' });
    positions.prepend(html('caption', {}, 'Metres from the reference point: x forward, y to the right, z down'));
    if (cameras.length === 0)
        return [positions];
    const angles = table(['Camera', 'Tx', 'Ty', 'Tz', 'kappa'],
        cameras.map(({ name, angles: turned, kappa }) => [name, ...numbers([...turned, kappa])]), { class: 'numbers' });
    angles.prepend(html('caption', {}, 'Boresight angles in minutes of arc, kappa in degrees'));
    return [positions, angles];
}

function makeHead(profile, reference) {
    const points = pointsOf(profile);
    const positionsBefore = new Map(points.map(({ path, position }) => [path, String(position)]));
    const others = reference ? pointsOf(reference).filter(({ path, position }) => positionsBefore.get(path) !== String(position)) : [];
    const scale = chooseScale([...points, ...others]);
    const hasCameras = points.some(point => point.kind === 'camera');
    const drawn = scale > 1e-9
        ? [drawView(points, others, scale, 1, 'y right', 'from above'), drawView(points, others, scale, 2, 'z down', 'from the right')]
        : [html('p', {}, 'The positions are too far apart to be drawn.')];
    const key = html('p', { class: 'key' });
    if (hasCameras)
        key.append(html('span', { class: 'looks' }, 'A camera looks along the solid arrow, towards or away from you in a ring.'), ' ',
            html('span', { class: 'kappa' }, 'Kappa turns the dashed arrow clockwise from forward.'));
    if (others.length > 0)
        key.append(' ', html('span', { class: 'moved' }, `Hollow marks: ${otherName()}.`));
    return section('Sensor head', { class: 'pictures head' },
        html('div', { class: 'views' }, ...drawn, html('div', { class: 'tables' }, ...makePointTables(points))), key);
}
