// The fields of view of the lidar as fans, and the range of the boresight calibration.

const OUTER = 80;
const INNER = 58;

/** A point at `angle` degrees, of which 0 is down and 90 to the right, and at `radius` pixels from the centre. */
const onFan = (angle, radius) => {
    const radians = angle * Math.PI / 180;
    return `${(radius * Math.sin(radians)).toFixed(3)} ${(radius * Math.cos(radians)).toFixed(3)}`;
};

/** The sector of a range of angles. More than a turn is a circle. */
function drawSector(kind, { minimum, maximum }, radius) {
    const isCircle = maximum - minimum >= 360;
    const isWide = maximum - minimum > 180 ? 1 : 0;
    const d = isCircle
        ? `M0 ${radius}A${radius} ${radius} 0 0 0 0 ${-radius}A${radius} ${radius} 0 0 0 0 ${radius}Z`
        : `M0 0L${onFan(minimum, radius)}A${radius} ${radius} 0 ${isWide} 0 ${onFan(maximum, radius)}Z`;
    return svg('path', { class: kind, d, 'data-range': `${minimum} ${maximum}` });
}

function drawFan(label, ...sectors) {
    const fan = svg('svg', { class: 'fan', viewBox: '-118 -104 236 208', role: 'img', 'aria-label': label });
    fan.append(svg('circle', { class: 'rim', r: OUTER }));
    for (let angle = -180; angle < 180; angle += 15)
        fan.append(svg('path', { class: 'tick', d: `M${onFan(angle, OUTER + 2)}L${onFan(angle, OUTER + (angle % 45 === 0 ? 8 : 5))}` }));
    for (const angle of [-90, 0, 90]) {
        const [x, y] = onFan(angle, OUTER + 17).split(' ');
        fan.append(svg('text', { x, y: Number(y) + 4, 'text-anchor': 'middle' }, textOf(angle) + '\u00b0'));
    }
    fan.append(...sectors);
    return fan;
}

const rangeText = ({ minimum, maximum, unit }) => `${textOf(minimum)} to ${withUnit(maximum, unit)}`;

function makeFans({ georeferencing, boresight_calibration: calibration }) {
    const figures = georeferencing.field_of_views.map(({ view, filter, is_default: isDefault }) => html('figure',
        { class: isDefault ? 'default' : '' },
        drawFan('Field of view', drawSector('sees', view, OUTER), drawSector('keeps', filter, INNER)),
        html('figcaption', {},
            html('span', { class: 'sees' }, 'sees ' + rangeText(view)), html('span', { class: 'keeps' }, 'keeps ' + rangeText(filter)),
            ...(isDefault ? [html('strong', {}, 'default')] : []))));
    figures.push(html('figure', { class: 'calibration' },
        drawFan('Calibration range', drawSector('calibrates', calibration.field_of_view, OUTER)),
        html('figcaption', {}, html('span', { class: 'calibrates' }, 'calibration range'), rangeText(calibration.field_of_view))));
    return section('Fields of view', { class: 'pictures fans' }, html('div', { class: 'views' }, ...figures),
        html('p', { class: 'key' }, 'Outer ring: what the sensor sees. Inner sector: what the filter keeps. 0\u00b0 is drawn downwards, positive angles to the right.'));
}
