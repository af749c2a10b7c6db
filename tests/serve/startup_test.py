"""vpnval serve --with-startup: the startup configuration, and what an element begins with when it is served again."""
import pathlib
import shutil
import tempfile
import unittest

from served_element import Client, Element, etree, example, main

FOLDER = example("access-two-vpns-two-vlans")
VLAN = "<config><config xmlns='urn:element:base'><vlan><id>{}</id></vlan></config></config>"
GET = "<get-config><source><startup/></source></get-config>"
DELETE = "<delete-config><target><startup/></target></delete-config>"


def has_vlan(reply, number):
    return b"<id>%d</id>" % number in etree.tostring(reply.xml)


class Startup(unittest.TestCase):
    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)

    def commit(self, client, number):
        self.assertTrue(client.edit(VLAN.format(number)).is_ok)
        self.assertTrue(client.commit().is_ok)

    def test_an_element_begins_with_its_startup_configuration(self):
        state = self.scratch / "state"
        with Element(FOLDER, "--with-startup", state=state) as element:
            client = Client(element)
            self.assertTrue(any(":startup:1.0" in text for text in client.hello.itertext()))
            self.commit(client, 10)
            self.assertFalse(has_vlan(client.ask(GET), 10))
            self.assertTrue(client.copy("startup", "running").is_ok)
            self.assertIn("<id>10</id>", (state / "startup.xml").read_text())
            self.commit(client, 11)
            self.assertFalse(has_vlan(client.ask(GET), 11))
            self.assertTrue(client.copy("candidate", "startup").is_ok)
            self.assertFalse(has_vlan(client.candidate(), 11))
            self.assertTrue(client.discard().is_ok)
        with Element(FOLDER, "--with-startup", state=state) as element:
            client = Client(element)
            self.assertTrue(has_vlan(client.running(), 10) and has_vlan(client.ask(GET), 10))
            self.assertFalse(has_vlan(client.running(), 11))
            self.assertTrue(client.ask(DELETE).is_ok)
            self.assertFalse((state / "startup.xml").exists())
            self.assertTrue(has_vlan(client.running(), 10))
        with Element(FOLDER, "--with-startup", state=state) as element:
            self.assertFalse(has_vlan(Client(element).running(), 10))
        # Without the option, what was running last is what it begins with.
        with Element(FOLDER, state=state) as element:
            self.assertTrue(has_vlan(Client(element).running(), 11))

    def test_an_element_without_configuration_may_have_one(self):
        shutil.copy(FOLDER / "element.json", self.scratch)
        (self.scratch / "running.json").write_text("{}")
        with Element(self.scratch, "--with-startup") as element:
            client = Client(element)
            self.commit(client, 10)
            self.assertTrue(client.copy("startup", "running").is_ok)
            self.assertTrue(has_vlan(client.ask(GET), 10))


if __name__ == "__main__":
    main()
