"""Libraries that do not answer, and a vpnval that reads otherwise than the agent: told, and the agent goes on."""
import os
import pathlib
import random
import shutil
import signal
import tempfile
import unittest

from served_element import (AGENT, ANSWERING_PLUGIN, HANGING_PLUGIN, VPNVAL, Client, Element, Reply, edit_between, example, main)

FOLDER = example("access-two-vpns-two-vlans")
ACCEPTED = edit_between(FOLDER / "running.xml", FOLDER / "candidate.xml")
VALIDATE = "<validate><source><candidate/></source></validate>"
SEED = int(os.environ.get("TURMOIL_SEED", random.randrange(1 << 30)))


class Libraries(unittest.TestCase):
    """A library that does not answer is told, and the agent goes on."""

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)

    def test_a_library_that_stops_or_cannot_be_loaded_leaves_the_agent_alive(self):
        library = pathlib.Path(VPNVAL).parent.parent / "lib/libconfig_validate_vpn.so"
        plugin = self.scratch / "library.so"
        shutil.copy(library, plugin)
        with Element(FOLDER, f"--plugin={plugin}") as element:
            client = Client(element)
            before = client.running().data()
            self.assertTrue(client.edit(ACCEPTED).is_ok)
            plugin.unlink()
            for operation in VALIDATE, "<commit/>", f"<explain xmlns='{AGENT}'/>":
                error, = client.ask(operation).errors
                self.assertEqual((error.tag, error.app_tag, error.severity), ("operation-failed", "undecided", "error"))
                self.assertIn(str(plugin), error.message)
            self.assertEqual(client.running().data(), before)
            shutil.copy(library, plugin)
            self.assertTrue(client.commit().is_ok)

    def test_a_library_that_stops_on_its_assertion_leaves_the_agent_alive(self):
        vpls = """<config><mpls xmlns="urn:element:mpls"><l2vpn-config xmlns="urn:element:l2-vpn"><l2vpn><vpls-group
            xmlns="urn:element:mpls-l2vpn-vpls"><name>campus</name><vpn><name>voice</name><bridge-domain><access-interface>
            <name>ge-1</name></access-interface></bridge-domain></vpn></vpls-group></l2vpn></l2vpn-config></mpls></config>"""
        with Element(FOLDER, f"--plugin={ANSWERING_PLUGIN}") as element:
            client = Client(element)
            before = client.running().data()
            self.assertTrue(client.edit(vpls).is_ok)
            error, = client.commit().errors
            self.assertEqual((error.tag, error.app_tag), ("operation-failed", "undecided"))
            self.assertRegex(error.message, "^the library was stopped by signal 6: .*Assertion `")
            self.assertEqual(client.running().data(), before)
            self.assertTrue(client.discard().is_ok)

    def test_a_library_that_hangs_is_given_up(self):
        with Element(FOLDER, f"--plugin={HANGING_PLUGIN}", "--library-timeout=1") as element:
            client = Client(element)
            before = client.running().data()
            self.assertTrue(client.edit(ACCEPTED).is_ok)
            error, = client.commit().errors
            self.assertEqual((error.tag, error.app_tag, error.message),
                             ("operation-failed", "undecided", "the library gave no answer for 1 s"))
            self.assertEqual(client.running().data(), before)
            self.assertEqual(questions_of(element), [])
            self.assertTrue(client.discard().is_ok)

    def test_a_question_that_is_killed_is_no_answer(self):
        with Element(FOLDER, f"--plugin={HANGING_PLUGIN}") as element:
            client = Client(element)
            self.assertTrue(client.edit(ACCEPTED).is_ok)
            client.send("<commit/>")
            while not (asked := questions_of(element)):
                pass
            os.kill(asked[0], signal.SIGKILL)
            error, = Reply(client.read()).errors
            self.assertEqual(error.app_tag, "undecided")
            self.assertRegex(error.message, "^the library was stopped by signal 9: ")

    def test_questions_that_are_killed_at_random_leave_running_whole(self):
        drawn = random.Random(SEED)
        with Element(FOLDER) as element:
            client = Client(element)
            before = client.running().data()
            self.assertTrue(client.edit(ACCEPTED).is_ok)
            killed = 0
            while killed < 5:
                client.send(VALIDATE)
                while not (asked := questions_of(element)) and not client.has_reply():
                    pass
                for _ in range(drawn.randrange(50_000)):
                    pass
                for question in asked:
                    kill(question)
                reply = Reply(client.read())
                self.assertEqual(client.running().data(), before, f"seed {SEED}")
                killed += not reply.is_ok
                self.assertEqual([error.app_tag for error in reply.errors], [] if reply.is_ok else ["undecided"], f"seed {SEED}")
            self.assertTrue(client.commit().is_ok)
            self.assertNotEqual(client.running().data(), before)

    def test_a_vpnval_that_reads_otherwise_than_the_agent_is_an_internal_fault(self):
        """As after an upgrade under a running element: the agent has the YANG modules of before."""
        build = pathlib.Path(VPNVAL).parent.parent
        library = (build / "lib/libelement_host.so").read_bytes()
        other = library.replace(b'range "1..4094"', b'range "1..0994"')
        self.assertNotEqual(other, library)
        for folder in "bin", "other":
            (self.scratch / folder).mkdir()
        (self.scratch / "lib").symlink_to(build / "lib")
        (self.scratch / "other/libelement_host.so").write_bytes(other)
        program = self.scratch / "bin/vpnval"
        shutil.copy(VPNVAL, program)
        with Element(FOLDER, program=program) as element:
            client = Client(element)
            before = client.running().data()
            program.unlink()
            program.write_text(f"#!/bin/sh\nLD_LIBRARY_PATH={self.scratch}/other exec {VPNVAL} \"$@\"\n")
            program.chmod(0o700)
            self.assertTrue(client.edit("<config><config xmlns='urn:element:base'><vlan><id>1000</id></vlan></config></config>").is_ok)
            for operation in VALIDATE, "<commit/>":
                error, = client.ask(operation).errors
                self.assertEqual((error.tag, error.app_tag), ("operation-failed", "internal-fault"))
                self.assertRegex(error.message, "^internal fault: vpnval does not read what the agent has accepted: "
                                                ".*asked-candidate.xml:[0-9]+: /config/vlan.*1000")
            self.assertEqual(client.running().data(), before)


def questions_of(element):
    """The processes that ask the library for the agent just now."""
    agent = element.agent()
    return [int(child) for child in pathlib.Path(f"/proc/{agent}/task/{agent}/children").read_text().split()]


def kill(process):
    """It may have ended already."""
    try:
        os.kill(process, signal.SIGKILL)
    except ProcessLookupError:
        pass


if __name__ == "__main__":
    print(f"seed {SEED}")
    main()
