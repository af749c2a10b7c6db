"""vpnval serve as a process: what it refuses, what it keeps, and what it leaves."""
import fcntl
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import tempfile
import unittest

from served_element import (AGENT, BASE, BUDGET, VPNVAL, Client, Element, check, edit_between, example, schema_faults, main,
                            verdict_of)

FOLDER = example("access-two-vpns-two-vlans")
ACCEPTED = edit_between(FOLDER / "running.xml", FOLDER / "candidate.xml")
NOTIFICATION = "urn:ietf:params:xml:ns:netconf:notification:1.0"
REMOVED_VLAN = f"<vlan xmlns:nc='{BASE}' nc:operation='delete'>"
VLAN = "<config><config xmlns='urn:element:base'><vlan><id>{}</id></vlan></config></config>"


class Service(unittest.TestCase):
    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        subprocess.run(["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", self.scratch / "key"], check=True)

    def require_refusal(self, error, *options, status=76, folder=FOLDER, **environment):
        keys = [] if "--authorized-keys" in options else ["--authorized-keys", self.scratch / "key.pub"]
        command = [VPNVAL, "serve", folder, *keys, *options]
        (self.scratch / "tmp").mkdir(exist_ok=True)
        surroundings = {**os.environ, "TMPDIR": str(self.scratch / "tmp"), **environment}
        result = subprocess.run(command, capture_output=True, text=True, env=surroundings)
        self.assertEqual((result.stderr, result.stdout, result.returncode), (f"vpnval: {error}\n", "", status))
        self.assertEqual(list((self.scratch / "tmp").iterdir()), [])

    def test_what_cannot_be_served_is_told_in_a_line(self):
        with socket.socket() as taken:
            taken.bind(("127.0.0.1", 0))
            taken.listen()
            port = taken.getsockname()[1]
            self.require_refusal(f"127.0.0.1 port {port}: cannot be listened on: Address already in use",
                                 "--listen", f"127.0.0.1:{port}")
        self.require_refusal("\"here\" is no place to listen; expected ADDRESS:PORT, a numeric address and a port up to 65535",
                             "--listen", "here")
        self.require_refusal("192.0.2.1 port 0: cannot be listened on: Cannot assign requested address",
                             "--listen", "192.0.2.1")
        keys = self.scratch / "no-keys"
        self.require_refusal(f"{keys}: cannot be read; expected a file of keys", "--authorized-keys", keys)

    def test_a_folder_that_is_broken_is_told_in_a_line(self):
        folder = self.scratch / "folder"
        shutil.copytree(FOLDER, folder)
        (folder / "running.xml").write_text("<config>")
        self.require_refusal(f"{folder}/running.xml:1: the text ends inside an element; expected </config>",
                             folder=folder, status=65)
        (folder / "element.json").unlink()
        self.require_refusal(f"{folder}/element.json: cannot be read: No such file or directory; expected a readable file",
                             folder=folder, status=66)
        missing = self.scratch / "missing"
        self.require_refusal(f"{missing}: is no directory that can be read", folder=missing, status=66)

    def test_a_state_that_is_served_or_broken_is_told_in_a_line(self):
        state = self.scratch / "state"
        with Element(FOLDER, state=state):
            self.require_refusal(f"{state}: another process serves this state; expected a folder of its own", "--state", state)
        (state / "running.xml").write_text("<config>")
        self.require_refusal(f"{state}/running.xml:1: the text ends inside an element; expected </config>",
                             "--state", state, status=65)

    def test_it_goes_on_where_it_ended(self):
        state = self.scratch / "state"
        with Element(FOLDER, state=state) as element:
            client = Client(element)
            self.assertTrue(client.edit(ACCEPTED).is_ok)
            self.assertTrue(client.commit().is_ok)
            running = client.running().data()
            self.assertTrue(client.edit(VLAN.format(7)).is_ok)
            self.assertTrue(client.commit(confirmed=True, timeout=600).is_ok)
            host_key = (element.runtime() / "sshd/known_hosts").read_text().split()[1:]
        with Element(FOLDER, state=state) as element:
            self.assertEqual(Client(element).running().data(), running)
            self.assertEqual((element.runtime() / "sshd/known_hosts").read_text().split()[1:], host_key)

    def test_an_element_without_configuration_is_served_and_goes_on(self):
        shutil.copy(FOLDER / "element.json", self.scratch)
        (self.scratch / "running.json").write_text("{}")
        state = self.scratch / "state"
        for edit, is_there in (VLAN.format(7), True), (VLAN.format(7).replace("<vlan>", REMOVED_VLAN), False), (VLAN.format(8), True):
            with Element(self.scratch, state=state) as element:
                client = Client(element)
                self.assertTrue(client.edit(edit).is_ok)
                self.assertTrue(client.commit().is_ok)
                self.assertEqual(b"<id>" in client.running().data(), is_there)

    def test_its_death_takes_all_with_it(self):
        state = self.scratch / "state"
        element = Element(FOLDER, state=state)
        client = Client(element)
        self.assertTrue(client.edit(ACCEPTED).is_ok)
        self.assertTrue(client.commit().is_ok)
        element.process.kill()
        with self.assertRaises(EOFError):
            client.read()
        element.process.wait()
        shutil.rmtree(element.scratch)
        with Element(FOLDER, state=state) as again:
            self.assertIn(b"vpws-group", Client(again).running().data())

    def test_an_agent_that_dies_ends_it(self):
        element = Element(FOLDER)
        client = Client(element)
        os.kill(element.agent(), signal.SIGKILL)
        element.process.wait()
        self.assertEqual(element.process.returncode, 76)
        self.assertRegex(element.process.stderr.read(), "^vpnval: netconfd was ended by signal 9: .*\n$")
        with self.assertRaises(EOFError):
            client.read()
        shutil.rmtree(element.scratch)

    def test_a_log_that_nobody_reads_holds_up_nobody(self):
        with Element(FOLDER, log_is_read=False) as element:
            fcntl.fcntl(element.process.stdout, fcntl.F_SETPIPE_SZ, 4096)
            client = Client(element)
            # Each makes the agent write some 300 bytes; the pipes between hold 70,000.
            for number in range(1, 400):
                self.assertTrue(client.edit(VLAN.format(number)).is_ok)
            client.close()

    def test_explain_returns_the_document_of_check(self):
        conflict = example("access-two-vpns-one-vlan")
        with Element(conflict, BUDGET) as element:
            client = Client(element)
            self.assertTrue(client.edit(edit_between(conflict / "running.xml", conflict / "candidate.xml")).is_ok)
            reply = client.ask(f"<explain xmlns='{AGENT}'/>")
            document = verdict_of(reply.xml.findtext(f"{{{AGENT}}}document"))
            expected = check(conflict)
            self.assertEqual(document["decision"], "rejected")
            self.assertEqual(document["points"], expected["points"])
            self.assertEqual(document["findings"][0]["repairs"][0]["values"], expected["findings"][0]["repairs"][0]["values"])


class Warnings(unittest.TestCase):
    """What a session is told of a commit with a warning, and what those who listen are."""

    def commit(self, style):
        """The reply to a commit with a warning, and the finding that a notification told first, if any."""
        folder = example("tls-switched-on")
        expected, = check(folder)["findings"]
        with Element(folder, f"--warnings={style}") as element:
            client, listener = Client(element), Client(element)
            self.assertTrue(listener.ask(f"<create-subscription xmlns='{NOTIFICATION}'/>").is_ok)
            self.assertTrue(client.edit(edit_between(folder / "running.xml", folder / "candidate.xml")).is_ok)
            reply = client.commit()
            self.assertIn(b"transparent-lan-service", client.running().data())
            told = []
            while True:
                message = listener.read()
                warning = message.find(f"{{{AGENT}}}commit-accepted-with-warnings")
                if warning is not None:
                    self.assertEqual(schema_faults(warning, "notif"), "")
                told += [leaf.text for leaf in message.iterfind(f".//{{{AGENT}}}message")]
                if message.find("{*}netconf-config-change") is not None or message.find("{*}sysConfigChange") is not None:
                    return reply, told, expected

    def test_a_session_is_told_by_an_error_of_severity_warning(self):
        reply, told, expected = self.commit("error")
        error, = reply.errors
        self.assertEqual((error.severity, error.app_tag, error.message), ("warning", expected["rule"], expected["message"]))
        self.assertEqual(told, [])

    def test_who_listens_is_told_by_a_notification(self):
        reply, told, expected = self.commit("notify")
        self.assertTrue(reply.is_ok)
        self.assertEqual(told, [expected["message"]])

    def test_or_both(self):
        reply, told, expected = self.commit("both")
        self.assertEqual(len(reply.errors), 1)
        self.assertEqual(told, [expected["message"]])


if __name__ == "__main__":
    main()
