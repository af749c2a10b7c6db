"""get returns what the element's applications derive from running, as vpnval show prints it."""
import collections
import json
import re
import subprocess
import unittest

from served_element import VPNVAL, Client, Element, configuration_of, edit_between, etree, example, main

FOLDER = example("access-two-vpns-two-vlans")
GET = "<get><filter type='subtree'>{}</filter></get>"


def shown(*options):
    """Paths of the leafs and entries that are derived, in the order of a walk, and their values."""
    output = subprocess.run([VPNVAL, "show", FOLDER, "--format=json", *map(str, options)], check=True, capture_output=True, text=True)
    return [(node["path"], node.get("value", "")) for node in json.loads(output.stdout)["nodes"]]


class Derived(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.element = Element(FOLDER)
        cls.client = Client(cls.element)

    @classmethod
    def tearDownClass(cls):
        cls.client.close()
        cls.element.__exit__()

    def got(self):
        """The derived trees that get returns, by name; an empty one for what is not there."""
        tops = sorted({path.split("/")[1] for path, _ in self.shown()})
        self.assertIn("internal", tops)
        reply = self.client.ask("<get/>")
        self.assertFalse(reply.errors, reply)
        data = reply.xml[0]
        return collections.defaultdict(lambda: etree.Element("none"), {top: data.find(f"{{*}}{top}") for top in tops})

    def shown(self):
        running = self.element.scratch / "running.xml"
        running.write_bytes(self.client.running().data())
        try:
            return shown("--element", FOLDER / "element.json", "--running", running, "--candidate", running)
        finally:
            running.unlink()

    def find(self, top, path):
        """The node at the path of vpnval, whose list entries have their keys first."""
        node = top
        for step in re.findall(r"/([^/{]+(?:\{[^}]*\})?)", path)[1:]:
            name, _, keys = step.rstrip("}").partition("{")
            wanted = keys.split()
            node = next((child for child in node.iterfind(f"{{*}}{name}")
                         if [leaf.text for leaf in child[:len(wanted)]] == wanted), None)
            if node is None:
                return None
        return node

    def require_shown(self):
        nodes = self.shown()
        self.assertGreater(len(nodes), 5)
        tops = self.got()
        for path, value in nodes:
            found = self.find(tops[path.split("/")[1]], path)
            self.assertIsNotNone(found, path)
            if value:
                self.assertEqual(found.text, value.split(" (")[0], path)
        return nodes

    def test_it_is_that_of_running_before_and_after_a_commit(self):
        before = self.require_shown()
        self.assertTrue(self.client.edit(edit_between(configuration_of(FOLDER, "running"), configuration_of(FOLDER, "candidate"))).is_ok)
        self.assertEqual(self.require_shown(), before)
        self.assertTrue(self.client.commit(confirmed=True).is_ok)
        added = {path for path, _ in self.require_shown()} - {path for path, _ in before}
        self.assertTrue(added)
        self.assertTrue(self.client.cancel().is_ok)
        self.assertEqual(self.require_shown(), before)
        tops = self.got()
        for path in added:
            self.assertIsNone(self.find(tops[path.split("/")[1]], path), path)

    def test_a_filter_and_get_config_do_without(self):
        reply = self.client.ask(GET.format("<config xmlns='urn:element:base'/>"))
        self.assertNotIn(b"internal", etree.tostring(reply.xml))
        self.assertNotIn(b"internal", self.client.running().data())
        reply = self.client.ask(GET.format("<internal xmlns='urn:element:internal'/>"))
        self.assertIsNotNone(reply.xml[0].find("{urn:element:internal}internal"))


if __name__ == "__main__":
    main()
