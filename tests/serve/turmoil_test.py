"""Many sessions at once, and servers that are killed: running is always whole, and one that the library accepted."""
import os
import pathlib
import random
import shutil
import signal
import subprocess
import tempfile
import threading
import unittest

from served_element import BASE, Client, Element, check, edit_between, example, main

FOLDER = example("access-two-vpns-one-vlan")
EDITS = [edit_between(example(name) / "running.xml", example(name) / "candidate.xml")
         for name in ("access-two-vpns-one-vlan", "access-two-vpns-two-vlans")]
CANDIDATE = "<{0}><target><candidate/></target></{0}>"
SEED = int(os.environ.get("TURMOIL_SEED", random.randrange(1 << 30)))
# Sessions kill each other only where it is asked for: the agent has a fault of its own, and at times it crashes or stands
# still when a session is killed at work.
WITH_KILLS = "TURMOIL_KILLS" in os.environ
SESSIONS = 10
STEPS = 12


def vlan(number):
    return f'<config><config xmlns="urn:element:base"><vlan><id>{number}</id></vlan></config></config>'


def empty_file(folder):
    file = folder / "empty.json"
    file.write_text("{}")
    return file


class Turmoil(unittest.TestCase):
    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)

    def require_accepted(self, running):
        """The configuration, put on an empty element, is one that the library accepts."""
        file = self.scratch / "running.xml"
        file.write_bytes(running)
        verdict = check("--element", FOLDER / "element.json", "--running", empty_file(self.scratch), "--candidate", file)
        self.assertEqual(verdict["decision"], "accepted", f"seed {SEED}")

    def client_of(self, element):
        """A new session; None where the agent has ended. Others kill sessions while they begin."""
        while element.process.poll() is None:
            try:
                return Client(element)
            except (EOFError, BrokenPipeError, StopIteration):
                pass
        return None

    def session(self, element, number, failures):
        """Does at random what sessions do; what the agent refuses is its right."""
        drawn = random.Random(f"{SEED}-{number}")
        client = self.client_of(element)
        for _ in range(STEPS):
            if client is None:
                return
            try:
                match drawn.randrange(9 if WITH_KILLS else 8):
                    case 0 | 1:
                        client.edit(vlan(drawn.randrange(1, 50)))
                    case 2:
                        client.edit(drawn.choice(EDITS))
                    case 3 | 4:
                        client.commit()
                    case 5:
                        client.discard()
                    case 6:
                        client.ask(CANDIDATE.format(drawn.choice(["lock", "unlock"])))
                    case 7:
                        client.close()
                        client = self.client_of(element)
                    case 8:
                        client.ask(f"<kill-session><session-id>{drawn.randrange(1, SESSIONS + 1)}</session-id></kill-session>")
            except (EOFError, BrokenPipeError):  # killed by another one
                client = self.client_of(element)
            except Exception as failure:
                failures.append(failure)
        if client is not None:
            client.close()

    def test_ten_sessions_at_once(self):
        state = self.scratch / "state"
        failures = []
        element = Element(FOLDER, state=state)
        threads = [threading.Thread(target=self.session, args=(element, number, failures)) for number in range(SESSIONS)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        if WITH_KILLS and element.process.poll() is not None:
            element.clear()
            element = Element(FOLDER, state=state)
        with element:
            self.assertEqual(failures, [], f"seed {SEED}")
            client = Client(element)
            running = client.running().data()
            self.require_accepted(running)
            client.close()
        if (state / "running.xml").exists():
            verdict = check("--element", FOLDER / "element.json", "--running", state / "running.xml",
                            "--candidate", self.scratch / "running.xml")
            self.assertEqual(verdict["changes"], [], f"seed {SEED}")

    def test_a_server_that_is_killed_during_a_commit_leaves_running_whole(self):
        state = self.scratch / "state"
        drawn = random.Random(SEED)
        last = 1
        for victim in ("netconfd", "netconfd", "netconfd", "sshd"):
            element = Element(FOLDER, state=state)
            client = Client(element)
            client.edit(vlan(last + 1))
            self.assertTrue(client.commit().is_ok)
            client.edit(vlan(last + 2))
            client.send("<commit/>")
            for _ in range(drawn.randrange(200_000)):
                pass
            os.kill(element.child(victim), signal.SIGKILL)
            element.process.wait()
            shutil.rmtree(element.scratch)
            with Element(FOLDER, state=state) as again:
                running = Client(again).running().data()
            self.assertIn(b"<id>%d</id>" % (last + 1), running, f"seed {SEED}")
            self.require_accepted(running)
            last += 1 if b"<id>%d</id>" % (last + 2) not in running else 2


if __name__ == "__main__":
    print(f"seed {SEED}")
    main()
