"""Checks the links of the site and makes the index of its search: finish.py SITE

Every link, anchor, picture, style and script must exist in the site; nothing may be loaded from elsewhere.
"""
import html.parser
import json
import pathlib
import re
import sys
import urllib.parse

LOADING = {('img', 'src'), ('script', 'src'), ('link', 'href'), ('iframe', 'src'), ('object', 'data')}
LISTS = re.compile('functions|namespacemembers|dir_|hierarchy|pages|classes|annotated|namespaces|.*-members')


class Page(html.parser.HTMLParser):
    """The anchors and links of a page, and its text by heading."""

    def __init__(self, path):
        super().__init__()
        self.anchors, self.links, self.loads = set(), [], []
        self.title, self.sections = '', []  # [anchor, title, words]
        self.depth = self.content_depth = 0  # of div elements
        self.capturing, self.skipping, self.skipped = None, False, None
        self.feed(path.read_text(encoding='utf-8'))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        for key in ('id', 'name'):
            if values.get(key):
                self.anchors.add(values[key])
        for key, value in attributes:
            if (tag, key) in LOADING:
                self.loads.append(value)
            elif (tag, key) == ('a', 'href'):
                self.links.append(value)
        classes = (values.get('class') or '').split()
        if tag == 'div':
            self.depth += 1
            if 'contents' in classes:
                self.content_depth = self.depth
                self.sections.append(['', '', []])
            if 'headertitle' in classes:
                self.capturing = 'title'
        if not self.content_depth:
            return
        if 'groupheader' in classes:  # what stands under these belongs to the class as a whole
            self.skipping, self.skipped = True, tag
        elif tag in ('h1', 'h2', 'h3', 'h4'):
            self.sections.append(['', '', []])
            self.capturing = 'heading'
        elif tag == 'a' and self.capturing == 'heading':  # with an anchor or, of a member, a link to it
            self.sections[-1][0] = values.get('id') or values.get('href', '').removeprefix('#')
        elif tag in ('script', 'style') or 'toc' in classes:
            self.skipping, self.skipped = True, tag
        elif tag in ('p', 'li', 'td', 'th', 'div', 'pre', 'dt', 'dd'):
            self.sections[-1][2].append(' ')

    def handle_endtag(self, tag):
        if self.skipping and tag == self.skipped:
            self.skipping = False
        if tag == 'div':
            if self.depth == self.content_depth:
                self.content_depth = 0
            self.depth -= 1
            if self.capturing == 'title':
                self.capturing = None
        elif tag in ('h1', 'h2', 'h3', 'h4') and self.capturing == 'heading':
            self.capturing = None

    def handle_data(self, data):
        if self.capturing == 'title':
            self.title += data
        elif self.content_depth and not self.skipping:
            if self.capturing == 'heading':
                self.sections[-1][1] += data
            else:
                self.sections[-1][2].append(data)


def dead_links(site, pages):
    for name, page in pages.items():
        for link in page.links + page.loads:
            if re.match('(javascript|data|mailto):', link):
                continue
            target = urllib.parse.urlsplit(link)
            if target.scheme or target.netloc:
                if link in page.loads:
                    yield f'{name} loads {link} from elsewhere'
                elif not re.fullmatch(r'[\w-]+(\.[\w-]+)+', target.netloc):
                    yield f'{name}: {link} is no address'
                continue
            path = urllib.parse.unquote(target.path) or name
            anchor = urllib.parse.unquote(target.fragment)
            if not (site / path).is_file():
                yield f'{name}: there is no {path}'
            elif anchor and path in pages and anchor not in pages[path].anchors:
                yield f'{name}: {path} has no anchor {anchor}'
    for path in site.glob('*.css'):
        for url in re.findall(r'url\([\'"]?([^\'")]+)|@import\s+[\'"]([^\'"]+)', path.read_text(encoding='utf-8')):
            address = ''.join(url)
            if re.match(r'(https?:)?//', address):
                yield f'{path.name} loads {address} from elsewhere'
            elif not address.startswith('data:') and not (site / address).is_file():
                yield f'{path.name}: there is no {address}'


def entries(pages):
    for name, page in pages.items():
        if LISTS.match(name):  # of what other pages have
            continue
        is_reference = re.match('(class|struct|namespace)', name) is not None
        title = re.sub(r' (Class|Struct|Namespace)( Template)? Reference.*', '', page.title.strip(), flags=re.DOTALL)
        for anchor, heading, words in page.sections:
            text = ' '.join(''.join(words).split())
            heading = heading.strip().lstrip('◆').strip()
            if text or heading:
                yield {'url': name + (f'#{anchor}' if anchor else ''), 'title': heading or title, 'page': title,
                       'text': text[:5000], 'kind': 'reference' if is_reference else 'page'}


def main():
    site = pathlib.Path(sys.argv[1])
    pages = {path.name: Page(path) for path in sorted(site.glob('*.html'))}
    dead = list(dict.fromkeys(dead_links(site, pages)))
    for line in dead:
        print(line, file=sys.stderr)
    index = list(entries(pages))
    script = 'window.siteIndex = ' + json.dumps(index, ensure_ascii=False) + ';\n'
    (site / 'search-index.js').write_text(script, encoding='utf-8')
    print(f'{len(pages)} pages, {len(index)} entries of the search', file=sys.stderr)
    sys.exit(1 if dead else 0)


main()
