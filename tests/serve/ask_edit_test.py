"""vpnval serve --ask edit: the library is asked at each edit, and what it rejects leaves the candidate as it was."""
import unittest

from served_element import Client, Element, edit_between, example, main

FOLDER = example("access-two-vpns-one-vlan")
REJECTED = edit_between(FOLDER / "running.xml", FOLDER / "candidate.xml")
VLAN = "<config><config xmlns='urn:element:base'><vlan><id>{}</id></vlan></config></config>"


class AskEdit(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.element = Element(FOLDER, "--ask=edit")
        cls.client = Client(cls.element)

    @classmethod
    def tearDownClass(cls):
        cls.client.close()
        cls.element.__exit__()

    def setUp(self):
        self.assertTrue(self.client.discard().is_ok)
        self.begin = self.client.running().data()

    def require_rejected(self, reply):
        error, = reply.errors
        self.assertEqual((error.tag, error.app_tag, error.severity), ("operation-failed", "access-same-dot1q", "error"))
        self.assertEqual([finding["rule"] for finding in error.findings()], [["access-same-dot1q"]])
        self.assertIn("south", error.path)

    def test_an_edit_that_is_rejected_leaves_the_candidate_as_it_was(self):
        for _ in range(3):
            self.require_rejected(self.client.edit(REJECTED))
            self.assertEqual(self.client.candidate().data(), self.begin)
        # Nothing is left to commit, or in the way of a lock.
        self.assertTrue(self.client.lock().is_ok)
        self.assertTrue(self.client.unlock().is_ok)
        self.assertTrue(self.client.commit().is_ok)
        self.assertEqual(self.client.running().data(), self.begin)

    def test_edits_before_and_after_it_stay(self):
        self.assertTrue(self.client.edit(VLAN.format(10)).is_ok)
        self.require_rejected(self.client.edit(REJECTED))
        self.assertTrue(self.client.edit(VLAN.format(11)).is_ok)
        candidate = self.client.candidate().data()
        self.assertTrue(self.client.validate().is_ok)
        self.assertTrue(self.client.commit().is_ok)
        self.assertEqual(self.client.running().data(), candidate)
        for number in b"10", b"11":
            self.assertIn(b"<id>%s</id>" % number, candidate)

    def test_an_edit_before_it_alone_is_committed(self):
        self.assertTrue(self.client.edit(VLAN.format(20)).is_ok)
        self.require_rejected(self.client.edit(REJECTED))
        self.assertTrue(self.client.commit().is_ok)
        self.assertIn(b"<id>20</id>", self.client.running().data())

    def test_a_repaired_edit_is_taken(self):
        self.require_rejected(self.client.edit(REJECTED))
        self.assertTrue(self.client.edit(REJECTED.replace("<dot1q>210<", "<dot1q>211<")).is_ok)
        self.assertTrue(self.client.commit().is_ok)
        self.assertIn(b"<dot1q>211</dot1q>", self.client.running().data())
        undo = REJECTED.replace('operation="create"', 'operation="delete"')
        self.assertTrue(self.client.edit(undo).is_ok)
        self.assertTrue(self.client.commit().is_ok)


if __name__ == "__main__":
    main()
