"""The manual page of the application as Markdown, with the few macros of man(7) that it uses."""
import re


def plain(text):
    return text.replace('\\&', '').replace('\\-', '-').replace('\\e', '\\')


def escaped(text):
    """Text in which Markdown finds no markup; options are code, and incomplete addresses no links."""
    parts = re.split(r'((?<![\w-])--[a-z][a-z-]*)', plain(text))
    parts[::2] = [re.sub(r'([*_<>`\[\]#@|])', r'\\\1', part).replace('://', '&#58;//') for part in parts[::2]]
    parts[1::2] = [f'`{part}`' for part in parts[1::2]]
    return ''.join(parts)


def code(text):
    return '`' + plain(text) + '`'


def to_markdown(page):
    result, label, is_verbatim = [], False, False
    for line in page.splitlines():
        macro, _, rest = line.partition(' ')
        if is_verbatim:
            if macro == '.fi':
                is_verbatim = False
                result.append('```\n')
            elif macro not in ('.RS', '.RE'):
                result.append(plain(line))
        elif macro == '.SH':
            result.append(f'\n## {plain(rest).capitalize()}\n')
        elif macro == '.SS':
            result.append(f'\n### {plain(rest)}\n')
        elif macro == '.TP':
            label = True
        elif macro == '.B':
            result.append(f'- {code(rest)}: ' if label else f'\n{code(rest)}\n')
        elif macro == '.PP':
            result.append('')
        elif macro == '.nf':
            is_verbatim = True
            result.append('\n```sh')
        elif macro == '.TH':
            pass
        elif macro.startswith('.'):
            raise ValueError(f'unknown macro {macro}')
        elif label:
            result[-1] += escaped(line)
            label = False
        else:
            result.append(escaped(line))
    return '\n'.join(result) + '\n'
