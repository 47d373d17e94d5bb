"""Makes the pages of the site from README.md, CONTRIBUTING.md, CHANGELOG.md and docs/*.md.

usage: pages.py XML_OF_HEADERS PROGRAM OUTPUT_FOLDER

Headings get identifiers that stay the same, links between pages lead to them, and a line such as
<!-- model tables --> is replaced by what is generated under its name. The pages remain readable without this.
"""
import json
import pathlib
import re
import subprocess
import sys

import manual
import model

SOURCE = pathlib.Path(__file__).resolve().parents[1]


def load(name):
    return json.loads((SOURCE / name).read_text(encoding='utf-8'))


def heading_id(page, title):
    """The identifier of a heading, as the links of other viewers of Markdown name it, after that of its page."""
    return page + '-' + re.sub(r'[^\w -]', '', title.lower()).strip().replace(' ', '-')


def outside_of_code(text, change):
    """Applies a function to the parts of a text that are not fenced code."""
    parts = re.split(r'(^```.*?^```$)', text, flags=re.MULTILINE | re.DOTALL)
    return ''.join(part if part.startswith('```') else change(part) for part in parts)


def page_name(path):
    return path.stem.lower()


def add_identifiers(page, text):
    counts = {}

    def add(match):
        marks, title = match[1], match[2]
        if '{#' in title:
            return match[0]
        if marks == '#':
            return f'# {title} {{#{page}}}' if page != 'readme' else match[0]
        identifier = heading_id(page, title)
        counts[identifier] = counts.get(identifier, -1) + 1
        return f'{marks} {title} {{#{identifier}' + (f'-{counts[identifier]}' if counts[identifier] else '') + '}'
    return outside_of_code(text, lambda part: re.sub(r'^(#+) (.*)$', add, part, flags=re.MULTILINE))


def lead_links(path, text, pages):
    """Links to other pages become references to their headings, those to other files links to copies of them."""
    copies = set()

    def lead(match):
        label, target = match[1], match[2]
        if re.match('[a-z]+:', target):
            return match[0]
        name, _, anchor = target.partition('#')
        linked = (path.parent / name).resolve() if name else path
        if linked in pages:
            page = page_name(linked)
            if page == 'readme' and not anchor:
                return f'[{label}](index.html)'
            return f'[{label}](@ref {page}{anchor and "-"}{anchor})'
        if not linked.is_file():
            sys.exit(f'{path.name}: there is no file {target}')
        copies.add(linked)
        return f'[{label}]({linked.name})'
    text = outside_of_code(text, lambda part: re.sub(r'\[([^\]]*)\]\(([^)\s]+)\)', lead, part))
    return text, copies


def main():
    xml, program, output = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3])

    def printed(command):
        return subprocess.run([program, command], check=True, stdout=subprocess.PIPE, encoding='utf-8').stdout
    tables = model.Model(load('docs/profile-list.schema.json'), json.loads(printed('factory')), model.Headers(xml))
    generated = {
        'model tables': lambda: model.model_tables(tables),
        'document tables': lambda: model.document_tables(tables),
        'parameter tables': lambda: model.parameter_tables(tables),
        'annotated example': lambda: model.annotated_example(tables, load('docs/examples/camera-nadir.json')),
        'manual': lambda: manual.to_markdown(printed('manual')),
    }
    paths = [SOURCE / name for name in ('README.md', 'CONTRIBUTING.md', 'CHANGELOG.md')]
    paths += sorted((SOURCE / 'docs').glob('*.md'))
    output.mkdir(parents=True)
    for path in paths:
        text = path.read_text(encoding='utf-8')
        text = re.sub(r'^<!-- (.*) -->$', lambda match: generated[match[1]](), text, flags=re.MULTILINE)
        text, copies = lead_links(path, text, set(paths))
        text = add_identifiers(page_name(path), text)
        if text.count('\n## ') > 2 and path.name != 'README.md':
            text = re.sub(r'^(# .*\n)', r'\1\n[TOC]\n', text, count=1)
        (output / path.name).write_text(text, encoding='utf-8')
        for copy in copies:
            (output / copy.name).write_bytes(copy.read_bytes())


main()
