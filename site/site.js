// The list of pages, and the search of all pages and the reference. The index of the search is loaded when it is first
// used; it is a script, so that the site also works from a folder.
'use strict';

document.addEventListener('DOMContentLoaded', () => {
    const here = location.pathname.split('/').pop() || 'index.html';
    for (const link of document.querySelectorAll('#site-pages a'))
        if (link.getAttribute('href') === here)
            link.setAttribute('aria-current', 'page');
    const button = document.querySelector('#site-pages button');
    button.addEventListener('click',
        () => button.setAttribute('aria-expanded', button.getAttribute('aria-expanded') !== 'true'));
});

document.addEventListener('DOMContentLoaded', () => {
    const form = document.getElementById('site-search');
    const input = form.querySelector('input');
    const list = form.querySelector('ol');
    const MOST = 12;

    function withIndex(action) {
        if (window.siteIndex)
            return action();
        const script = document.createElement('script');
        script.src = 'search-index.js';
        script.onload = action;
        document.head.append(script);
    }

    // All words must occur; those in the title count most, at its beginning above all, and pages before the reference.
    function rate(entry, words) {
        const title = entry.title.toLowerCase();
        let points = entry.kind === 'page' ? 1 : 0;
        for (const word of words) {
            if (title === word)
                points += 20;
            else if (title.startsWith(word))
                points += 10;
            else if (title.includes(word))
                points += 6;
            else if (entry.folded.includes(word))
                points += 1;
            else
                return 0;
        }
        return points;
    }

    function excerpt(entry, words) {
        const at = entry.folded.indexOf(words.find(word => entry.folded.includes(word)) ?? '');
        const begin = at < 40 ? 0 : entry.text.indexOf(' ', at - 40) + 1;
        return (begin > 0 ? '… ' : '') + entry.text.slice(begin, begin + 110);
    }

    function show() {
        const words = input.value.toLowerCase().split(/\s+/).filter(Boolean);
        list.replaceChildren();
        list.hidden = words.length === 0;
        if (list.hidden)
            return;
        for (const entry of window.siteIndex)
            entry.folded ??= entry.text.toLowerCase();
        const found = window.siteIndex.map(entry => ({entry, points: rate(entry, words)}))
            .filter(({points}) => points > 0).sort((a, b) => b.points - a.points).slice(0, MOST);
        for (const {entry} of found) {
            const link = document.createElement('a');
            const title = document.createElement('b');
            const text = document.createElement('span');
            link.href = entry.url;
            title.textContent = entry.page === entry.title ? entry.title : `${entry.title} – ${entry.page}`;
            text.textContent = excerpt(entry, words);
            link.append(title, text);
            list.appendChild(document.createElement('li')).append(link);
        }
        if (found.length === 0)
            list.appendChild(document.createElement('li')).textContent = 'Nothing found.';
    }

    input.addEventListener('input', () => withIndex(show));
    input.addEventListener('focus', () => withIndex(() => {}));
    form.addEventListener('submit', event => {
        event.preventDefault();
        list.querySelector('a')?.click();
    });
    document.addEventListener('keydown', event => {
        const isTyping = /^(INPUT|TEXTAREA)$/.test(event.target.tagName);
        if (event.key === '/' && !isTyping) {
            event.preventDefault();
            input.focus();
        } else if (event.key === 'Escape') {
            list.hidden = true;
        } else if (event.key === 'ArrowDown' && form.contains(event.target)) {
            event.preventDefault();
            const links = [...list.querySelectorAll('a')];
            links[(links.indexOf(event.target) + 1) % links.length]?.focus();
        }
    });
    document.addEventListener('click', event => {
        if (!form.contains(event.target))
            list.hidden = true;
    });
});
