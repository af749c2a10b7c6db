"""vpnval fetch from an element that is served, through the real ssh."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from served_element import SOURCE, VPNVAL, Client, Element, check, edit_between, example, main

FOLDER = example("access-two-vpns-one-vlan")


class Fetch(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.element = Element(FOLDER)

    @classmethod
    def tearDownClass(cls):
        cls.element.__exit__()

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)

    def fetch(self, *options, **ssh_options):
        """Runs it with these options of ssh's configuration."""
        known_hosts = self.element.runtime() / "sshd/known_hosts"
        settings = {"IdentityFile": self.element.key, "IdentitiesOnly": "yes", "UserKnownHostsFile": known_hosts,
                    "StrictHostKeyChecking": "yes", "BatchMode": "yes", "HostName": self.element.ready["address"],
                    "User": self.element.ready["user"], **ssh_options}
        config = self.scratch / "config"
        config.write_text("Host element\n" + "".join(f"{name} {value}\n" for name, value in settings.items()))
        ssh = self.scratch / "ssh"
        ssh.write_text(f"#!/bin/sh\nexec /usr/bin/ssh -F {config} \"$@\"\n")
        ssh.chmod(0o700)
        command = [VPNVAL, "fetch", "element", "-o", self.scratch / "out", *options]
        if "--port" not in options:
            command += ["--port", str(self.element.ready["port"])]
        environment = {**os.environ, "PATH": f"{self.scratch}:{os.environ['PATH']}"}
        return subprocess.run(command, capture_output=True, text=True, env=environment)

    def test_what_is_fetched_is_a_commit(self):
        client = Client(self.element)
        self.assertTrue(client.edit(edit_between(FOLDER / "running.xml", FOLDER / "candidate.xml")).is_ok)
        (self.scratch / "out").mkdir()
        shutil.copy(FOLDER / "element.json", self.scratch / "out")
        result = self.fetch("--candidate")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        fetched, original = check(self.scratch / "out"), check(FOLDER)
        self.assertEqual(fetched["decision"], "rejected")
        self.assertEqual((fetched["changes"], fetched["points"]), (original["changes"], original["points"]))
        self.assertEqual(sorted(path.name for path in (self.scratch / "out").iterdir()),
                         ["candidate.xml", "element.json", "running.xml"])
        client.discard()
        client.close()

    def require_refusal(self, result, text):
        self.assertEqual(result.returncode, 76)
        self.assertEqual(result.stderr, f"vpnval: element: the connection ended: ssh: {text}\n")
        self.assertFalse((self.scratch / "out").exists())

    def test_a_key_that_is_not_known_is_refused(self):
        subprocess.run(["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", self.scratch / "other"], check=True)
        ready = self.element.ready
        self.require_refusal(self.fetch(IdentityFile=self.scratch / "other"),
                             f"{ready['user']}@{ready['address']}: Permission denied (publickey).")

    def test_a_host_that_is_not_known_is_refused(self):
        self.require_refusal(self.fetch(UserKnownHostsFile="/dev/null"), "Host key verification failed.")

    def test_a_port_that_nobody_listens_on_is_refused(self):
        result = self.fetch("--port", "1")
        self.require_refusal(result, "connect to host 127.0.0.1 port 1: Connection refused")


if __name__ == "__main__":
    main()
