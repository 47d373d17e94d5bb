// The page: contents, articles that are filled when they come near the window, and the tools.

const settings = parametersOfAll();
const search = document.getElementById('search');
const tools = document.getElementById('tools');

/** The parameters of each profile, for counting without making their rows. */
function parametersOfAll() {
    return data.profiles.map(({ document: profile, reference }) => parametersOf(profile, data.references[reference]));
}

const referenceOf = index => data.references[data.profiles[index].reference];
const articleId = index => 'profile-' + index;

/** Whether the tools let a parameter be shown. */
function makeFilter() {
    const words = search.value.toLowerCase().split(/\s+/).filter(Boolean);
    const kind = tools.elements.show.value;
    return parameter => words.every(word => parameter.path.toLowerCase().includes(word)) &&
        (kind === 'all' || (kind === 'default' ? parameter.differsFromDefault : parameter.differsFromOther));
}

const isFiltering = () => search.value.trim() !== '' || tools.elements.show.value !== 'all';

/** Shows the rows that pass, and the sections and profiles that have any. */
function filterArticle(article) {
    const index = Number(article.dataset.index);
    const passes = makeFilter();
    const shown = new Set(settings[index].filter(passes).map(parameter => parameter.path));
    for (const row of article.querySelectorAll('.row'))
        row.hidden = !shown.has(row.dataset.path);
    for (const group of article.querySelectorAll('.group')) {
        group.hidden = !group.querySelector('.row:not([hidden])');
        group.open ||= isFiltering();
    }
    for (const other of article.querySelectorAll('.pictures, .listing, .facts'))
        other.hidden = isFiltering();
    const nothing = article.querySelector('.nothing');
    if (nothing)
        nothing.hidden = shown.size > 0 || !isFiltering();
    return shown.size;
}

function filterAll() {
    let shown = 0;
    for (const article of document.querySelectorAll('article'))
        shown += filterArticle(article);
    const all = settings.reduce((sum, list) => sum + list.length, 0);
    document.getElementById('shown').textContent = isFiltering() ? `${shown} of ${all} settings` : `${all} settings`;
}

function fillArticle(article) {
    if (article.dataset.filled)
        return;
    article.dataset.filled = 'yes';
    const index = Number(article.dataset.index);
    article.querySelector('.body').append(...makeBody(data.profiles[index].document, referenceOf(index)));
    filterArticle(article);
}

const fillAll = () => document.querySelectorAll('article').forEach(fillArticle);

function makeArticle(profile, index) {
    const isReal = profile.product !== profile.name;
    return html('article', { id: articleId(index), 'data-index': index, 'aria-labelledby': articleId(index) + '-name' },
        html('header', {}, html('h2', { id: articleId(index) + '-name' }, foreign(profile.name)),
            html('p', {}, `${profile.id}`, ...(isReal ? [' \u00b7 ', foreign(profile.product)] : []))),
        html('div', { class: 'body' }));
}

function makeContents() {
    const countOf = (index, key) => String(settings[index].filter(parameter => parameter[key]).length);
    const headings = ['Id', 'Name', 'Product', 'Serial number', 'Cameras', 'Modified', 'Not default'];
    const rows = data.profiles.map(({ document: profile }, index) => [
        String(profile.id),
        fill(html('a', { href: '#' + articleId(index) }), {}, [foreign(profile.name)]),
        foreign(profile.product), foreign(profile.serial_number), String(profile.trajectory.cameras.length),
        profile.last_modification_time.slice(0, 10), countOf(index, 'differsFromDefault'),
        ...(data.against === undefined ? [] : [referenceOf(index) ? countOf(index, 'differsFromOther') : '\u2013']),
    ]);
    if (data.against !== undefined)
        headings.push('Not as ' + otherName());
    const contents = document.getElementById('contents');
    contents.hidden = data.profiles.length < 2;
    contents.querySelector('table').replaceWith(table(headings, rows));
    // An article that is full when the browser goes to it can stand at the top of the window, even the last one.
    contents.addEventListener('click', ({ target }) => {
        const link = target.closest('a');
        if (link)
            fillArticle(document.querySelector(link.getAttribute('href')));
    });
}

/** Fills an article; when it begins above the window, what is seen keeps its place. */
function fillInPlace(article) {
    const { top, height } = article.getBoundingClientRect();
    fillArticle(article);
    if (top < 0)
        scrollBy({ top: article.getBoundingClientRect().height - height, behavior: 'instant' });
}

/** Fills the articles within a window's height of what is seen. */
function watchArticles() {
    const watcher = new IntersectionObserver(entries => {
        for (const { isIntersecting, target } of entries)
            if (isIntersecting) {
                watcher.unobserve(target);
                fillInPlace(target);
            }
    }, { rootMargin: '100% 0px' });
    document.querySelectorAll('article').forEach(article => watcher.observe(article));
    addEventListener('beforeprint', fillAll);
}

function makeLegend() {
    const mark = (kind, text) => html('span', { class: kind }, text);
    document.getElementById('legend').append(mark('value', 'value'), mark('default', 'default'), mark('preset', 'preset'),
        mark('difference', 'off default'), ...(data.against === undefined ? [] : [mark('other', otherName())]));
}

function connectTools() {
    const other = document.getElementById('show-other');
    other.hidden = data.against === undefined;
    other.lastElementChild.textContent = 'Differs from ' + otherName();
    tools.addEventListener('input', filterAll);
    tools.addEventListener('submit', event => event.preventDefault());
    const foldTo = open => () => {
        fillAll();
        document.querySelectorAll('article details').forEach(details => { details.open = open; });
    };
    document.getElementById('fold').addEventListener('click', foldTo(false));
    document.getElementById('unfold').addEventListener('click', foldTo(true));
}

function makePage() {
    const names = data.profiles.map(({ document: profile }) => profile.name);
    document.title = (names.length === 1 ? names[0] : `${names.length} payload profiles`) + ' \u2013 ' + data.source;
    const number = names.length === 1 ? '1 profile' : `${names.length} profiles`;
    document.getElementById('origin').append(`${number} of `, foreign(data.source),
        ...(data.against === undefined ? [] : [', compared with ', foreign(data.against)]), `, ${data.made.slice(0, 10)}`);
    document.getElementById('maker').append(`Made by ${data.maker} on ${data.made}`);
    makeContents();
    makeLegend();
    document.getElementById('profiles').append(...data.profiles.map(({ document: profile }, index) => makeArticle(profile, index)));
    connectTools();
    filterAll();
    watchArticles();
    location.hash = location.hash; // the articles were not there when the browser looked for one
}

makePage();
