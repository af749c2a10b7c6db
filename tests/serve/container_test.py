"""The entry point of the container, run as it is in one, and what the topology mounts for it."""
import os
import pathlib
import re
import shutil
import socket
import subprocess
import tempfile
import unittest

from served_element import SOURCE, VPNVAL, Client, Element, example, main

CONTAINERS = pathlib.Path(SOURCE) / "containers"
FOLDER = example("access-two-vpns-two-vlans")
VLAN = "<config><config xmlns='urn:element:base'><vlan><id>7</id></vlan></config></config>"


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Entry(unittest.TestCase):
    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.scratch)
        # Its surroundings name the files that are mounted in a container.
        self.surroundings = {"ELEMENT": str(FOLDER), "STATE": "", "PATH": f"{pathlib.Path(VPNVAL).parent}:{os.environ['PATH']}"}

    def serve(self, state):
        """An element whose command is the entry point."""
        entry = self.scratch / "entry"
        lines = [f"export {name}='{value}'" for name, value in {**self.surroundings, "STATE": state}.items()]
        # The options of an Element: its keys, and the log as JSON.
        entry.write_text("\n".join(["#!/bin/sh", *lines, 'while [ $# -gt 0 ]; do case $1 in',
                                    '--authorized-keys=*) export AUTHORIZED_KEYS="${1#*=}" ;; esac; shift; done',
                                    f"export LISTEN=127.0.0.1:{free_port()}", f"exec {CONTAINERS}/serve-element --log=json", ""]))
        entry.chmod(0o700)
        return Element(FOLDER, program=entry)

    def test_it_serves_what_is_mounted_until_it_is_stopped_and_keeps_its_state(self):
        state = self.scratch / "state"
        state.mkdir()
        with self.serve(state) as element:
            client = Client(element)
            self.assertTrue(client.edit(VLAN).is_ok)
            self.assertTrue(client.commit().is_ok)
            running = client.running().data()
        with self.serve(state) as element:
            self.assertEqual(Client(element).running().data(), running)
        with self.serve("") as element:
            self.assertNotEqual(Client(element).running().data(), running)

    def require_refusal(self, text, **surroundings):
        result = subprocess.run([CONTAINERS / "serve-element"], capture_output=True, text=True,
                                env={**os.environ, **self.surroundings, **surroundings})
        self.assertEqual((result.returncode, result.stdout, result.stderr), (66, "", f"serve-element: {text}\n"))

    def test_what_is_not_mounted_is_told_in_a_line(self):
        self.require_refusal("/no/element.json: cannot be read; expected a folder of an element, mounted on /no", ELEMENT="/no")
        self.require_refusal("/no/keys: cannot be read; expected a file of public keys, mounted there", AUTHORIZED_KEYS="/no/keys")
        self.require_refusal("/no: no such folder; expected one that is mounted there", AUTHORIZED_KEYS=__file__, STATE="/no")


class Topology(unittest.TestCase):
    def test_it_mounts_where_the_entry_point_looks(self):
        entry = (CONTAINERS / "serve-element").read_text()
        binds = re.findall(r"^ +- ([^: ]+):(/[^: ]+)(?::ro)?$", (CONTAINERS / "topology.clab.yml").read_text(), re.MULTILINE)
        self.assertEqual(len(binds), 6)
        for source, place in binds:
            self.assertIn(f"-{place}}}", entry)
            if source.startswith(".."):
                self.assertTrue((CONTAINERS / source / "element.json").exists(), source)

    def test_the_image_is_made_of_what_is_there(self):
        made = ["root.tar"]
        for source in re.findall(r"^(?:ADD|COPY) (\S+)", (CONTAINERS / "Containerfile").read_text(), re.MULTILINE):
            self.assertTrue(source in made or (CONTAINERS / source).exists(), source)
        result = subprocess.run([CONTAINERS / "build_image"], capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stdout), (64, ""))
        self.assertIn("usage: build_image PACKAGE.deb", result.stderr)


if __name__ == "__main__":
    main()
