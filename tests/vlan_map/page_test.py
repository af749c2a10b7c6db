"""The page of `vpnval map` in a real browser, at four ports and at 64 with 20,000 claims: page_test.py VPNVAL PLUGIN
SOURCE_DIR."""
import itertools
import pathlib
import subprocess
import sys
import tempfile
import unittest

import browser
import commits
from browser import Keys

VPNVAL, PLUGIN, SOURCE_DIR = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
PORT_2 = "gigabit-ethernet-1/1/2"


def setUpModule():
    PageTest.folder = tempfile.TemporaryDirectory()
    PageTest.driver = browser.start()


def tearDownModule():
    PageTest.driver.quit()
    PageTest.folder.cleanup()


class PageTest(unittest.TestCase):
    folder = None
    driver = None

    @classmethod
    def draw(cls, commit, *options):
        file = pathlib.Path(cls.folder.name, f"{pathlib.Path(commit).name}.html")
        subprocess.run([VPNVAL, "map", commit, "--plugin", PLUGIN, "-o", file, *options], check=True, cwd=SOURCE_DIR,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return file


class WholePage:
    """What holds at any number of ports and claims."""

    def setUp(self):
        self.page = browser.Page(self.driver, self.file)

    def test_loads_nothing_and_complains_of_nothing(self):
        self.assertEqual(self.page.requests(), {self.page.url})
        self.assertEqual(self.page.complaints(), [])

    def assert_is_exact(self):
        """Every claim is as wide as its VLANs or has a mark in their middle, and none lies over another."""
        for row in self.page.drawn():
            ends = {}
            for mark in sorted(row, key=lambda mark: mark["left"]):
                self.assertGreaterEqual(mark["left"], ends.get(mark["lane"], -10), mark)
                ends[mark["lane"]] = mark["right"]
                self.assertEqual(mark["shape"] == "bar", mark["width"] >= 6, mark)
                if mark["shape"] in ("vlan", "range"):
                    self.assertEqual(mark["shape"] == "range", mark["first"] != mark["last"], mark)

    def test_claims_are_exact_and_apart_and_have_more_of_their_names_the_wider_the_scale(self):
        shares = []
        for _ in range(3):
            self.assert_is_exact()
            marks = [mark for row in self.page.drawn() for mark in row]
            shares.append(sum(" " in mark["label"] for mark in marks) / len(marks))
            self.page.run("view.zoomBy(16)")
            self.page.settle()
        self.assertGreater(shares[-1], 0.9)
        self.assertGreaterEqual(shares[-1], shares[0])

    def test_zoom_narrows_and_widens_what_is_in_view(self):
        self.assertEqual(self.page.find("#in-view").text, "VLANs 1-4094")
        self.page.click("#zoom-in")
        first, last = self.page.vlans_in_view()
        self.assertTrue(1900 < last - first < 2300)
        self.page.click("#zoom-out")
        self.page.click("#zoom-all")
        self.assertEqual(self.page.find("#in-view").text, "VLANs 1-4094")

    def test_filters_leave_what_they_say(self):
        for selector, text, count in self.filtered:
            self.page.type_into(selector, text)
            self.assertEqual(self.page.find("#count").text, count, text)
            self.page.type_into(selector)
        self.page.type_into("#vlan-filter", "12x")
        self.assertEqual(self.page.find("#count").text, "expected a VLAN or a range, such as 210 or 200-300")
        self.page.type_into("#vlan-filter")
        self.page.click("#conflicts-only")
        count = self.page.run("return model.claims.filter(({conflicts}) => conflicts.length > 0).length")
        self.assertEqual(self.page.find("#count").text.split()[0], str(count))
        self.assertGreaterEqual(count, self.least_in_conflicts)

    def test_the_keyboard_goes_through_conflicts_and_shows_both_parties(self):
        self.page.run("view.frame.focus()")
        for number, parties in self.parties:
            self.page.press("c")
            self.assertIn(f"rejection {number}", self.page.detail())
            for party in parties:
                self.assertIn(party, self.page.detail())
            self.assertNotEqual(self.page.find("#in-view").text, "")
            in_view = {mark["claim"] for row in self.page.drawn() for mark in row}
            claims = self.page.run("return model.conflicts[arguments[0]].claims", number - 1)
            self.assertLessEqual(set(claims), in_view)
        self.page.press(Keys.ESCAPE)
        self.assertTrue(self.page.detail().startswith("Conflicts ("))


class FourPorts(WholePage, PageTest):
    filtered = [("#vpn-filter", "branches management", "2 of 21 claims on 1 of 4 ports"),
                ("#vpn-filter", "no such VPN", "0 of 21 claims on 0 of 4 ports"),
                ("#port-filter", "1/1/2", "7 of 21 claims on 1 of 4 ports"),
                ("#vlan-filter", "210", "5 of 21 claims on 3 of 4 ports"),
                ("#vlan-filter", "1000 - 2050", "5 of 21 claims on 2 of 4 ports")]
    least_in_conflicts = 9
    parties = [(1, ["vpn management-2", "vpn management,", "docs/map-example/candidate.json:55",
                    "docs/map-example/running.json:44", "take back", "vpnval explain access-untagged-twice"]),
               (2, ["vpn south", "vpn data", "change", "free on this port: 211, 209 or 212"])]

    @classmethod
    def setUpClass(cls):
        cls.file = cls.draw("docs/map-example")

    def claim(self, vpn, vlan, port):
        """The number of a claim."""
        return self.page.run("""const [vpn, vlan, port] = arguments;
            return model.claims.find((one) => one.vpn === vpn && one.first === vlan && one.port.name === port).number""",
                             vpn, vlan, port)

    def test_a_screen_reader_finds_what_there_is(self):
        for name, role in (("Conflicts", "heading"), ("File and line", "columnheader"), ("Ports and claims", "heading"),
                           ("VPN", "searchbox"), ("VLAN", "searchbox"), ("Zoom in", "button"), ("Next conflict", "button"),
                           ("VLANs by port", "application"), ("VLANs by port: docs/map-example", "RootWebArea"),
                           ("vpws-group branches vpn management-2", "rowheader"), ("Details", "complementary")):
            self.assertIn(role, self.page.roles_of(name), name)

    def test_the_arrow_keys_go_from_claim_to_claim_and_say_which(self):
        self.page.run("view.frame.focus()")
        self.page.press(Keys.ARROW_RIGHT)
        self.assertTrue(self.page.spoken().startswith("gigabit-ethernet-1/1/1: VLAN manager vlan 20, VLAN 20, unchanged"))
        self.page.press(Keys.ARROW_RIGHT)
        self.assertIn("vpn north, VLAN 101", self.page.spoken())
        self.page.press(Keys.END)
        self.assertIn("vpn voice, VLAN 320", self.page.spoken())
        self.page.press(Keys.ARROW_DOWN)
        self.assertTrue(self.page.spoken().startswith(f"{PORT_2}: vpls-group campus vpn voice, VLAN 320"))
        self.page.press(Keys.HOME)
        self.assertIn("untagged", self.page.spoken())
        self.page.press(Keys.ARROW_UP)
        self.assertTrue(self.page.spoken().startswith("gigabit-ethernet-1/1/1: VLAN manager vlan 20"))

    def test_a_claim_is_told_beside_with_file_line_and_who_else(self):
        self.page.click_at(*self.page.point_of(self.claim("management-2", 0, PORT_2)))
        facts = self.page.facts()
        self.assertEqual(facts["Port"], PORT_2)
        self.assertEqual(facts["Claimed by"], "vpws-group branches vpn management-2")
        self.assertEqual(facts["This commit"], "added")
        self.assertEqual(facts["File and line"], "docs/map-example/candidate.json:58")
        self.assertIn("vpn management, interface", self.page.detail())
        self.assertTrue(self.page.spoken().startswith(f"{PORT_2}: vpws-group branches vpn management-2, untagged"))

    def test_ways_to_a_claim_a_port_and_a_vlan(self):
        south = self.claim("south", 210, "gigabit-ethernet-1/1/1")
        self.page.click_at(*self.page.point_of(south), times=2)
        first, last = self.page.vlans_in_view()
        self.assertTrue(first <= 210 <= last and last - first < 40)
        self.page.press("v")
        self.assertIn("Free on 1 of 4 ports", self.page.detail())
        self.assertEqual(len(self.page.ports()), 3)
        self.page.press(Keys.ESCAPE, "p")
        self.assertIn("Free VLANs: 1-19, 21-100, 102-209, 211-319, 321-4094.", self.page.detail())
        self.assertEqual(self.page.find("#in-view").text.split("-")[0], "VLANs 1")

    def test_the_pointer_zooms_where_it_is_and_drags(self):
        x, y = self.page.point_of(self.claim("east", 1000, PORT_2))
        self.page.zoom_with_wheel(x, y, -200)
        self.page.zoom_with_wheel(x, y, -200)
        first, last = self.page.vlans_in_view()
        self.assertTrue(200 < first < 1200 < last < 2000, (first, last))
        self.assertAlmostEqual(self.page.point_of(self.claim("east", 1000, PORT_2))[0], x, delta=2)
        self.page.drag(-200)
        self.assertGreater(self.page.vlans_in_view()[0], first + 50)
        self.assertTrue(self.page.detail().startswith("Conflicts ("))

    def test_a_link_of_the_text_leads_into_the_drawing(self):
        self.page.type_into("#port-filter", "no such port")
        link = self.page.find("#conflicts a.jump")
        self.page.run("arguments[0].scrollIntoView({block: 'center'})", link)
        link.click()
        self.page.settle()
        self.assertEqual(len(self.page.ports()), 4)
        self.assertEqual(self.page.facts()["Port"], PORT_2)

    def test_the_drawing_is_painted_where_it_is_said_to_be(self):
        image = self.page.screenshot()
        for vpn, vlan, port, colour in (("east", 1000, PORT_2, (0x8f, 0xd0, 0xf5)),
                                        ("1", 0, "gigabit-ethernet-1/1/4", (0xf0, 0xe4, 0x42))):
            x, y = self.page.point_of(self.claim(vpn, vlan, port))
            self.assertEqual(image.getpixel((int(x), int(y))), colour, vpn)

    def test_colours_are_far_apart_for_every_kind_of_colour_vision(self):
        bars = self.page.run("""return ["vpws", "vpls", "member", "uplink", "snooping"].map((kind) => {
            const box = document.querySelector(`.legend .${kind}.unchanged .bar`).getBoundingClientRect();
            return [Math.round(box.left) + 2, Math.round(box.top) + 2]; })""")
        for vision in ("none", "deuteranopia", "protanopia", "tritanopia"):
            self.driver.execute_cdp_cmd("Emulation.setEmulatedVisionDeficiency", {"type": vision})
            image = self.page.screenshot()
            colours = [cie_lab(image.getpixel(tuple(place))) for place in bars]
            for a, b in itertools.combinations(colours, 2):
                self.assertGreater(sum((p - q) ** 2 for p, q in zip(a, b)) ** 0.5, 20, vision)
        self.driver.execute_cdp_cmd("Emulation.setEmulatedVisionDeficiency", {"type": "none"})

    def test_what_is_done_to_a_claim_shows_in_its_outline_too(self):
        outlines = self.page.run("""const bars = document.querySelectorAll(".legend .within.vpws .bar:not(.head)");
            return [...bars].map((bar) => {
            const style = getComputedStyle(bar);
            return [style.stroke, style.strokeWidth, style.strokeDasharray, style.fill].join(" "); });""")
        self.assertEqual(len(outlines), 7)
        self.assertEqual(len(set(outlines)), 7)

    def test_dark_is_dark(self):
        for scheme, is_dark in (("dark", True), ("light", False)):
            features = [{"name": "prefers-color-scheme", "value": scheme}]
            self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": features})
            self.page.settle()
            image = self.page.screenshot()
            x, y = self.page.point_of(self.claim("trunk", 0, "gigabit-ethernet-1/1/4"))
            self.assertEqual(max(image.getpixel((4, 4))) < 64, is_dark)
            self.assertEqual(max(image.getpixel((int(x), int(y) + 90))) < 64, is_dark)

    def test_on_paper_the_summary_and_the_whole_picture_fit(self):
        paper = {"width": 1000, "height": 700, "deviceScaleFactor": 1, "mobile": False}
        self.page.click("#zoom-in")
        self.page.run("window.dispatchEvent(new Event('beforeprint'))")
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", paper)
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": "print"})
        width = self.page.run("return [document.documentElement.scrollWidth, window.innerWidth]")
        shown = [self.page.find(selector).is_displayed() for selector in (".tools", "#map", "#paper svg", ".conflict")]
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": ""})
        self.driver.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
        self.assertLessEqual(width[0], width[1])
        self.assertEqual(shown, [False, False, True, True])

    def test_without_scripts_there_are_the_picture_and_the_tables(self):
        self.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": True})
        self.driver.get(self.page.url)
        shown = [self.page.find(selector).is_displayed() for selector in ("#live", "#paper svg", "#claim-0", ".conflict")]
        self.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": False})
        self.assertEqual(shown, [False, True, True, True])


class TwentyThousandClaims(WholePage, PageTest):
    filtered = [("#vpn-filter", "customer-10003", "1 of 19,967 claims on 1 of 64 ports")]
    least_in_conflicts = 2
    parties = [(1, ["vpn new-0", "vpn customer-0"])]

    @classmethod
    def setUpClass(cls):
        commit = pathlib.Path(cls.folder.name, "large")
        commits.write_dense(commit, 64, 20000, 1)
        cls.file = cls.draw(commit, "--budget", "200")

    def test_time_between_frames_is_reported(self):
        steps = {"zoom": "view.zoomBy(i < 30 ? 1.2 : 1 / 1.2)",
                 "move": "if (i === 0) view.zoomBy(6); view.frame.scrollLeft += 12",
                 "scroll": "if (i === 0) view.showAll(); view.frame.scrollTop += 40"}
        for name, step in steps.items():
            times = sorted(self.page.frames(step))
            print(f"{name}: {times[len(times) // 2]:.1f} ms between frames, at most {times[-1]:.1f} ms, of {len(times)}")
            self.assertEqual(len(times), 60)


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
        holders = set(page.texts("#ports tbody th"))
        self.assertLessEqual({f"vpls-group {name} vpn {name}" for name in names}, holders)
        self.assertTrue(any(names[0] in message for message in page.texts("#conflicts .message")))
        page.click_at(*page.point_of(0))
        self.assertIn(page.facts()["Claimed by"], holders)
        self.assertLessEqual(set(names), {name for pair in page.run(
            "return model.claims.map(({group, vpn}) => [group, vpn])") for name in pair})
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
