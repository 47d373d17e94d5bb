"""Tests of the page that "payload-profiles report" saves, in a browser: python3 report_page_test.py PROGRAM

What is drawn is read from the page's own geometry and compared with the numbers of the document.
"""

import copy
import json
import math
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By

PROGRAM = None
PIXEL = 0.75  # what a place may differ by

# In the page: the horizontal centre of an element.
CENTRE = 'const centre = e => { const r = e.getBoundingClientRect(); return r.left + r.width / 2; };'

ATTACK = '</script><script>window.attacked = 1</script><img src="https://attack.invalid/x" onerror="window.attacked = 1">'


def run(*arguments):
    return subprocess.run([PROGRAM, *map(str, arguments)], check=True, capture_output=True, text=True).stdout


def start_browser():
    options = Options()
    options.binary_location = '/usr/bin/chromium'
    for argument in ('--headless=new', '--no-sandbox', '--disable-gpu', '--disable-dev-shm-usage', '--hide-scrollbars'):
        options.add_argument(argument)
    options.set_capability('goog:loggingPrefs', {'browser': 'ALL', 'performance': 'ALL'})
    return webdriver.Chrome(service=Service('/usr/bin/chromedriver'), options=options)


def parameters_of(node, path=''):
    """The parameters in a document by their paths: the objects with a number as "value"."""
    if isinstance(node, dict) and isinstance(node.get('value'), (int, float)):
        return {path: node}
    steps = node.items() if isinstance(node, dict) else \
        ((f'[{i}]', item) for i, item in enumerate(node)) if isinstance(node, list) else ()
    found = {}
    for key, value in steps:
        found |= parameters_of(value, f'{path}.{key}' if path else key)
    return found


class ReportPage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder_handle = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.folder_handle.name)
        cls.factory = json.loads(run('factory'))
        cls.browser = start_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.folder_handle.cleanup()

    def setUp(self):
        self.set_window(1200, 900)

    def tearDown(self):
        """No page reports an error or requests anything but itself."""
        self.assertEqual(self.browser.get_log('browser'), [])
        messages = [json.loads(entry['message'])['message'] for entry in self.browser.get_log('performance')]
        requested = {message['params']['request']['url'].partition('#')[0] for message in messages
                     if message['method'] == 'Network.requestWillBeSent'}
        self.assertEqual({url for url in requested if not url.startswith('data:,')}, self.opened)

    def set_window(self, width, height):
        metrics = {'width': width, 'height': height, 'deviceScaleFactor': 1, 'mobile': False}
        self.browser.execute_cdp_cmd('Emulation.setDeviceMetricsOverride', metrics)
        self.opened = set()

    def profile(self, number):
        return copy.deepcopy(next(profile for profile in self.factory if profile['id'] == number))

    def save(self, name, *profiles):
        path = self.folder / name
        path.write_text(json.dumps(profiles))
        return path

    def open(self, *arguments):
        """Opens the report with these arguments, with all of its profiles filled."""
        page = self.folder / 'page.html'
        run('report', *arguments, '-o', page, '--force')
        self.opened = {page.as_uri()}
        self.browser.get(page.as_uri())
        self.script('fillAll()')
        return page

    def script(self, text, *arguments):
        return self.browser.execute_script(text, *arguments)

    def visible_paths(self):
        return self.script('return [...document.querySelectorAll(".row")].filter(e => e.checkVisibility()).map(e => e.dataset.path)')

    # Bars

    def bars(self):
        """What the bars show: the fraction of the track at which each mark stands, by path and kind."""
        return self.script(CENTRE + '''
            return Object.fromEntries([...document.querySelectorAll('.row')].map(row => {
                const track = row.querySelector('.track')?.getBoundingClientRect();
                const text = row.querySelector('.scale').textContent;
                if (!track) return [row.dataset.path, { text }];
                const part = e => e && (centre(e) - track.left) / track.width;
                const presets = [...row.querySelectorAll('.preset')].map(e => [e.dataset.name, part(e)]);
                return [row.dataset.path, { text, width: track.width, value: part(row.querySelector('circle.value')),
                    default: part(row.querySelector('line.default')), other: part(row.querySelector('path.other')),
                    difference: row.querySelector('line.difference')?.getBoundingClientRect().width,
                    presets: Object.fromEntries(presets) }];
            }));''')

    def check_marks(self, bar, parameter, place, message):
        tolerance = PIXEL / bar['width']
        self.assertAlmostEqual(bar['value'], place(parameter['value']), delta=tolerance, msg=message)
        self.assertAlmostEqual(bar['default'], place(parameter['defaultValue']), delta=tolerance, msg=message)
        self.assertEqual(bar['presets'].keys(), parameter.get('presets', {}).keys(), message)
        for name, number in parameter.get('presets', {}).items():
            self.assertAlmostEqual(bar['presets'][name], place(number), delta=tolerance, msg=f'{message} {name}')

    def test_marks_stand_where_the_numbers_say(self):
        profile = self.profile(88)
        profile['lidar']['ground_classification']['maximum_terrain_slope']['value'] = 5  # its minimum
        profile['lidar']['point_cloud_direct_colorization']['images']['width']['value'] = 20000  # its maximum
        self.open(self.save('one.json', profile))
        bars = self.bars()
        parameters = {path: parameter for path, parameter in parameters_of(profile).items() if path in bars}
        self.assertEqual(len(parameters), 112)
        kinds = {'linear': 0, 'log': 0, 'text': 0}
        for path, parameter in parameters.items():
            minimum, maximum = parameter.get('minimum'), parameter.get('maximum')
            if minimum is None:
                kinds['text'] += 1
                self.assertNotIn('value', bars[path], path)
                self.assertIn('constant' if 'defaultValue' not in parameter else 'no bounds', bars[path]['text'], path)
            elif minimum > 0 and maximum / minimum > 1000:
                kinds['log'] += 1
                self.check_marks(bars[path], parameter, lambda x: math.log(x / minimum, maximum / minimum), path)
                self.assertIn('log scale', bars[path]['text'], path)
            else:
                kinds['linear'] += 1
                self.check_marks(bars[path], parameter, lambda x: (x - minimum) / (maximum - minimum), path)
                self.assertNotIn('log scale', bars[path]['text'], path)
        self.assertEqual(kinds, {'linear': 73, 'log': 3, 'text': 36})

    def test_bounds_of_the_number_types_are_no_bounds(self):
        profile = self.profile(88)
        lidar = profile['lidar']
        biggest = sys.float_info.max
        lidar['imu_latency'] |= {'minimum': -biggest, 'maximum': biggest}
        lidar['lever_arm']['x'] |= {'minimum': 0, 'maximum': biggest}
        lidar['lever_arm']['y'] |= {'minimum': -1e308, 'maximum': 1e308, 'value': 5e307}
        lidar['lever_arm']['z'] |= {'minimum': 0.09, 'maximum': 0.09, 'value': 0.09, 'defaultValue': 0.09}
        self.open(self.save('unbounded.json', profile))
        bars = self.bars()
        texts = {path: bars[path]['text'].partition(' \u00b7 ')[0] for path in
                 ('lidar.imu_latency', 'lidar.lever_arm.x', 'lidar.lever_arm.z')}
        self.assertEqual(texts, {'lidar.imu_latency': 'no bounds', 'lidar.lever_arm.x': 'at least 0 m', 'lidar.lever_arm.z': 'constant'})
        self.assertAlmostEqual(bars['lidar.lever_arm.y']['value'], 0.75, places=2)
        self.assertIn('too far apart', self.browser.find_element(By.CSS_SELECTOR, '.head').text)

    # Pictures

    def test_points_stand_where_the_lever_arms_say(self):
        profile = self.profile(100)
        self.open(self.save('head.json', profile))
        expected = {'': (0, 0, 0)}
        parameters = parameters_of(profile)
        for path in parameters:
            owner, _, key = path.rpartition('.')
            if key == 'x' and owner.endswith(('.lever_arm', '.lever_arm_antenna')):
                expected[owner] = tuple(parameters[f'{owner}.{axis}']['value'] for axis in 'xyz')
        views = self.script(CENTRE + '''
            const middle = e => { const r = e.getBoundingClientRect(); return r.top + r.height / 2; };
            return [...document.querySelectorAll('.view')].map(view => ({
                points: Object.fromEntries([...view.querySelectorAll('.point')].map(e => [e.dataset.point, [centre(e), middle(e)]])),
                steps: [...view.querySelectorAll('.metres[text-anchor=middle]')].map(e => [e.textContent, centre(e)]) }));''')
        self.assertEqual(len(views), 2)
        for view, axis in zip(views, (1, 2)):
            points = view['points']
            self.assertEqual(points.keys(), expected.keys())
            (first, left), *_, (last, right) = view['steps']
            scale = (right - left) / (float(last.replace('\u2212', '-')) - float(first.replace('\u2212', '-')))
            for path, position in expected.items():
                drawn = [(points[path][i] - points[''][i]) / scale for i in (0, 1)]
                for number, coordinate in zip(drawn, (position[0], position[axis])):
                    self.assertAlmostEqual(number, coordinate, delta=1.5 / scale, msg=path)

    def test_cameras_look_where_their_names_say(self):
        self.open('factory', 100)
        arrows = self.script('''
            return [...document.querySelectorAll('.view')].map(view => [...view.querySelectorAll('path.looks, path.kappa')].map(e => {
                const [x, y, toX, toY] = e.getAttribute('d').match(/-?[\\d.]+/g).map(Number);
                return [e.getAttribute('class'), Math.round((toX - x) / 10), Math.round((toY - y) / 10)];
            }));''')
        looks = [[arrow[1:] for arrow in view if arrow[0] == 'looks'] for view in arrows]
        self.assertEqual(looks[0], [[-2, 0], [2, 0], [0, 2], [0, -2]])  # rear, front, right, left; nadir is a ring
        self.assertEqual(looks[1], [[0, 3], [-2, 2], [2, 2], [0, 2], [0, 2]])
        self.assertEqual([arrow[1:] for view in arrows for arrow in view if arrow[0] == 'kappa'], [[0, -3]] * 5)

    def test_fans_span_the_angles_of_the_fields_of_view(self):
        profile = self.profile(88)
        fields = profile['lidar']['georeferencing']['field_of_views']
        fields[0]['filter'] = {'minimum': -10, 'maximum': 20, 'unit': 'deg'}
        fields[2]['view'] = {'minimum': -200, 'maximum': 200, 'unit': 'deg'}
        self.open(self.save('fans.json', profile))
        sectors = self.script('''
            return [...document.querySelectorAll('.fans figure')].map(figure => [figure.className, figure.innerText.split('\\n'),
                ...[...figure.querySelectorAll('path.sees, path.keeps, path.calibrates')].map(e => {
                    const angle = p => Math.atan2(p.x, p.y) * 180 / Math.PI;
                    const box = e.getBBox(), length = e.getTotalLength(), radius = Math.hypot(e.getPointAtLength(length / 3).x, e.getPointAtLength(length / 3).y);
                    const inside = [...Array(720).keys()].map(i => i / 2 - 179.75).filter(a => e.isPointInFill(
                        new DOMPoint(radius / 2 * Math.sin(a * Math.PI / 180), radius / 2 * Math.cos(a * Math.PI / 180))));
                    return [e.getAttribute('class'), Math.min(...inside), Math.max(...inside), inside.length / 2];
                })]);''')
        ranges = [(field['view'], field['filter']) for field in fields]
        for (kind, texts, sees, keeps), (view, kept), field in zip(sectors, ranges, fields):
            self.assertEqual(kind, 'default' if field['is_default'] else '')
            for (name, low, high, span), angles in ((sees, view), (keeps, kept)):
                expected = (max(-180, angles['minimum']), min(180, angles['maximum']))
                self.assertAlmostEqual(low, expected[0], delta=0.5)
                self.assertAlmostEqual(high, expected[1], delta=0.5)
                self.assertAlmostEqual(span, expected[1] - expected[0], delta=1)
                text = f'{name} {angles["minimum"]} to {angles["maximum"]} deg'.replace('-', '\u2212')
                self.assertIn(text, texts)
        self.assertEqual(sectors[-1][2][0], 'calibrates')
        self.assertAlmostEqual(sectors[-1][2][1], -123, delta=0.5)

    # Differences

    def test_a_tuned_profile_is_compared_with_the_factory(self):
        profile = self.profile(2) | {'name': 'Coast', 'id': 12}
        profile['lidar']['imu_latency']['value'] = 0.5
        profile['lidar']['ground_classification']['number_of_neighbors']['presets']['flat urban'] = 25
        profile['lidar']['alignment'] = 'x y z'
        del profile['trajectory']['imu_external']
        tuned = self.save('tuned.json', profile)
        self.open(tuned, '--against', 'factory')
        listing = self.browser.find_element(By.CSS_SELECTOR, '.listing')
        rows = [[cell.text for cell in row.find_elements(By.CSS_SELECTOR, 'th, td')] for row in listing.find_elements(By.CSS_SELECTOR, 'tbody tr')]
        self.assertEqual(rows, [
            ['name', 'Korvane Gamma', 'Coast', ''],
            ['lidar.imu_latency', '0.002 sec', '0.5 sec', '+0.498 sec'],
            ['lidar.alignment', 'z y -x', 'x y z', ''],
            ['lidar.ground_classification.number_of_neighbors.presets.flat urban', '20', '25', '+5'],
            ['trajectory.imu_external', 'present', 'none', '']])
        bar = self.bars()['lidar.imu_latency']
        self.assertAlmostEqual(bar['value'], 0.75, delta=PIXEL / bar['width'])
        self.assertAlmostEqual(bar['other'], 0.501, delta=PIXEL / bar['width'])
        self.assertAlmostEqual(bar['difference'], bar['width'] / 4, delta=5)
        self.browser.find_element(By.CSS_SELECTOR, 'input[value=other]').click()
        self.assertEqual(self.visible_paths(), ['lidar.imu_latency'])
        for against in ('12', tuned):
            self.open(tuned, '--against', against)
            name = 'profile 12' if against == '12' else 'tuned.json'
            self.assertEqual(self.browser.find_element(By.CSS_SELECTOR, '.listing').text, f'Differs from {name} (0)\nNothing.')

    # Tools

    def test_switch_search_and_folding(self):
        self.open('factory', 88, 5)
        all_paths = self.visible_paths()
        self.assertEqual(len(all_paths), 132)
        switch = self.browser.find_element(By.CSS_SELECTOR, 'input[value=default]')
        status = self.browser.find_element(By.ID, 'shown')
        switch.click()
        expected = [path for number in (88, 5) for path, parameter in parameters_of(self.profile(number)).items()
                    if parameter.get('defaultValue', parameter['value']) != parameter['value']]
        self.assertCountEqual(self.visible_paths(), expected)
        self.assertEqual(status.text, '12 of 132 settings')
        search = self.browser.find_element(By.ID, 'search')
        search.send_keys('boresight YAW')
        self.assertEqual(self.visible_paths(), ['lidar.georeferencing.boresight_angles.yaw'])
        self.assertIn('No setting of this profile', self.browser.find_element(By.ID, 'profile-1').text)
        search.clear()
        self.browser.find_element(By.CSS_SELECTOR, 'input[value=all]').click()
        self.assertEqual(self.visible_paths(), all_paths)
        self.browser.find_element(By.CSS_SELECTOR, '.group summary').click()
        self.assertEqual(self.visible_paths(), all_paths[1:])  # the section "lidar" has one row
        self.browser.find_element(By.ID, 'fold').click()
        self.assertEqual(self.visible_paths(), [])
        self.browser.find_element(By.ID, 'unfold').click()
        self.assertEqual(self.visible_paths(), all_paths)

    # Safety

    def test_hostile_texts_are_shown_and_run_nothing(self):
        profile = self.profile(88)
        for key in ('name', 'product', 'serial_number'):
            profile[key] = f'{key} {ATTACK}'
        lidar = profile['lidar']
        lidar['file_extension'] = 'extension ' + ATTACK
        lidar['georeferencing']['calibration_document'] = {'name': 'calibration ' + ATTACK, 'content': 'content <!-- ' + ATTACK}
        lidar['ground_classification']['terrain_typology'] = ['terrain ' + ATTACK, '\u202e\u0007 \u6d77\u5cb8 \u05d0\u05d1']
        lidar['ground_classification']['number_of_neighbors']['presets'] = {'preset ' + ATTACK: 30, '__proto__': 40, 'constructor': 50}
        source = self.save("<img src=x onerror='window.attacked = 1'>.json", profile, profile | {'id': 89})
        self.open(source, '--against', '88')
        self.assertEqual(self.script('return [window.attacked, document.images.length, document.scripts.length]'), [None, 0, 2])
        text = self.script('return document.body.textContent.replace(document.getElementById("data").textContent, "")')
        shown = [profile['name'], profile['product'], profile['serial_number'], lidar['file_extension'],
                 'preset ' + ATTACK, '__proto__ 40', 'constructor 50', "<img src=x onerror='window.attacked = 1'>.json"]
        shown += lidar['georeferencing']['calibration_document'].values()
        shown += lidar['ground_classification']['terrain_typology']
        for expected in shown:
            self.assertIn(expected, text)
        refused = self.script('''
            const script = document.createElement('script');
            script.textContent = 'window.attacked = 1';
            document.body.append(script);
            document.body.insertAdjacentHTML('beforeend', '<p style="color: red" onclick="window.attacked = 1">x</p>');
            document.body.lastElementChild.click();
            return [window.attacked, getComputedStyle(document.body.lastElementChild).color === 'rgb(255, 0, 0)'];''')
        self.assertEqual(refused, [None, False])
        self.assertEqual(len(self.browser.get_log('browser')), 3)  # the policy refused each of them

    # Size, speed, windows and paper

    def test_all_factory_profiles_open_quickly(self):
        page = self.open('factory')
        self.assertLess(page.stat().st_size, 2_000_000)
        self.browser.get(page.as_uri())
        loaded = self.script('return performance.getEntriesByType("navigation")[0].loadEventEnd')
        self.assertLess(loaded, 1000)
        self.assertEqual(len(self.browser.find_elements(By.CSS_SELECTOR, '#contents tbody tr')), len(self.factory))
        self.assertLess(self.script('return document.querySelectorAll("[data-filled]").length'), len(self.factory))
        self.browser.find_elements(By.CSS_SELECTOR, '#contents a')[-1].click()
        self.wait_for('document.querySelector("#profile-13 .row")')
        self.wait_for('Math.abs(document.getElementById("profile-13").getBoundingClientRect().top) < 200')
        self.script('dispatchEvent(new Event("beforeprint"))')
        self.assertEqual(self.script('return document.querySelectorAll("[data-filled]").length'), len(self.factory))

    def wait_for(self, condition):
        end = time.monotonic() + 5
        while not self.script('return ' + condition):
            self.assertLess(time.monotonic(), end, condition)
            time.sleep(0.02)

    def test_nothing_is_cut_off_in_a_narrow_window(self):
        self.set_window(360, 740)
        profile = self.profile(88)
        profile['name'] = 'N' * 300
        profile['lidar']['ground_classification']['number_of_neighbors']['presets'] = {'p' * 300: 10, 'q' * 300: 200}
        self.open(self.save('narrow.json', profile), 88, '--against', 'factory')
        outside = self.script('''
            return [...document.querySelectorAll('body *')].filter(e => e.checkVisibility() && !e.closest('pre, .spoken')).filter(e => {
                const { left, right } = e.getBoundingClientRect();
                return right > innerWidth + 0.5 || left < -0.5;
            }).map(e => e.outerHTML.slice(0, 200));''')
        self.assertEqual(outside, [])
        self.assertEqual(self.script('return document.documentElement.scrollWidth'), 360)

    def test_texts_have_contrast_and_pictures_have_names(self):
        self.open('factory', 88)
        self.assertEqual(self.script('return [...document.querySelectorAll("svg")].filter(e => !e.closest("[aria-hidden], [role=img]")).length'), 0)
        self.assertEqual(self.script('return [...document.querySelectorAll("[role=img]")].filter(e => !e.getAttribute("aria-label")).length'), 0)
        for scheme in ('light', 'dark'):
            self.browser.execute_cdp_cmd('Emulation.setEmulatedMedia', {'features': [{'name': 'prefers-color-scheme', 'value': scheme}]})
            lowest = self.script('''
                const parse = colour => colour.match(/[\\d.]+/g).map(Number);
                const light = colour => parse(colour).slice(0, 3).map(c => c / 255).map(c => c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4)
                    .reduce((sum, c, i) => sum + c * [0.2126, 0.7152, 0.0722][i], 0);
                const paper = e => { for (; e; e = e.parentElement) { const c = getComputedStyle(e).backgroundColor; if (parse(c)[3] !== 0) return c; } };
                const contrast = (a, b) => (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
                return Math.min(...[...document.querySelectorAll('.name span, .name code, .figure, .figure b, .from-default, .ends, .key, td, th, .bar text')]
                    .map(e => contrast(light(e.closest('svg') ? getComputedStyle(e).fill : getComputedStyle(e).color), light(paper(e)))));''')
            self.assertGreater(lowest, 4.5, scheme)
        self.browser.execute_cdp_cmd('Emulation.setEmulatedMedia', {'features': []})


if __name__ == '__main__':
    PROGRAM = str(Path(sys.argv.pop(1)).resolve())
    unittest.main()
