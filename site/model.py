"""The tables of the model and of the document, made from the JSON Schema, the headers and the factory profiles.

The schema says what the document holds, the headers (as XML by Doxygen) which type and member each object and key is in
C++, the factory profiles which units and ranges are in use.
"""
import html
import json
import re
import xml.etree.ElementTree as ElementTree

NAMESPACE = 'norel::Desktop::Domain::Payloads'


def type_text(member):
    return ''.join(member.find('type').itertext()).replace('< ', '<').replace(' >', '>')


class Headers:
    """The members of the builders, and what is said of each type."""

    def __init__(self, folder):
        self.members, self.briefs = {}, {}
        for path in folder.glob('*.xml'):
            for compound in ElementTree.parse(path).getroot().iter('compounddef'):
                name = compound.findtext('compoundname').removeprefix(NAMESPACE + '::')
                self.briefs[name] = ''.join(compound.find('briefdescription').itertext()).strip()
                self.members[name] = [(member.findtext('name'), type_text(member))
                                      for member in compound.iter('memberdef') if member.get('kind') == 'variable']

    def builder_of(self, name, scope):
        """The full name of a type that is named in `scope`, if it has a builder."""
        parts = scope.split('::')
        candidates = ['::'.join(parts[:length] + [name]) for length in range(len(parts), -1, -1)]
        return next((c for c in candidates if c + '::Builder' in self.members), None)


class Type:
    """One type of the model and the object of the document that it is read from."""

    def __init__(self, name, schema):
        self.name, self.schema = name, schema
        self.members = []

    def is_triple(self):
        return self.name.endswith('3')  # Vector3, Angles3 and their kin


class Member:
    def __init__(self, key, name, cpp, schema, is_required):
        self.key, self.name, self.cpp, self.schema, self.is_required = key, name, cpp, schema, is_required
        self.parameter = None  # the name of the definition in the schema, such as "number"
        self.type = None  # of an object, or of the items of an array
        self.values = []  # in the factory profiles


def same(text):
    return text.replace('_', '').lower()


class Model:
    def __init__(self, schema, factory, headers):
        self.headers = headers
        self.definitions = schema['$defs']
        self.types = {}
        self.visit('Profile', schema['items'], factory)

    def visit(self, name, schema, values):
        known = name in self.types
        current = self.types.setdefault(name, Type(name, schema))
        if not known:
            current.members = self.make_members(name, schema)
        for member in current.members:
            found = [value[member.key] for value in values if value.get(member.key) is not None]
            member.values += found
            if member.type:
                items = [item for value in found for item in value] if member.is_list else found
                self.visit(member.type, self.inner(member.schema), items)

    def make_members(self, name, schema):
        fields = self.headers.members[name + '::Builder']
        keys = list(schema['properties'])
        rest = [field for field in fields if same(field[0]) not in map(same, keys)]
        members = []
        for key in keys:
            field = next((field for field in fields if same(field[0]) == same(key)), None) or rest.pop(0)
            members.append(self.make_member(name, key, field, schema))
        assert not rest, f'{name} has no key for {rest}'
        return members

    def make_member(self, owner, key, field, schema):
        cpp = field[1].replace('::Builder', '')
        member = Member(key, field[0], cpp, schema['properties'][key], key in schema['required'])
        inner = self.inner(member.schema)
        member.parameter = inner.get('$ref', '').removeprefix('#/$defs/') or None
        member.is_list = self.without_null(member.schema).get('type') == 'array'
        if 'properties' in inner and not member.parameter:
            bare = re.sub(r'^std::(optional|vector)<(.*)>$', r'\2', cpp)
            member.type = self.headers.builder_of(bare, owner)
            lists = self.headers.members[member.type + '::Builder']
            if member.is_list and len(lists) == 1:  # Cameras, FieldOfViews: only a list
                member.type = self.headers.builder_of(re.search('<(.*)::Builder>', lists[0][1])[1], owner)
        return member

    @staticmethod
    def without_null(schema):
        return schema['anyOf'][0] if 'anyOf' in schema else schema

    def inner(self, schema):
        schema = self.without_null(schema)
        return schema['items'] if schema.get('type') == 'array' else schema

    def parameters(self, member):
        """The parameters of the factory profiles that a member holds, or that its triple holds."""
        if member.parameter:
            return member.values
        if member.type and not member.is_list and self.types[member.type].is_triple():
            return [part for value in member.values for part in value.values()]
        return []

    def numbers(self, member):
        """The unit, range and default in the factory profiles. Those of a triple depend on what it is used for."""
        parameters = self.parameters(member)
        units = {parameter['unit'] for parameter in parameters if parameter.get('unit')}
        assert len(units) < 2, (member.key, units)
        bounds = [parameter[key] for key in ('minimum', 'maximum') for parameter in parameters if key in parameter]
        defaults = [parameter.get('defaultValue', parameter['value']) for parameter in parameters]
        return html.escape(''.join(units)), span(bounds), span(defaults if member.parameter else [])


def span(numbers):
    if not numbers:
        return ''
    low, high = number(min(numbers)), number(max(numbers))
    return low if low == high else f'{low}&nbsp;to&nbsp;{high}'


def number(value):
    return f'{value:.15g}'.replace('-', '−') if abs(value) < 1e9 else f'{value:.3g}'


def code(text):
    return f'<code>{html.escape(text)}</code>'


def table(heads, rows):
    """A table in HTML, whose cells may hold anything, without the columns that are empty."""
    used = [i for i in range(len(heads)) if any(row[i] for row in rows)]

    def line(tag, cells):
        cells = [cells[i] for i in used]
        return '<tr>' + ''.join(f'<{tag}>{cell}</{tag}>' for cell in cells) + '</tr>'
    body = '\n'.join(line('td', row) for row in rows)
    return f'<table class="markdownTable">\n{line("th", heads)}\n{body}\n</table>\n'


def slug(name):
    return re.sub('[^a-z0-9]+', '-', name.lower()).strip('-')


def link(name, kind):
    return f'<a href="{kind}.html#{kind}-{slug(name)}">{html.escape(name)}</a>'


def display(name):
    """Without the namespace where its aggregate repeats it: StripAdjustment::StripAdjustment."""
    first, _, last = name.rpartition('::')
    return last if first == last else name


def type_cell(member):
    if not member.type:
        return code(member.cpp)
    linked = link(display(member.type), 'model')
    if member.is_list:
        return f'list of {linked}'
    return f'optional {linked}' if member.cpp.startswith('std::optional') else linked


def model_tables(model):
    text = ''
    for current in model.types.values():
        name = display(current.name)
        numbers = (lambda member: ('', '', '')) if current.is_triple() else model.numbers
        text += f'\n## {name} {{#model-{slug(name)}}}\n\n{model.headers.briefs[current.name]}\n'
        text += f'[Reference](@ref {NAMESPACE}::{current.name}), [in the document](@ref document-{slug(name)})\n\n'
        rows = [(code(member.name), type_cell(member), *numbers(member), html.escape(member.schema['description']))
                for member in current.members]
        text += table(['Member', 'Type', 'Unit', 'Range', 'Default', 'Meaning'], rows)
    return text


def kind_cell(model, member):
    schema = model.without_null(member.schema)
    if member.parameter:
        return f'<a href="document.html#document-{member.parameter}">{member.parameter}</a>'
    if member.type:
        linked = link(display(member.type), 'document')
        return f'array of {linked}' if member.is_list else linked
    if schema['type'] == 'array':
        return 'array of ' + schema['items']['type'] + 's'
    if schema.get('format') == 'date-time':
        return 'string, ISO 8601'
    return schema['type']


def allowed(schema):
    if 'enum' in schema:
        return 'one of ' + ', '.join(code(json.dumps(choice)) for choice in schema['enum'])
    if 'pattern' in schema:
        return 'matches ' + code(schema['pattern'])
    if schema.get('minLength') or schema.get('minItems'):
        return 'not empty'
    if 'minimum' in schema:
        return f'{schema["minimum"]} to {schema["maximum"]}'
    limits = schema.get('properties', {}).get('value')
    if limits:
        return f'value over {limits["exclusiveMinimum"]:g} and under {limits["exclusiveMaximum"]:g}'
    return ''


def document_tables(model):
    text = ''
    for current in model.types.values():
        name = display(current.name)
        text += f'\n### {name} {{#document-{slug(name)}}}\n\n{model.headers.briefs[current.name]}\n'
        text += f'[In C++](@ref model-{slug(name)})\n\n'
        rows = [(code(member.key), kind_cell(model, member), 'yes' if member.is_required else 'no',
                 allowed(member.schema), html.escape(member.schema['description'])) for member in current.members]
        text += table(['Key', 'Kind', 'Required', 'Allowed', 'Meaning'], rows)
    return text


def parameter_tables(model):
    """What the keys of a parameter mean, and which of them each form has."""
    keys = model.definitions['number']['properties']
    text = table(['Key', 'Allowed', 'Meaning'],
                 [(code(key), allowed(schema), html.escape(schema['description'])) for key, schema in keys.items()])

    def presence(definition, key):
        if key in definition['required']:
            return 'required'
        return 'optional' if key in definition['properties'] else '–'
    rows = [[f'<a id="document-{name}"></a>{code(name)}'] + [presence(definition, key) for key in keys]
            for name, definition in model.definitions.items()]
    return text + '\n' + table(['Kind'] + [code(key) for key in keys], rows)


def annotated_example(model, profiles):
    """The document as JSON, each member under a comment with its meaning. An object like an earlier one is
    shortened."""
    lines, shown = [], set()

    def add(indent, text):
        lines.append('  ' * indent + text)

    def write_member(indent, member, value, end):
        add(indent, '// ' + member.schema['description'])
        key = f'"{member.key}": '
        if member.parameter:
            add(indent, key + json.dumps(value) + end)
        elif member.type and not member.is_list:
            write_object(indent, key, member.type, value, end)
        elif member.type:
            add(indent, key + '[')
            for item in value:
                write_object(indent + 1, '', member.type, item, ',' if item is not value[-1] else '')
            add(indent, ']' + end)
        else:
            add(indent, key + json.dumps(value) + end)

    def write_object(indent, key, name, value, end):
        kind = (name, json.dumps({k: sorted(v) if isinstance(v, dict) else 0 for k, v in value.items()}))
        if kind in shown:
            add(indent, key + '{ ... }' + end)
            return
        shown.add(kind)
        add(indent, key + '{')
        members = [member for member in model.types[name].members if member.key in value]
        for member in members:
            write_member(indent + 1, member, value[member.key], ',' if member is not members[-1] else '')
        add(indent, '}' + end)

    add(0, '[')
    for profile in profiles:
        write_object(1, '', 'Profile', profile, ',' if profile is not profiles[-1] else '')
    add(0, ']')
    return '```json\n' + '\n'.join(lines) + '\n```\n'
