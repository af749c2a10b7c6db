"""What tells a NETCONF agent from a toy, a row each, by messages written by hand and by ncclient."""
import subprocess
import unittest

from lxml import etree

from ncclient_session import NcclientSession
from served_element import BASE, LONGEST, Client, Element, Reply, edit_between, example, main

NOTIFICATION = "urn:ietf:params:xml:ns:netconf:notification:1.0"
COMMITS = example("access-two-vpns-two-vlans")  # accepted
CONFLICT = example("access-two-vpns-one-vlan")  # rejected by the library, the same running configuration
ACCEPTED = edit_between(COMMITS / "running.xml", COMMITS / "candidate.xml")
REJECTED = edit_between(CONFLICT / "running.xml", CONFLICT / "candidate.xml")


def one_vlan(number):
    """An edit that the library accepts at any time."""
    return (f'<config><config xmlns="urn:element:base"><vlan><id>{number}</id></vlan></config></config>')


class Rows:
    """The rows. Session is the class of the clients."""

    @classmethod
    def setUpClass(cls):
        cls.element = Element(COMMITS)
        cls.listener = Client(cls.element)
        assert cls.listener.ask(f"<create-subscription xmlns='{NOTIFICATION}'/>").is_ok
        # The other session, which no row ends.
        cls.b = cls.Session(cls.element)

    @classmethod
    def tearDownClass(cls):
        cls.b.close()
        cls.listener.close()
        cls.element.__exit__()

    def setUp(self):
        """Every row begins with the same running configuration and no edits."""
        self.clients = []
        self.a = self.client()
        self.begin = self.b.running().data()

    def tearDown(self):
        self.b.unlock()
        for client in self.clients:
            self.assert_ok(client.end())
        self.assert_ok(self.b.discard())
        undo = "<config><config xmlns='urn:element:base' xmlns:nc='{0}' nc:operation='remove'/></config>".format(BASE)
        self.assert_ok(self.b.edit(undo))
        self.assert_ok(self.b.commit())
        self.assertEqual(self.b.running().data(), self.begin)

    def client(self):
        client = self.Session(self.element)
        self.clients.append(client)
        return client

    def wait_for(self, event, **content):
        """Waits for a notification of the agent. What is asked without a pause would put off what it has to do itself."""
        while True:
            found = self.listener.read().find(f"{{*}}{event}")
            leafs = {} if found is None else {etree.QName(leaf).localname.replace("-", "_"): leaf.text for leaf in found}
            if found is not None and content.items() <= leafs.items():
                return

    def close(self, client):
        """Ends the session as a broken connection does, and waits until the agent knows."""
        self.clients.remove(client)
        client.close()
        self.wait_for("netconf-session-end", session_id=str(client.id))

    def assert_ok(self, reply):
        self.assertTrue(reply.is_ok, reply)

    def assert_error(self, reply, tag):
        self.assertEqual([error.tag for error in reply.errors], [tag], reply)
        return reply.errors[0]

    def assert_no_edits(self, client):
        self.assertEqual(client.candidate().data(), client.running().data())

    def has_vlan(self, client, number):
        return f"<id>{number}</id>".encode() in client.running().data()

    def test_01_what_ends_a_lock_discards_the_edits(self):
        def killed(client):
            self.assert_ok(self.b.kill(client.id))
            self.close(client)
        for end in (lambda client: self.assert_ok(client.unlock()), self.close, killed):
            client = self.client()
            self.assert_ok(client.lock())
            self.assert_ok(client.edit(one_vlan(10)))
            end(client)
            self.assert_ok(self.b.lock())
            self.assert_no_edits(self.b)
            self.assert_ok(self.b.unlock())

    def test_02_a_candidate_with_edits_cannot_be_locked(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_error(self.b.lock(), "resource-denied")
        self.assert_ok(self.a.discard())
        self.assert_ok(self.b.lock())
        error = self.assert_error(self.a.lock(), "lock-denied")
        self.assertEqual(error.xml.findtext(f".//{{{BASE}}}session-id"), str(self.b.id))

    def test_03_a_commit_under_a_foreign_lock_is_refused(self):
        self.assert_ok(self.a.lock())
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_error(self.b.commit(), "in-use")
        self.assert_error(self.b.edit(one_vlan(11)), "in-use")
        self.assertFalse(self.has_vlan(self.b, 10))
        self.assert_ok(self.a.commit())
        self.assertTrue(self.has_vlan(self.b, 10))

    def test_04_a_rejected_commit_is_cured_by_discarding(self):
        self.assert_ok(self.a.edit(REJECTED))
        self.assert_error(self.a.commit(), "operation-failed")
        self.assertEqual(self.a.running().data(), self.begin)
        self.assert_error(self.b.commit(), "operation-failed")
        self.assert_ok(self.a.discard())
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit())
        self.assertTrue(self.has_vlan(self.b, 10))

    def test_05_a_rejected_confirmed_commit_leaves_nothing_to_confirm(self):
        self.assert_ok(self.a.edit(REJECTED))
        self.assert_error(self.a.commit(confirmed=True, timeout=600), "operation-failed")
        self.assert_error(self.a.cancel(), "operation-failed")
        self.assert_ok(self.a.discard())
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit())
        self.close(self.a)
        self.assertTrue(self.has_vlan(self.b, 10))

    def test_06_a_further_confirmed_commit_keeps_the_first_backup(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit(confirmed=True))
        self.assert_ok(self.a.edit(one_vlan(11)))
        self.assert_ok(self.a.commit(confirmed=True))
        self.assertTrue(self.has_vlan(self.b, 11))
        self.assert_ok(self.a.cancel())
        self.assertEqual(self.b.running().data(), self.begin)

    def test_07_what_is_not_confirmed_is_rolled_back_whatever_is_asked_meanwhile(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit(confirmed=True, timeout=1))
        self.assertTrue(self.has_vlan(self.a, 10))
        self.wait_for("netconf-confirmed-commit", confirm_event="timeout")
        self.assertFalse(self.has_vlan(self.a, 10))
        self.assertEqual(self.b.running().data(), self.begin)
        self.assert_ok(self.a.discard())
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit(confirmed=True, timeout=600))
        self.close(self.a)
        self.assertFalse(self.has_vlan(self.b, 10))

    def test_08_another_session_confirms_or_cancels_by_name(self):
        for number, end in (10, lambda: self.b.commit(persist_id="night")), (11, lambda: self.b.cancel("night")):
            client = self.client()
            self.assert_ok(client.edit(one_vlan(number)))
            self.assert_ok(client.commit(confirmed=True, persist="night"))
            self.close(client)
            self.assert_error(self.b.commit(persist_id="day"), "invalid-value")
            self.assert_ok(end())
        self.assertTrue(self.has_vlan(self.b, 10))
        self.assertFalse(self.has_vlan(self.b, 11))

    def test_09_the_candidate_takes_what_only_a_commit_may_refuse(self):
        self.assert_ok(self.a.edit(REJECTED))
        incomplete = ("<config><config xmlns='urn:element:base'><l3-interface><name>vlan10</name></l3-interface>"
                      "</config></config>")
        self.assert_ok(self.a.edit(incomplete, test_option="set"))

    def test_10_an_edit_is_tested_before_it_is_made(self):
        outside = one_vlan(5000)
        before = self.a.candidate().data()
        self.assert_error(self.a.edit(outside), "invalid-value")
        self.assertEqual(self.a.candidate().data(), before)
        self.assert_ok(self.a.edit(one_vlan(10), test_option="test-only"))
        self.assertEqual(self.a.candidate().data(), before)

    def test_11_validate_changes_nothing_and_loses_nothing(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        before = self.a.candidate().data()
        self.assert_ok(self.a.validate())
        self.assertEqual(self.a.candidate().data(), before)
        self.assertEqual(self.a.running().data(), self.begin)
        self.assert_ok(self.a.commit())
        self.assertTrue(self.has_vlan(self.b, 10))
        self.assert_ok(self.a.validate("running"))
        self.assert_ok(self.a.validate(one_vlan(12)))
        self.assert_error(self.a.validate("startup"), "invalid-value")
        self.assertFalse(self.has_vlan(self.b, 12))

    def test_12_an_error_carries_its_full_text(self):
        self.assert_ok(self.a.edit(REJECTED))
        for operation in self.a.validate, self.a.commit:
            error = self.assert_error(operation(), "operation-failed")
            self.assertEqual(error.type, "application")
            self.assertEqual(error.severity, "error")
            self.assertEqual(error.app_tag, "access-same-dot1q")
            self.assertEqual(
                error.message,
                "vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same dot1q "
                "on interface gigabit-ethernet-1/1/1")
            path = error.xml.find(f"{{{BASE}}}error-path")
            found = self.a.candidate().xml.xpath(
                "nc:data" + path.text, namespaces={"nc": BASE, **{p: n for p, n in path.nsmap.items() if p}})
            self.assertEqual([node.findtext("{*}name") for node in found], ["gigabit-ethernet-1/1/1"])
            finding, = error.findings()
            self.assertEqual(finding["rule"], ["access-same-dot1q"])
            self.assertEqual(finding["validation-point"], ["vpn_access_valp"])
            self.assertEqual([party["status"] for party in finding["party"]], [["added"], ["unchanged"]])
            self.assertEqual(finding["party"][0]["detail"][0]["new"], ["210"])
            self.assertEqual(finding["advice"][0]["alternative"][0]["part"][0]["status"], ["added"])
            self.assertEqual(finding["repair"][0]["kind"], ["free-vlans"])
            self.assertIn("211", finding["repair"][0]["value"])

    def test_13_copies(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.copy("candidate", "running"))
        self.assert_no_edits(self.a)
        self.assertTrue(self.a.copy("running", "candidate").errors)
        self.assertTrue(self.a.copy("startup", "running").errors)

    def test_14_messages_in_a_row_and_huge(self):
        for reply in self.a.in_a_row(20):
            self.assert_ok(reply)
        huge = one_vlan(10).replace("<vlan>", f"<!--{'x' * 3_000_000}--><vlan>")
        self.assert_ok(self.a.edit(huge))
        self.assert_ok(self.a.commit())
        self.assertTrue(self.has_vlan(self.b, 10))


class RowsByHand(Rows, unittest.TestCase):
    Session = Client

    def test_14_messages_torn_or_in_one_piece_with_the_hello_and_of_the_old_version(self):
        """Neither can be had of ncclient: it writes its messages whole, and speaks version 1.1 to who does."""
        message = self.a.message("<get-config><source><running/></source></get-config>")
        for byte in range(len(message)):
            self.a.write(b"\n#1\n" + message[byte:byte + 1])
        self.a.write(b"\n##\n")
        self.assertIsNotNone(self.a.read().find(f"{{{BASE}}}data"))
        for version in "1.0", "1.1":
            hasty = Client(self.element, version, first="<discard-changes/>")
            self.assert_ok(Reply(hasty.read()))
            self.assert_ok(hasty.end())
        old = Client(self.element, "1.0")
        self.assert_ok(old.validate())
        self.assert_ok(old.end())


    def test_14_a_script_behind_ssh_that_waits_for_nothing(self):
        hello = (f'<hello xmlns="{BASE}"><capabilities><capability>urn:ietf:params:netconf:base:1.0</capability></capabilities>'
                 "</hello>")
        requests = [f'<rpc message-id="{number}" xmlns="{BASE}">{operation}</rpc>' for number, operation in
                    enumerate(["<discard-changes/>", f"<edit-config><target><candidate/></target>{one_vlan(10)}</edit-config>",
                               "<commit/>", "<get-config><source><running/></source></get-config>"])]
        script = "".join(message + "]]>]]>" for message in [hello, *requests]).encode()
        replies = subprocess.run(self.element.ssh(), input=script, capture_output=True, timeout=LONGEST).stdout.split(b"]]>]]>")
        self.assertEqual([b"<ok/>" in reply for reply in replies[1:4]], [True] * 3, replies)
        self.assertIn(b"<id>10</id>", replies[4])


class RowsOverNcclient(Rows, unittest.TestCase):
    Session = NcclientSession


if __name__ == "__main__":
    main()
