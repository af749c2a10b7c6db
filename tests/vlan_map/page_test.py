"""The page of `vpnval map` in a real browser, at four ports and at four hundred: page_test.py VPNVAL PLUGIN SOURCE_DIR."""
import itertools
import pathlib
import subprocess
import sys
import tempfile
import unittest

import browser
import commits
from browser import MARKS, Keys

VPNVAL, PLUGIN, SOURCE_DIR = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
CLEAR = Keys.CONTROL + "a" + Keys.NULL + Keys.DELETE


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.driver = browser.start()

    @classmethod
    def tearDownClass(cls):
        cls.driver.quit()
        cls.folder.cleanup()

    @classmethod
    def draw(cls, commit):
        file = pathlib.Path(cls.folder.name, f"{pathlib.Path(commit).name}.html")
        subprocess.run([VPNVAL, "map", commit, "--plugin", PLUGIN, "-o", file], check=True, cwd=SOURCE_DIR,
                       stdout=subprocess.DEVNULL)
        return file


class WholePage:
    """What holds at any number of ports; a class of its own for each says which claims it is about."""

    def setUp(self):
        self.page = browser.Page(self.driver, self.file)

    def test_loads_nothing_and_complains_of_nothing(self):
        self.assertEqual(self.page.requests(), {self.page.url})
        self.assertEqual(self.page.complaints(), [])

    def test_every_claim_has_a_mark_and_none_hides_another_at_any_zoom(self):
        claims = len(self.page.texts("#claims tbody tr"))
        self.assertEqual(len(self.page.names(f"{MARKS}:not(.former)")), claims)
        self.assertEqual(self.page.overlaps(), [])
        for factor in (2, 4, 8):
            self.page.find("#zoom-in").click()
            self.assertEqual(self.page.find("#zoom").text, f"{factor}\u00d7")
            self.assertEqual(self.page.overlaps(), [])

    def test_a_search_marks_and_counts_what_the_vpn_claims(self):
        vpn, count = self.searched
        self.page.type_into("#vpn-search", vpn)
        hits = self.page.names(f"{MARKS}.hit")
        self.assertEqual(self.page.find("#vpn-count").text, count)
        self.assertEqual(hits, [name for name in self.page.names(MARKS) if f" {vpn}" in name])
        self.page.press(Keys.ENTER)
        self.assertEqual(self.page.focused(), hits[0])
        self.page.press(Keys.ENTER)
        self.assertEqual(self.page.focused(), hits[1])
        self.page.type_into("#vpn-search", "no such VPN")
        self.assertEqual(self.page.find("#vpn-count").text, "0 claims on 0 ports")
        self.page.find("#vpn-search").send_keys(CLEAR)
        self.assertEqual(self.page.find("#vpn-count").text, "")
        self.assertEqual(self.page.names(f"{MARKS}.hit"), [])

    def test_a_port_filter_leaves_its_ports(self):
        wanted, ports, count = self.filtered
        self.page.type_into("#port-filter", wanted)
        self.assertEqual(self.shown_ports(), ports)
        self.assertEqual(self.page.find("#port-count").text, count)
        self.page.find("#port-filter").send_keys(CLEAR)
        self.page.find("#busy-only").click()
        self.assertEqual(self.shown_ports(), self.busy_ports)

    def shown_ports(self):
        return self.page.texts(".row:not([hidden]) .port")

    def test_pointer_and_focus_show_what_a_claim_is(self):
        bar = self.page.mark(self.claim[0])
        self.page.run("arguments[0].scrollIntoView({block: 'center'})", self.page.find("#map"))
        self.page.point_at(bar)
        self.assertEqual(self.page.detail(), self.claim[1])
        self.page.press(Keys.ESCAPE)
        self.assertIsNone(self.page.detail())
        self.page.run("arguments[0].parentElement.focus()", bar)
        self.assertEqual(self.page.detail(), self.claim[1])

    def test_a_conflict_leads_to_its_claims(self):
        for place, link in enumerate(self.page.driver.find_elements(browser.By.CSS_SELECTOR, "#conflicts a.jump")):
            self.page.type_into("#port-filter", "no such port")
            self.assertEqual(self.shown_ports(), [])
            self.page.run("arguments[0].scrollIntoView({block: 'center'})", link)
            text = link.text
            link.click()
            self.assertEqual(self.page.focused().split("; ")[0], text, f"link {place}")
            self.assertTrue(self.page.is_on_top(self.page.find(f"{MARKS}:focus .bar")), text)

    def test_a_screen_reader_finds_claims_and_conflicts(self):
        names = self.page.names(MARKS)
        for name in names[::self.spoken_at_a_distance] + names[-1:]:
            self.assertEqual(self.page.roles_of(name), {"image"}, name)
        for message in self.page.texts("#conflicts tbody td:nth-child(3)"):
            self.assertIn("cell", self.page.roles_of(message), message)

    def test_the_picture_is_painted(self):
        self.page.run("arguments[0].scrollIntoView({block: 'start'})", self.page.find("#map"))
        image = self.page.screenshot()
        self.assertGreater(len(image.getcolors(1 << 24)), 50)
        bars = self.page.driver.find_elements(browser.By.CSS_SELECTOR, f"{MARKS}.vpws.unchanged:not(.rejected) .bar")
        bars = [bar for bar in bars[:40] if self.page.is_on_top(bar)]
        self.assertGreater(len(bars), 1)
        for bar in bars:
            self.assertEqual(self.page.colour_in(image, bar), (0x8f, 0xd0, 0xf5))


class FourPorts(WholePage, PageTest):
    searched = ("branches vpn management", "2 claims on 1 port")
    filtered = ("1/1/2", ["gigabit-ethernet-1/1/2"], "1 of 4 ports")
    busy_ports = commits.port_names(4)
    spoken_at_a_distance = 1
    claim = ("gigabit-ethernet-1/1/2: vpws-group branches vpn management-2, untagged, added", {
        "Port": "gigabit-ethernet-1/1/2", "Group": "vpws-group branches", "VPN": "vpn management-2",
        "VLANs": "untagged", "This commit": "added",
        "Conflicts": "rejection 1: gigabit-ethernet-1/1/2 encapsulation untagged cannot be set simultaneously in "
                     "vpws-group branches vpn management-2 and vpws-group branches vpn management"})

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.file = cls.draw("docs/map-example")

    def test_a_screen_reader_finds_what_is_around_the_claims(self):
        for name, role in (("Conflicts", "heading"), ("The element says it", "columnheader"), ("All claims", "heading"),
                           ("Search VPN", "searchbox"), ("Filter port", "searchbox"), ("Zoom in", "button"),
                           ("VLANs by port: docs/map-example", "RootWebArea")):
            self.assertIn(role, self.page.roles_of(name), name)

    def test_every_mark_can_be_hit(self):
        self.page.run("arguments[0].scrollIntoView({block: 'start'})", self.page.find("#map"))
        for factor in ("1", "2"):
            self.page.run("arguments[0].scrollLeft = 0", self.page.find("#map"))
            bars = self.page.driver.find_elements(browser.By.CSS_SELECTOR, f"{MARKS} .bar")
            seen = [bar for bar in bars if bar.rect["x"] + 10 < 1480]
            self.assertGreater(len(seen), 15)
            for bar in seen:
                self.assertTrue(self.page.is_on_top(bar), f"{factor}: {bar.get_attribute('outerHTML')}")
            self.page.find("#zoom-in").click()

    def test_the_arrow_keys_go_from_claim_to_claim(self):
        self.page.find(".row .badge").send_keys(Keys.TAB)
        first = self.page.names("#port-0 .mark")
        second = self.page.names("#port-1 .mark")
        self.assertEqual(self.page.focused(), first[0])
        self.page.press(Keys.ARROW_RIGHT)
        self.assertEqual(self.page.focused(), first[1])
        self.page.press(Keys.END)
        self.assertEqual(self.page.focused(), first[-1])
        self.page.press(Keys.HOME)
        self.page.press(Keys.ARROW_DOWN)
        self.assertIn(self.page.focused(), second)
        self.assertEqual(self.page.detail()["Port"], "gigabit-ethernet-1/1/2")
        self.page.press(Keys.ARROW_UP)
        self.assertIn(self.page.focused(), first)

    def test_colours_are_far_apart_for_every_kind_of_colour_vision(self):
        bars = self.page.driver.find_elements(browser.By.CSS_SELECTOR, ".legend .unchanged:not(.rejected, .warned) .bar")
        self.assertEqual(len(bars), 5)
        for vision in ("none", "deuteranopia", "protanopia", "tritanopia"):
            self.driver.execute_cdp_cmd("Emulation.setEmulatedVisionDeficiency", {"type": vision})
            image = self.page.screenshot()
            colours = [cie_lab(self.page.colour_in(image, bar)) for bar in bars]
            for a, b in itertools.combinations(colours, 2):
                self.assertGreater(sum((p - q) ** 2 for p, q in zip(a, b)) ** 0.5, 20, vision)
        self.driver.execute_cdp_cmd("Emulation.setEmulatedVisionDeficiency", {"type": "none"})

    def test_what_is_done_to_a_claim_shows_in_its_outline_too(self):
        outlines = self.page.run("""return [...document.querySelectorAll(".legend .vpws .bar")].map((bar) => {
            const style = getComputedStyle(bar);
            return [style.stroke, style.strokeWidth, style.strokeDasharray, style.fill].join(" "); });""")
        self.assertEqual(len(outlines), 7)
        self.assertEqual(len(set(outlines)), 7)

    def test_dark_is_dark(self):
        for scheme, is_dark in (("dark", True), ("light", False)):
            features = [{"name": "prefers-color-scheme", "value": scheme}]
            self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": features})
            self.assertEqual(max(self.page.screenshot().getpixel((4, 4))) < 64, is_dark)

    def test_on_paper_the_whole_picture_fits(self):
        paper = {"width": 1000, "height": 700, "deviceScaleFactor": 1, "mobile": False}
        self.page.find("#zoom-in").click()
        self.page.run("window.dispatchEvent(new Event('beforeprint'))")
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", paper)
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": "print"})
        width = self.page.run("return [document.documentElement.scrollWidth, window.innerWidth]")
        tools = self.page.find(".tools").is_displayed()
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": ""})
        self.driver.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
        self.page.run("window.dispatchEvent(new Event('afterprint'))")
        self.assertLessEqual(width[0], width[1])
        self.assertFalse(tools)

    def test_without_scripts_there_are_the_picture_and_the_tables(self):
        self.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": True})
        self.driver.get(self.page.url)
        image = self.page.screenshot()
        self.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": False})
        self.assertIn((0x8f, 0xd0, 0xf5), {colour for _, colour in image.getcolors(1 << 24)})
        self.assertEqual(len(self.page.texts("#claims tbody tr")), 21)


class FourHundredPorts(WholePage, PageTest):
    searched = ("vpn lan-180", "10 claims on 10 ports")
    filtered = ("1/7/3", [f"gigabit-ethernet-1/7/3{end}" for end in ("", *range(10))], "11 of 400 ports")
    busy_ports = [commits.port_names(400)[i] for i in (0, 10, 60, 110, 160, 210, 260, 310, 360, 399)]
    spoken_at_a_distance = 1500
    claim = ("gigabit-ethernet-1/2/1: vpls-group campus vpn lan-40, VLAN 3802", {
        "Port": "gigabit-ethernet-1/2/1", "Group": "vpls-group campus", "VPN": "vpn lan-40", "VLANs": "VLAN 3802",
        "This commit": "unchanged"})

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        commit = pathlib.Path(cls.folder.name, "large")
        commits.write_large(commit)
        cls.file = cls.draw(commit)


class HostileNames(PageTest):
    def test_a_name_is_text_whatever_it_is(self):
        names = ["</script><script>document.title='broken'</script>", "<img src=x onerror=document.title='broken'>",
                 "]]>", "\"' onfocus=document.title='broken' autofocus x='", "<!--", "&lt;b&gt;"]
        running, candidate = commits.Configuration(), commits.Configuration()
        ports = commits.port_names(2)
        for i, name in enumerate(names):
            candidate.add_vpls(name, name, 100 + i, ports)
        candidate.add_vpls("last", "same VLAN", 100, ports)
        folder = pathlib.Path(self.folder.name, "hostile")
        commits.write(folder, ports, running, candidate)
        page = browser.Page(self.driver, self.draw(folder))
        groups = page.texts("#claims tbody td:nth-child(2)")
        self.assertLessEqual({f"vpls-group {name}" for name in names}, set(groups))
        self.assertTrue(any(names[0] in message for message in page.texts("#conflicts tbody td:nth-child(3)")))
        page.point_at(page.find(f"{MARKS} .bar"))
        self.assertEqual(page.detail()["Group"], groups[0])
        self.assertTrue(page.driver.title.startswith("VLANs by port: "))
        self.assertEqual(page.complaints(), [])
        self.assertEqual(page.requests(), {page.url})


def cie_lab(colour):
    """A colour of sRGB in CIELAB, where a distance is about what an eye sees."""
    red, green, blue = (c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in (c / 255 for c in colour))
    x, y, z = ((0.4124 * red + 0.3576 * green + 0.1805 * blue) / 0.9505,
               0.2126 * red + 0.7152 * green + 0.0722 * blue,
               (0.0193 * red + 0.1192 * green + 0.9505 * blue) / 1.089)
    fx, fy, fz = (t ** (1 / 3) if t > 0.008856 else 7.787 * t + 16 / 116 for t in (x, y, z))
    return 116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
