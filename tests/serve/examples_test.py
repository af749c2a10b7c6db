"""Every example commit over NETCONF: what vpnval check says is what the agent says."""
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from ncclient import manager
from ncclient.operations import RaiseMode

from served_element import (AGENT, BUDGET, SOURCE, VPNVAL, Client, Element, Reply, check, configuration_of, edit_between, etree,
                            example, schema_faults, main)


def examples():
    return sorted(path.parent for path in (pathlib.Path(SOURCE) / "examples").glob("*/element.json"))


class Examples(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = pathlib.Path(tempfile.mkdtemp())
        (cls.scratch / "empty.json").write_text("{}")
        cls.element = Element(example("whole-device"), BUDGET)
        ready = cls.element.ready
        cls.session = manager.connect(
            host=ready["address"], port=ready["port"], username=ready["user"], key_filename=str(cls.element.key),
            allow_agent=False, look_for_keys=False, hostkey_verify=False, timeout=300)
        cls.session.raise_mode = RaiseMode.NONE
        cls.helper = Client(cls.element)
        cls.verdicts = []

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
        self.require_schema()

    def require_schema(self):
        """Every error-info that was seen fits our YANG module, and what does not fit is found."""
        self.assertGreater(len(self.verdicts), 20)
        for verdict in self.verdicts:
            self.assertEqual(schema_faults(verdict, "data"), "")
        finding = self.verdicts[0][0]
        finding.remove(finding.find(f"{{{AGENT}}}message"))
        self.assertIn("Mandatory node \"message\"", schema_faults(self.verdicts[0], "data"))

    def require(self, reply, expected):
        severity = {"accepted": None, "accepted-with-warnings": "warning", "rejected": "error"}[expected["decision"]]
        if severity is None:
            self.assertTrue(reply.is_ok, reply)
            return
        said = [finding for finding in expected["findings"] if finding["from-device"]]
        self.assertEqual(len(reply.errors), 1, reply)
        error = reply.errors[0]
        self.verdicts.append(error.xml.find(f".//{{{AGENT}}}verdict"))
        self.assertEqual(
            (error.severity, error.tag, error.app_tag, error.message),
            (severity, "operation-failed", said[0]["rule"], said[0]["message"]))
        self.assertEqual([self.told(finding) for finding in error.findings()],
                         [self.expected(finding) for finding in expected["findings"]])

    @staticmethod
    def told(finding):
        """What error-info says of a finding, as lists of texts."""
        paths = lambda nodes: [(node["status"][0], node["path"][0]) for node in nodes]
        advice = finding.get("advice", [{}])[0]
        return {"rule": finding["rule"][0], "message": finding["message"][0], "from-device": finding["from-device"][0],
                "parties": paths(finding.get("party", [])), "triggers": paths(finding.get("trigger", [])),
                "details": [paths(party.get("detail", [])) for party in finding.get("party", [])],
                "alternatives": [paths(parts["part"]) for parts in advice.get("alternative", [])],
                "choices": paths(advice.get("choice", [])),
                "repairs": [(repair["kind"][0], repair["value"]) for repair in finding.get("repair", [])]}

    @staticmethod
    def expected(finding):
        """The same of a finding of vpnval check."""
        paths = lambda nodes: [(node["status"], node["path"]) for node in nodes]
        return {"rule": finding["rule"], "message": finding["message"], "from-device": str(finding["from-device"]).lower(),
                "parties": paths(finding["parties"]), "triggers": paths(finding["triggers"]),
                "details": [paths(party["details"]) for party in finding["parties"]],
                "alternatives": [paths(parts) for parts in finding["advice"]["alternatives"]],
                "choices": paths(finding["advice"]["choices"]),
                "repairs": [(repair["kind"], [str(value) for value in repair["values"]]) for repair in finding["repairs"]]}

    def require_running(self, folder, expected, candidate):
        """Running is the candidate, or what it was."""
        wanted = candidate if expected["decision"] != "rejected" else configuration_of(folder, "running")
        difference = check("--element", folder / "element.json", "--running", self.running(), "--candidate", wanted)
        self.assertEqual(difference["changes"], [], folder.name)


if __name__ == "__main__":
    main()
