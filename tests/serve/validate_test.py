"""Of an element without configuration, the agent's own validate loses the change, and ours in its place does not: shown on the same
agent with and without ours."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from served_element import LONGEST, VPNVAL, WITHOUT_VALIDATE, Client, Element, example, main

VLAN = "<config><config xmlns='urn:element:base'><vlan><id>10</id></vlan></config></config>"


class Agent:
    """The agent of a served element once more, with a socket of its own, without an sshd, and with further variables."""

    def __init__(self, element, scratch, **variables):
        process = pathlib.Path("/proc") / str(element.agent())
        self.user, self.port = element.ready["user"], element.ready["port"]
        self.socket = scratch / "agent.sock"
        command = [argument.decode() for argument in (process / "cmdline").read_bytes().split(b"\0")[:-1]]
        command = [f"--ncxserver-sockname={self.socket}" if "sockname" in argument else argument for argument in command]
        environment = dict(pair.decode().split("=", 1) for pair in (process / "environ").read_bytes().split(b"\0")[:-1])
        self.process = subprocess.Popen(command, env={**environment, **variables}, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
    def ssh(self):
        """What the sshd would start for a session."""
        subsystem = pathlib.Path(VPNVAL).parent.parent / "lib/agent/vpnval-netconf-subsystem"
        return ["env", f"USER={self.user}", "SSH_CONNECTION=127.0.0.1 1 127.0.0.1 1", subsystem, self.socket, str(self.port)]

    def end(self):
        self.process.terminate()
        self.process.wait(LONGEST)


class Validate(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(example("access-two-vpns-two-vlans") / "element.json", folder)
            (pathlib.Path(folder) / "running.json").write_text("{}")
            cls.element = Element(pathlib.Path(folder))

    @classmethod
    def tearDownClass(cls):
        cls.element.__exit__()

    def is_kept(self, validates, **variables):
        """Whether an edit, which may be validated, is in force after its commit."""
        scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, scratch)
        agent = Agent(self.element, scratch, **variables)
        self.addCleanup(agent.end)
        client = Client(agent)
        self.assertTrue(client.edit(VLAN).is_ok)
        if validates:
            self.assertTrue(client.validate().is_ok)
        self.assertTrue(client.commit().is_ok)
        kept = b"<id>10</id>" in client.running().data()
        client.close()
        return kept

    def test_a_change_that_is_validated_is_not_lost(self):
        self.assertTrue(self.is_kept(validates=True))

    def test_the_agents_own_validate_loses_it(self):
        """If this fails, the agent is mended, and need not be cured."""
        self.assertTrue(self.is_kept(validates=False, LD_PRELOAD=WITHOUT_VALIDATE))
        self.assertFalse(self.is_kept(validates=True, LD_PRELOAD=WITHOUT_VALIDATE))


if __name__ == "__main__":
    main()
