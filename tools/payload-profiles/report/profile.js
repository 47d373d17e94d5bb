// The article of a profile.

/** A short name of what the profiles are compared with: of a path or an address, the last part. */
const otherName = () => shortened(/[^/]*\/*$/.exec(data.against ?? '')[0], 30);

/** What a value of the document is called in a list of differences. */
function describeValue(value, unit) {
    if (value === undefined)
        return html('i', {}, 'none');
    if (typeof value === 'number')
        return withUnit(value, unit);
    return typeof value === 'object' ? html('i', {}, 'present') : foreign(shortened(String(value), 80));
}

function makeDifferences(differences, title, thereName, isOpen = true) {
    const rows = differences.map(({ path, here, there, unit }) => {
        const isNumber = typeof here === 'number' && typeof there === 'number';
        return [pathElement(path), describeValue(there, unit), html('b', {}, describeValue(here, unit)),
            isNumber ? differenceOf(here, there) + (unit ? ' ' + unit : '') : ''];
    });
    const content = rows.length > 0
        ? table(['Setting', thereName, 'Here', 'Difference'], rows, { class: 'differences' })
        : html('p', {}, 'Nothing.');
    const list = section(`${title} (${rows.length})`, { class: 'listing' }, content);
    list.open = isOpen;
    return list;
}

/** The texts of the document outside of lists, with the keys that lead to them. */
function factsOf(node, path = '') {
    const facts = [];
    for (const [key, value] of Object.entries(node)) {
        const at = path + (path && '.') + key;
        if (typeof value === 'string')
            facts.push([at, value]);
        else if (isNode(value) && !Array.isArray(value) && !parameterPaths.has(at) && !('minimum' in value))
            facts.push(...factsOf(value, at));
    }
    return facts;
}

const FACT_NAMES = {
    'lidar.file_extension': 'Lidar file extension',
    'lidar.alignment': 'Lidar alignment',
    'lidar.georeferencing.calibration_document.name': 'Calibration document',
    'trajectory.imu_onboard.gnss_standard_deviation': 'GNSS onboard',
    'trajectory.imu_external.gnss_standard_deviation': 'GNSS external',
};

const CALIBRATION_TEXT = 'lidar.georeferencing.calibration_document.content';

function makeFacts(profile, reference) {
    const list = html('dl', { class: 'facts' });
    const add = (name, value) => list.append(html('div', {}, html('dt', {}, name), html('dd', {}, foreign(value === '' ? '\u2013' : value))));
    add('Id', String(profile.id));
    for (const [path, value] of factsOf(profile))
        if (path !== CALIBRATION_TEXT && path !== 'name')
            add(FACT_NAMES[path] ?? titleOf(profile, path), value);
    if (reference)
        add('Compared with', `${otherName()}: ${reference.id} ${reference.name}`);
    return list;
}

/** Everything in the document that is a list of texts, such as the terrain types. */
function textListsOf(node, path = '') {
    return Object.entries(node).flatMap(([key, value]) => {
        const at = path + (path && '.') + key;
        const isTexts = Array.isArray(value) && value.length > 0 && value.every(item => typeof item === 'string');
        return isTexts ? [[at, value]] : isNode(value) ? textListsOf(value, at) : [];
    });
}

function makeTexts(profile) {
    const lists = textListsOf(profile).map(([path, texts]) => html('div', {}, html('code', {}, path),
        html('ol', {}, ...texts.map(text => html('li', {}, foreign(text))))));
    const calibration = lookUp(profile, CALIBRATION_TEXT);
    if (calibration !== undefined)
        lists.push(html('div', { class: 'document' }, html('code', {}, CALIBRATION_TEXT), html('pre', { dir: 'auto', tabindex: '0' }, calibration)));
    return lists.length > 0 ? [section('Texts', { class: 'pictures texts' }, ...lists)] : [];
}

/** The section of a parameter: the first two keys of its path, and the index after them. */
const sectionOf = path => /^[^.]+(\.[^.]+(\.\[\d+\])?(?=\.))?/.exec(path)[0];

function makeSections(profile, parameters) {
    const rows = new Map();
    for (const parameter of parameters) {
        const path = sectionOf(parameter.path);
        rows.set(path, [...(rows.get(path) ?? []), makeRow(parameter, path)]);
    }
    return [...rows].map(([path, list]) => {
        const group = section(titleOf(profile, path), { class: 'group', 'data-path': path }, html('ul', {}, ...list));
        group.firstChild.append(' ', pathElement(path));
        return group;
    });
}

/** What follows the heading of a profile; made when it comes near the window, as a page may have many profiles. */
function makeBody(profile, reference) {
    const parameters = parametersOf(profile, reference);
    return [
        makeFacts(profile, reference),
        ...(reference ? [makeDifferences(differencesOf(profile, reference), 'Differs from ' + otherName(), otherName())] : []),
        makeDifferences(differencesFromDefaults(parameters), 'Differs from default', 'Default', !reference),
        makeHead(profile, reference),
        ...(profile.lidar ? [makeFans(profile.lidar)] : []),
        ...makeSections(profile, parameters),
        ...makeTexts(profile),
        html('p', { class: 'nothing', hidden: '' }, 'No setting of this profile is among those searched for.'),
    ];
}
