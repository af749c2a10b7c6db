"""What real clients print for a rejection, a warning and several faults, held against files that they made.

RENEW_CLIENTS=1 writes these files anew."""
import itertools
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from served_element import BASE, BUDGET, LONGEST, SOURCE, Client, Element, edit_between, etree, example, main

FOLDER = example("access-two-vpns-one-vlan")
CLIENTS = pathlib.Path(SOURCE) / "tests/serve/clients"
REJECTION = edit_between(FOLDER / "running.xml", FOLDER / "candidate.xml")
GROUP = """<config><mpls xmlns="urn:element:mpls"><l2vpn-config xmlns="urn:element:l2-vpn"><l2vpn>{}
           </l2vpn></l2vpn-config></mpls></config>"""
DOMAIN = GROUP.format(f"""<vpls-group xmlns="urn:element:mpls-l2vpn-vpls"><name>campus</name><vpn><name>data</name>
    <bridge-domain xmlns:nc="{BASE}">{{}}</bridge-domain></vpn></vpls-group>""")
NORTH = "<vpn><name>north</name><neighbor><address>192.0.2.10</address><pw-id>210</pw-id></neighbor></vpn>"
CASES = {
    "rejection": REJECTION,
    "warning": DOMAIN.format('<dot1q nc:operation="delete"/><transparent-lan-service/>'),
    "several": REJECTION.replace("</name>", "</name>" + NORTH, 1),
}
ANSIBLE = shutil.which("ansible-playbook")
UNDO = DOMAIN.format('<dot1q>210</dot1q><transparent-lan-service nc:operation="remove"/>')


def run(command, folder, **variables):
    """What a client prints."""
    environment = {**os.environ, "HOME": str(folder), **variables}
    result = subprocess.run(list(map(str, command)), cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=LONGEST)
    return result.stdout.replace("\r\n", "\n")


class Clients(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.element = Element(FOLDER, BUDGET)
        cls.helper = Client(cls.element)

    @classmethod
    def tearDownClass(cls):
        cls.helper.close()
        cls.element.__exit__()

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        self.begin = self.helper.running().data()

    def tearDown(self):
        self.helper.discard()
        for undo in UNDO, GROUP.format(f'<vpws-group xmlns:nc="{BASE}" nc:operation="remove"><name>branches</name></vpws-group>'):
            self.assertTrue(self.helper.edit(undo).is_ok)
        self.helper.commit()
        self.assertEqual(self.helper.running().data(), self.begin)

    def require_golden(self, client, case, printed):
        file = CLIENTS / f"{case}.{client}.txt"
        if "RENEW_CLIENTS" in os.environ:
            file.write_text(printed)
        self.assertEqual(printed, file.read_text(), file)

    def require_running(self, case):
        """A rejection leaves running as it is, a warning does not."""
        self.assertEqual(b"transparent-lan-service" in self.helper.running().data(), case == "warning")
        self.assertNotIn(b"branches", self.helper.running().data())

    def each_case(self, client, print_case, cases=CASES):
        for case in cases:
            with self.subTest(case):
                self.require_golden(client, case, print_case(CASES[case]))
                self.require_running(case)
                self.tearDown()

    def test_ssh(self):
        def print_case(edit):
            client = Client(self.element, "1.0")
            self.assertTrue(client.edit(edit).is_ok)
            client.send("<commit/>")
            printed = client.until(b"]]>]]>").decode()
            client.close()
            return printed.strip() + "\n"
        self.each_case("ssh", print_case)

    def ncclient(self, edit, raised):
        (self.scratch / "edit.xml").write_text(edit)
        ready = self.element.ready
        return run(["/usr/bin/python3", CLIENTS / "ncclient_commit.py", ready["address"], ready["port"], ready["user"],
                    self.element.key, "edit.xml", raised], self.scratch)

    def test_ncclient(self):
        self.each_case("ncclient", lambda edit: self.ncclient(edit, "all"))

    def test_ncclient_that_raises_errors_alone(self):
        self.each_case("ncclient-errors", lambda edit: self.ncclient(edit, "errors"), ["warning"])

    def yangcli(self, edit):
        """It has no --help for who has no terminal, and takes what stands in a <config>."""
        inside = b"".join(etree.tostring(child) for child in etree.fromstring(edit))
        (self.scratch / "edit.xml").write_bytes(inside)
        ready = self.element.ready
        command = ["yangcli", f"--server={ready['address']}", f"--ncport={ready['port']}", f"--user={ready['user']}",
                   "--password=none", f"--private-key={self.element.key}", f"--public-key={self.element.key}.pub",
                   "--batch-mode", f"--run-script={CLIENTS}/change.yangcli"]
        modules = f"{self.element.runtime()}/agent/yang:/usr/share/yuma/modules"
        printed = run(["script", "-qec", " ".join(command), "/dev/null"], self.scratch, TERM="dumb", YUMA_MODPATH=modules)
        replies = printed[printed.index("RPC OK Reply"):].rstrip() + "\n"
        return re.sub(r"session [0-9]+", "session 1", replies.replace(str(CLIENTS), "."))

    @unittest.skipUnless(shutil.which("yangcli"), "yangcli is missing")
    def test_yangcli(self):
        self.each_case("yangcli", self.yangcli)


    def playbook(self, edit, *options):
        ready = self.element.ready
        (self.scratch / "edit.xml").write_text(edit)
        (self.scratch / "inventory").write_text(
            f"element ansible_host={ready['address']} ansible_port={ready['port']} ansible_user={ready['user']} "
            f"ansible_connection=ansible.netcommon.netconf ansible_private_key_file={self.element.key} "
            "ansible_host_key_checking=false ansible_python_interpreter=/usr/bin/python3\n")
        return run(["ansible-playbook", "-i", "inventory", "-e", f"edit={self.scratch}/edit.xml", *options,
                    CLIENTS / "change.yml"], self.scratch, ANSIBLE_NOCOLOR="1", ANSIBLE_RETRY_FILES_ENABLED="0")

    @unittest.skipUnless(ANSIBLE, "ansible is missing")
    def test_ansible(self):
        self.each_case("ansible", self.playbook)

    @unittest.skipUnless(ANSIBLE, "ansible is missing")
    def test_ansible_from_check_mode_to_a_repair(self):
        """Check mode asks nothing; what is rejected leaves nothing behind that would be in the repair's way."""
        self.require_golden("ansible", "check-mode", self.playbook(REJECTION, "--check"))
        self.assertEqual(self.helper.running().data(), self.begin)
        self.assertIn("failed=1", self.playbook(REJECTION))
        self.assertEqual(self.helper.running().data(), self.begin)
        repaired = REJECTION.replace("<dot1q>210<", "<dot1q>211<")
        self.require_golden("ansible", "repair", self.playbook(repaired))
        self.assertIn(b"<dot1q>211</dot1q>", self.helper.running().data())


class Table(unittest.TestCase):
    """The table of the manual: what it quotes is what the clients print."""

    def test_what_it_quotes_is_printed(self):
        lines = (pathlib.Path(SOURCE) / "docs/netconf.md").read_text().splitlines()
        first = lines.index("| Client | A rejection | A warning | Several faults |") + 2
        rows = list(itertools.takewhile(lambda line: line.startswith("|"), lines[first:]))
        for row in rows:
            name, *cells = [cell.strip() for cell in row.strip("|").split("|")]
            client = name.split("`")[1]
            for case, cell in zip(CASES, cells, strict=True):
                for quoted in re.findall("`([^`]*)`", cell):
                    golden = CLIENTS / f"{case}.{client}.txt"
                    self.assertIn(quoted, golden.read_text(), golden)
        self.assertEqual(len(rows), 5)


if __name__ == "__main__":
    main()
