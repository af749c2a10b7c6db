"""Every example commit over NETCONF: what vpnval check says is what the agent says."""
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from ncclient import manager
from ncclient.operations import RaiseMode

from served_element import (SOURCE, VPNVAL, Client, Element, Reply, check, configuration_of, edit_between, etree, example, main)


def examples():
    return sorted(path.parent for path in (pathlib.Path(SOURCE) / "examples").glob("*/element.json"))


class Examples(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = pathlib.Path(tempfile.mkdtemp())
        (cls.scratch / "empty.json").write_text("{}")
        cls.element = Element(example("whole-device"))
        ready = cls.element.ready
        cls.session = manager.connect(
            host=ready["address"], port=ready["port"], username=ready["user"], key_filename=str(cls.element.key),
            allow_agent=False, look_for_keys=False, hostkey_verify=False, timeout=300)
        cls.session.raise_mode = RaiseMode.NONE
        cls.helper = Client(cls.element)

    @classmethod
    def tearDownClass(cls):
        cls.helper.close()
        cls.session.close_session()
        cls.element.__exit__()
        shutil.rmtree(cls.scratch)

    def ask(self, operation, **arguments):
        """An operation of ncclient."""
        return Reply(etree.fromstring(getattr(self.session, operation)(**arguments).xml.encode()))

    def running(self):
        file = self.scratch / "fetched.xml"
        file.write_bytes(self.helper.running().data())
        return file

    def configure(self, folder):
        """Makes the example's configuration the running one, by way of an empty one: from another one it may be refused."""
        shutil.copy(folder / "element.json", self.element.profile)
        empty = self.scratch / "empty.json"
        running = configuration_of(folder, "running")
        for edit in edit_between(self.running(), empty), edit_between(empty, running):
            self.assertTrue(self.helper.edit(edit).is_ok)
            reply = self.helper.commit()
            self.assertFalse([error for error in reply.errors if error.severity == "error"], reply)

    def candidate_of(self, folder):
        if (folder / "edit.xml").exists():
            applied = self.scratch / "applied.xml"
            subprocess.run([VPNVAL, "apply", folder, "-o", applied], check=True)
            return applied, edit_between(configuration_of(folder, "running"), applied)
        candidate = configuration_of(folder, "candidate")
        return candidate, edit_between(configuration_of(folder, "running"), candidate)

    def test_every_example_has_the_verdict_of_check(self):
        for folder in examples():
            with self.subTest(folder.name):
                self.configure(folder)
                candidate, edit = self.candidate_of(folder)
                expected = check("--element", folder / "element.json", "--running", configuration_of(folder, "running"),
                                 "--candidate", candidate)
                self.assertTrue(self.ask("edit_config", target="candidate", config=edit).is_ok)
                self.require(self.ask("validate", source="candidate"), expected)
                self.require(self.ask("commit"), expected)
                self.require_running(folder, expected, candidate)
                self.helper.discard()

    def require(self, reply, expected):
        severity = {"accepted": None, "accepted-with-warnings": "warning", "rejected": "error"}[expected["decision"]]
        if severity is None:
            self.assertTrue(reply.is_ok, reply)
            return
        said = [finding for finding in expected["findings"] if finding["from-device"]]
        self.assertEqual(len(reply.errors), 1, reply)
        error = reply.errors[0]
        self.assertEqual(
            (error.severity, error.tag, error.app_tag, error.message),
            (severity, "operation-failed", said[0]["rule"], said[0]["message"]))
        self.assertEqual([finding["message"] for finding in error.findings()],
                         [[finding["message"]] for finding in expected["findings"]])
        self.assertEqual([finding["rule"] for finding in error.findings()],
                         [[finding["rule"]] for finding in expected["findings"]])
        self.assertEqual([len(finding.get("party", [])) for finding in error.findings()],
                         [len(finding["parties"]) for finding in expected["findings"]])

    def require_running(self, folder, expected, candidate):
        """Running is the candidate, or what it was."""
        wanted = candidate if expected["decision"] != "rejected" else configuration_of(folder, "running")
        difference = check("--element", folder / "element.json", "--running", self.running(), "--candidate", wanted)
        self.assertEqual(difference["changes"], [], folder.name)


if __name__ == "__main__":
    main()
