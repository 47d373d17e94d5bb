// The data of the page: the documents of the profiles, and the paths of all parameters in them.
const data = JSON.parse(document.getElementById('data').textContent);
const parameterPaths = new Set(data.paths);

const ACRONYMS = { imu: 'IMU', gnss: 'GNSS', dsm: 'DSM' };

/** The value at a path such as "trajectory.cameras.[0].orientation"; undefined where there is none. */
function lookUp(profile, path) {
    const step = (value, key) => value?.[key.startsWith('[') ? Number(key.slice(1, -1)) : key];
    return path.split('.').reduce(step, profile);
}

/** "lever_arm_antenna" as "Lever arm antenna". */
function wordsOf(key) {
    const text = key.split('_').map(word => ACRONYMS[word] ?? word).join(' ');
    return text.charAt(0).toUpperCase() + text.slice(1);
}

/** What a path names: "trajectory.cameras.[0]" as "Camera nadir", all others by the words of their last keys. */
function titleOf(profile, path) {
    const camera = /^trajectory\.cameras\.\[\d+\]$/.test(path) && lookUp(profile, path + '.orientation');
    return camera ? 'Camera ' + camera : wordsOf(path.slice(path.lastIndexOf('.') + 1));
}

/** A number with a real minus sign, which screen readers speak. */
const textOf = number => String(number).replaceAll('-', '\u2212');

const withUnit = (number, unit) => textOf(number) + (unit ? ' ' + unit : '');

/** The difference of two numbers without the noise of binary fractions, with its sign. */
function differenceOf(number, base) {
    const difference = Number((number - base).toPrecision(12));
    return (difference > 0 ? '+' : '') + textOf(difference);
}

/** The parameters of a profile; `other` is the value in the profile that it is compared with. */
function parametersOf(profile, reference) {
    const parameters = [];
    for (const path of data.paths) {
        const parameter = lookUp(profile, path);
        if (parameter === undefined)
            continue;
        const other = reference && lookUp(reference, path)?.value;
        parameters.push({
            ...parameter,
            path,
            other,
            differsFromDefault: parameter.defaultValue !== undefined && parameter.defaultValue !== parameter.value,
            differsFromOther: reference !== undefined && other !== parameter.value,
        });
    }
    return parameters;
}

const isNode = value => typeof value === 'object' && value !== null;

/** Everything in which two profiles differ, ids and times aside: path, both values and, for parameters, the unit. */
function differencesOf(profile, reference) {
    const differences = [];
    const compare = (path, here, there, unit) => {
        if (isNode(here) && isNode(there)) {
            for (const key of new Set([...Object.keys(here), ...Object.keys(there)])) {
                const step = Array.isArray(here) ? `[${key}]` : key;
                const isValue = key === 'value' && parameterPaths.has(path);
                compare(isValue ? path : (path && path + '.') + step, here[key], there[key], isValue ? here.unit : '');
            }
        } else if (here !== there) {
            differences.push({ path, here, there, unit });
        }
    };
    const withoutStamp = ({ id, creation_time, last_modification_time, ...rest }) => rest;
    compare('', withoutStamp(profile), withoutStamp(reference), '');
    return differences;
}

/** The same for the parameters that differ from their defaults. */
const differencesFromDefaults = parameters => parameters.filter(parameter => parameter.differsFromDefault)
    .map(({ path, value, defaultValue, unit }) => ({ path, here: value, there: defaultValue, unit }));
