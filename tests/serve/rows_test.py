"""What tells a NETCONF agent from a toy, a row each."""
import unittest

from lxml import etree

from served_element import BASE, Client, Element, edit_between, example, main

NOTIFICATION = "urn:ietf:params:xml:ns:netconf:notification:1.0"
COMMITS = example("access-two-vpns-two-vlans")  # accepted
CONFLICT = example("access-two-vpns-one-vlan")  # rejected by the library, the same running configuration
CANDIDATE = "<{0}><target><candidate/></target></{0}>"
LOCK, UNLOCK = CANDIDATE.format("lock"), CANDIDATE.format("unlock")
VALIDATE = "<validate><source><candidate/></source></validate>"
ACCEPTED = edit_between(COMMITS / "running.xml", COMMITS / "candidate.xml")
REJECTED = edit_between(CONFLICT / "running.xml", CONFLICT / "candidate.xml")


def one_vlan(number):
    """An edit that the library accepts at any time."""
    return (f'<config><config xmlns="urn:element:base"><vlan><id>{number}</id></vlan></config></config>')


class Rows(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.element = Element(COMMITS)
        cls.listener = Client(cls.element)
        assert cls.listener.ask(f"<create-subscription xmlns='{NOTIFICATION}'/>").is_ok

    @classmethod
    def tearDownClass(cls):
        cls.listener.close()
        cls.element.__exit__()

    def setUp(self):
        """Every row begins with the same running configuration and no edits."""
        self.clients = []
        self.a, self.b = self.client(), self.client()
        self.a.discard()
        self.begin = self.a.running().data()

    def tearDown(self):
        cleaner = self.client()
        for client in self.clients[:-1]:
            self.assert_ok(client.ask("<close-session/>"))
            client.close()
        self.assert_ok(cleaner.discard())
        undo = "<config><config xmlns='urn:element:base' xmlns:nc='{0}' nc:operation='remove'/></config>".format(BASE)
        self.assert_ok(cleaner.edit(undo))
        self.assert_ok(cleaner.commit())
        self.assertEqual(cleaner.running().data(), self.begin)
        cleaner.close()

    def client(self, version="1.1"):
        client = Client(self.element, version)
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

    def candidate(self, client):
        return client.ask("<get-config><source><candidate/></source></get-config>").data()

    def assert_no_edits(self, client):
        self.assertEqual(self.candidate(client), client.running().data())

    def has_vlan(self, client, number):
        return f"<id>{number}</id>".encode() in client.running().data()

    def test_01_what_ends_a_lock_discards_the_edits(self):
        def killed(client):
            self.assert_ok(self.b.ask(f"<kill-session><session-id>{client.id}</session-id></kill-session>"))
            self.close(client)
        for end in (lambda client: self.assert_ok(client.ask(UNLOCK)), self.close, killed):
            client = self.client()
            self.assert_ok(client.ask(LOCK))
            self.assert_ok(client.edit(one_vlan(10)))
            end(client)
            self.assert_ok(self.b.ask(LOCK))
            self.assert_no_edits(self.b)
            self.assert_ok(self.b.ask(UNLOCK))

    def test_02_a_candidate_with_edits_cannot_be_locked(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_error(self.b.ask(LOCK), "resource-denied")
        self.assert_ok(self.a.discard())
        self.assert_ok(self.b.ask(LOCK))
        error = self.assert_error(self.a.ask(LOCK), "lock-denied")
        self.assertEqual(error.xml.findtext(f".//{{{BASE}}}session-id"), str(self.b.id))

    def test_03_a_commit_under_a_foreign_lock_is_refused(self):
        self.assert_ok(self.a.ask(LOCK))
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
        self.assert_error(self.a.commit("<confirmed/><confirm-timeout>600</confirm-timeout>"), "operation-failed")
        self.assert_error(self.a.ask("<cancel-commit/>"), "operation-failed")
        self.assert_ok(self.a.discard())
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit())
        self.close(self.a)
        self.assertTrue(self.has_vlan(self.b, 10))

    def test_06_a_further_confirmed_commit_keeps_the_first_backup(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit("<confirmed/>"))
        self.assert_ok(self.a.edit(one_vlan(11)))
        self.assert_ok(self.a.commit("<confirmed/>"))
        self.assertTrue(self.has_vlan(self.b, 11))
        self.assert_ok(self.a.ask("<cancel-commit/>"))
        self.assertEqual(self.b.running().data(), self.begin)

    def test_07_what_is_not_confirmed_is_rolled_back_whatever_is_asked_meanwhile(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit("<confirmed/><confirm-timeout>1</confirm-timeout>"))
        self.assertTrue(self.has_vlan(self.a, 10))
        self.wait_for("netconf-confirmed-commit", confirm_event="timeout")
        self.assertFalse(self.has_vlan(self.a, 10))
        self.assertEqual(self.b.running().data(), self.begin)
        self.assert_ok(self.a.discard())
        self.assert_ok(self.a.edit(one_vlan(10)))
        self.assert_ok(self.a.commit("<confirmed/><confirm-timeout>600</confirm-timeout>"))
        self.close(self.a)
        self.assertFalse(self.has_vlan(self.b, 10))

    def test_08_another_session_confirms_or_cancels_by_name(self):
        persist = "<confirmed/><persist>night</persist>"
        for end in "<commit><persist-id>night</persist-id></commit>", "<cancel-commit><persist-id>night</persist-id></cancel-commit>":
            client = self.client()
            self.assert_ok(client.edit(one_vlan(10) if "cancel" not in end else one_vlan(11)))
            self.assert_ok(client.commit(persist))
            self.close(client)
            self.assert_error(self.b.ask("<commit><persist-id>day</persist-id></commit>"), "invalid-value")
            self.assert_ok(self.b.ask(end))
        self.assertTrue(self.has_vlan(self.b, 10))
        self.assertFalse(self.has_vlan(self.b, 11))

    def test_09_the_candidate_takes_what_only_a_commit_may_refuse(self):
        self.assert_ok(self.a.edit(REJECTED))
        incomplete = ("<config><config xmlns='urn:element:base'><l3-interface><name>vlan10</name></l3-interface>"
                      "</config></config>")
        self.assert_ok(self.a.edit(incomplete, "<test-option>set</test-option>"))

    def test_10_an_edit_is_tested_before_it_is_made(self):
        outside = one_vlan(5000)
        before = self.candidate(self.a)
        self.assert_error(self.a.edit(outside), "invalid-value")
        self.assertEqual(self.candidate(self.a), before)
        self.assert_ok(self.a.edit(one_vlan(10), "<test-option>test-only</test-option>"))
        self.assertEqual(self.candidate(self.a), before)

    def test_11_validate_changes_nothing_and_loses_nothing(self):
        self.assert_ok(self.a.edit(one_vlan(10)))
        before = self.candidate(self.a)
        self.assert_ok(self.a.ask(VALIDATE))
        self.assertEqual(self.candidate(self.a), before)
        self.assertEqual(self.a.running().data(), self.begin)
        self.assert_ok(self.a.commit())
        self.assertTrue(self.has_vlan(self.b, 10))
        self.assert_ok(self.a.ask("<validate><source><running/></source></validate>"))
        self.assert_ok(self.a.ask(f"<validate><source>{one_vlan(12)}</source></validate>"))
        self.assert_error(self.a.ask("<validate><source><startup/></source></validate>"), "invalid-value")
        self.assertFalse(self.has_vlan(self.b, 12))

    def test_12_an_error_carries_its_full_text(self):
        self.assert_ok(self.a.edit(REJECTED))
        for operation in VALIDATE, "<commit/>":
            error = self.assert_error(self.a.ask(operation), "operation-failed")
            self.assertEqual(error.type, "application")
            self.assertEqual(error.severity, "error")
            self.assertEqual(error.app_tag, "access-same-dot1q")
            self.assertEqual(
                error.message,
                "vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same dot1q "
                "on interface gigabit-ethernet-1/1/1")
            path = error.xml.find(f"{{{BASE}}}error-path")
            found = self.a.ask(f"<get-config><source><candidate/></source></get-config>").xml.xpath(
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
        copy = "<copy-config><target><{}/></target><source><{}/></source></copy-config>"
        self.assert_ok(self.a.ask(copy.format("candidate", "running")))
        self.assert_no_edits(self.a)
        self.assertTrue(self.a.ask(copy.format("running", "candidate")).errors)
        self.assertTrue(self.a.ask(copy.format("startup", "running")).errors)
        self.assertTrue(self.a.edit(one_vlan(10).replace("candidate", "running")).is_ok)
        self.assert_ok(self.a.discard())

    def test_14_messages_in_a_row_torn_and_huge(self):
        many = 20
        self.a.write(b"".join(self.a.framed(self.a.message(VALIDATE)) for _ in range(many)))
        replies = [self.a.read() for _ in range(many)]
        self.assertEqual([reply.get("message-id") for reply in replies], [str(i + 3) for i in range(many)])
        message = self.a.message("<get-config><source><running/></source></get-config>")
        for byte in range(len(message)):
            self.a.write(b"\n#1\n" + message[byte:byte + 1])
        self.a.write(b"\n##\n")
        self.assertIsNotNone(self.a.read().find(f"{{{BASE}}}data"))
        old = self.client("1.0")
        self.assert_ok(old.ask(VALIDATE))
        huge = one_vlan(10).replace("<vlan>", f"<!--{'x' * 3_000_000}--><vlan>")
        self.assert_ok(self.a.edit(huge))
        self.assert_ok(self.a.commit())
        self.assertTrue(self.has_vlan(old, 10))


if __name__ == "__main__":
    main()
