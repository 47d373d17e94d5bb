"""Compiles and runs the examples of the pages.

usage: examples.py extract OUTPUT.cpp PAGE...
       examples.py run EXAMPLES PAYLOAD_PROFILES PAGE

The C++ blocks of a page are one program. A block with an #include stands outside of functions, the others are the body
of one, in their order. What the program prints are the `text` blocks of the page. Each line of a `console` block that
begins with "$ " is a command, which prints the lines that follow it.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / 'docs/examples'


def blocks(page, kind):
    return re.findall(rf'^```{kind}\n(.*?)^```$', page.read_text(encoding='utf-8'), re.MULTILINE | re.DOTALL)


def identifier(page):
    return page.stem.replace('-', '_').lower()


def extract(output, pages):
    includes, functions, calls = ['#include <string>'], [], []
    for page in pages:
        outside, inside = [], []
        for block in blocks(page, 'cpp'):
            lines = block.splitlines()
            includes += [line for line in lines if line.startswith('#include')]
            rest = '\n'.join(line for line in lines if not line.startswith('#include'))
            (outside if '#include' in block else inside).append(rest)
        body = '\n'.join(outside) + '\nvoid run() {\n' + '\n'.join(inside) + '\n}'
        functions.append(f'namespace {identifier(page)} {{\n{body}\n}}')
        calls.append(f'    if (page == "{identifier(page)}")\n        {identifier(page)}::run();')
    main = ['int main(int /*count*/, char** arguments) {', '    const std::string page = arguments[1];', *calls, '}']
    output.write_text('\n'.join(includes + functions + main) + '\n', encoding='utf-8')


def expect(what, expected, actual):
    if actual != expected:
        sys.exit(f'{what} prints\n{actual}\nbut the page says\n{expected}')


def run(examples, application, page):
    path = os.pathsep.join([str(application.parent), os.environ['PATH']])
    with tempfile.TemporaryDirectory() as folder:
        def output_of(command, **options):
            return subprocess.run(command, cwd=folder, env={**os.environ, 'PATH': path}, text=True, encoding='utf-8',
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options).stdout
        if blocks(page, 'cpp') and page.stem != 'README':
            expect(page.name, ''.join(blocks(page, 'text')), output_of([examples, identifier(page)]))
        for file in pathlib.Path(folder).iterdir():
            file.unlink()
        for example in EXAMPLES.glob('*.json'):
            pathlib.Path(folder, example.name).write_bytes(example.read_bytes())
        for block in blocks(page, 'console'):
            for command, expected in re.findall(r'^\$ (.*)\n((?:(?!\$ ).*\n)*)', block, re.MULTILINE):
                expect(command, expected, output_of(command, shell=True))


if sys.argv[1] == 'extract':
    extract(pathlib.Path(sys.argv[2]), [pathlib.Path(page) for page in sys.argv[3:]])
else:
    run(pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3]), pathlib.Path(sys.argv[4]))
