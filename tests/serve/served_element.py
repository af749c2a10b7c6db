"""An element served by vpnval serve, and clients of it, for the tests of this folder."""
import itertools
import json
import os
import pathlib
import queue
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import threading

from lxml import etree

VPNVAL, WRITE_EDIT, SOURCE, ANSWERING_PLUGIN, HANGING_PLUGIN, WITHOUT_VALIDATE = (
    os.environ.get(name, "")
    for name in ("VPNVAL", "WRITE_EDIT", "SOURCE_DIR", "ANSWERING_PLUGIN", "HANGING_PLUGIN", "WITHOUT_VALIDATE"))
BASE = "urn:ietf:params:xml:ns:netconf:base:1.0"
AGENT = "urn:element:vpnval-agent"
# A bound of time would cut the search short on a slow machine.
BUDGET = "--budget=500"
SKIPPED = 77  # what ctest takes for a test that could not be run
# Far beyond what any step takes on a slow machine: a test fails instead of hanging.
LONGEST = int(os.environ.get("LONGEST", 300))


def missing_packages():
    """What keeps these tests from running; empty: nothing."""
    lacks = [name for name in ("netconfd", "sshd", "yanglint") if not shutil.which(name, path=os.environ["PATH"] + ":/usr/sbin")]
    module = pathlib.Path(VPNVAL).parent.parent / "lib/agent/libvpnval-agent.so"
    return lacks + ([] if module.exists() else [str(module)])


def example(name):
    return pathlib.Path(SOURCE) / "examples" / name


def configuration_of(folder, name):
    return next(file for file in (folder / f"{name}.xml", folder / f"{name}.json") if file.exists())


class Element:
    """A running vpnval serve with its folders; ended with the object, which makes sure that nothing is left."""

    def __init__(self, folder, *options, state=None, program=VPNVAL, log_is_read=True):
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix="vpnval-served-"))
        self.key = self.scratch / "key"
        subprocess.run(["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", self.key], check=True)
        self.profile = self.scratch / "element.json"
        shutil.copy(folder / "element.json", self.profile)
        command = [program, "serve", f"--element={self.profile}", f"--running={configuration_of(folder, 'running')}"]
        command += [f"--authorized-keys={self.key}.pub", "--log=json", *options]
        if state is not None:
            command.append(f"--state={state}")
        environment = {**os.environ, "TMPDIR": str(self.scratch)}
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, env=environment)
        self.events = queue.Queue()
        if log_is_read:
            threading.Thread(target=self.read_log, daemon=True).start()
        else:
            self.read_log(lines=1)
        self.ready = self.event("ready")

    def read_log(self, lines=None):
        for line in itertools.islice(self.process.stdout, lines):
            self.events.put(json.loads(line))
        if lines is None:
            self.events.put(None)

    def agent(self):
        """The number of the agent's process."""
        return self.child("netconfd")

    def child(self, name):
        """The number of a process that vpnval serve has started."""
        children = subprocess.run(["ps", "-o", "pid=,comm=", "--ppid", str(self.process.pid)], capture_output=True, text=True)
        return next(int(line.split()[0]) for line in children.stdout.splitlines() if name in line)

    def event(self, name, **content):
        """The next event of this name, with this content."""
        while event := self.events.get(timeout=LONGEST):
            if event["event"] == name and content.items() <= event.items():
                return event
        raise AssertionError(f"ended before event {name}: {self.process.stderr.read()}")

    def runtime(self):
        return next(self.scratch.glob("vpnval-serve-*"))

    def ssh(self):
        known_hosts = self.runtime() / "sshd/known_hosts"
        options = ["-F", "none", "-i", self.key, "-o", "IdentitiesOnly=yes", "-o", f"UserKnownHostsFile={known_hosts}"]
        target = f"{self.ready['user']}@{self.ready['address']}"
        return ["ssh", *map(str, options), "-p", str(self.ready["port"]), "-s", target, "netconf"]

    def end(self):
        """Ends it by a signal as an operator would, and makes sure that it leaves nothing."""
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(LONGEST)
        left = sorted(path.name for path in self.scratch.iterdir() if path.name not in ("key", "key.pub", "element.json"))
        self.clear()
        return self.process.returncode, left

    def clear(self):
        """Removes the folders of one that has ended."""
        shutil.rmtree(self.scratch)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            status, left = self.end()
            assert (status, left) == (0, []), (status, left)


class Client:
    """A session whose messages are written by hand."""

    def __init__(self, element, version="1.1", first=None):
        """Sends a first operation, if any, in one piece with its hello."""
        self.process = subprocess.Popen(element.ssh(), stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.chunked = version == "1.1"
        self.buffer = b""
        self.last_id = 0
        hello = (f'<hello xmlns="{BASE}"><capabilities><capability>urn:ietf:params:netconf:base:{version}'
                 "</capability></capabilities></hello>]]>]]>").encode()
        self.write(hello + (self.framed(self.message(first)) if first else b""))
        self.hello = etree.fromstring(self.until(b"]]>]]>"))
        self.id = int(self.hello.findtext(f"{{{BASE}}}session-id"))

    def write(self, data):
        self.process.stdin.write(data)
        self.process.stdin.flush()

    def more(self):
        data = os.read(self.process.stdout.fileno(), 65536)
        if not data:
            raise EOFError(self.process.stderr.read().decode())
        self.buffer += data

    def until(self, mark):
        while mark not in self.buffer:
            self.more()
        text, self.buffer = self.buffer.split(mark, 1)
        return text

    def read(self):
        """The next message."""
        if not self.chunked:
            return etree.fromstring(self.until(b"]]>]]>"))
        text = b""
        while True:
            self.until(b"\n#")
            size = self.until(b"\n")
            if size == b"#":
                return etree.fromstring(text)
            while len(self.buffer) < int(size):
                self.more()
            text, self.buffer = text + self.buffer[: int(size)], self.buffer[int(size):]

    def has_reply(self):
        """Whether some of a reply is there."""
        return bool(self.buffer or select.select([self.process.stdout], [], [], 0)[0])

    def message(self, operation):
        self.last_id += 1
        return f'<rpc message-id="{self.last_id}" xmlns="{BASE}">{operation}</rpc>'.encode()

    def framed(self, message):
        return b"\n#%d\n%s\n##\n" % (len(message), message) if self.chunked else message + b"]]>]]>"

    def send(self, operation):
        self.write(self.framed(self.message(operation)))

    def ask(self, operation):
        self.send(operation)
        return Reply(self.read())

    def edit(self, config, test_option=None):
        option = f"<test-option>{test_option}</test-option>" if test_option else ""
        return self.ask(f"<edit-config><target><candidate/></target>{option}{config}</edit-config>")

    def commit(self, confirmed=False, timeout=None, persist=None, persist_id=None):
        parameters = {"confirm-timeout": timeout, "persist": persist, "persist-id": persist_id}
        texts = "".join(f"<{name}>{value}</{name}>" for name, value in parameters.items() if value is not None)
        return self.ask(f"<commit>{'<confirmed/>' if confirmed else ''}{texts}</commit>")

    def cancel(self, persist_id=None):
        return self.ask(f"<cancel-commit>{f'<persist-id>{persist_id}</persist-id>' if persist_id else ''}</cancel-commit>")

    def discard(self):
        return self.ask("<discard-changes/>")

    def lock(self):
        return self.ask("<lock><target><candidate/></target></lock>")

    def unlock(self):
        return self.ask("<unlock><target><candidate/></target></unlock>")

    def validate(self, source="candidate"):
        return self.ask(f"<validate><source>{source if source.startswith('<') else f'<{source}/>'}</source></validate>")

    def copy(self, target, source):
        return self.ask(f"<copy-config><target><{target}/></target><source><{source}/></source></copy-config>")

    def kill(self, session):
        return self.ask(f"<kill-session><session-id>{session}</session-id></kill-session>")

    def running(self):
        return self.ask("<get-config><source><running/></source></get-config>")

    def candidate(self):
        return self.ask("<get-config><source><candidate/></source></get-config>")

    def in_a_row(self, count):
        """So many validates, sent before any answer is read."""
        validate = "<validate><source><candidate/></source></validate>"
        first = self.last_id + 1
        self.write(b"".join(self.framed(self.message(validate)) for _ in range(count)))
        replies = [self.read() for _ in range(count)]
        assert [reply.get("message-id") for reply in replies] == [str(first + i) for i in range(count)], replies
        return [Reply(reply) for reply in replies]

    def end(self):
        """Ends the session as NETCONF would have it."""
        reply = self.ask("<close-session/>")
        self.close()
        return reply

    def close(self):
        """Ends the session as a broken connection does."""
        self.process.stdin.close()
        self.process.wait(LONGEST)


class Reply:
    """An rpc-reply."""

    def __init__(self, xml):
        self.xml = xml
        self.errors = [Error(error) for error in xml.findall(f"{{{BASE}}}rpc-error")]

    @property
    def is_ok(self):
        return self.xml.find(f"{{{BASE}}}ok") is not None and not self.errors

    def data(self):
        return etree.tostring(self.xml.find(f"{{{BASE}}}data"))

    def __repr__(self):
        return etree.tostring(self.xml).decode()


class Error:
    """An rpc-error."""

    def __init__(self, xml):
        self.xml = xml
        for name in ("type", "tag", "severity", "app-tag", "path", "message"):
            setattr(self, name.replace("-", "_"), xml.findtext(f"{{{BASE}}}error-{name}"))

    def findings(self):
        """Those of error-info, each as its children's values by name: a text for a leaf, such a dictionary for another node."""
        return [values_of(finding) for finding in self.xml.iterfind(f".//{{{AGENT}}}finding")]


def values_of(node):
    values = {}
    for child in node:
        values.setdefault(etree.QName(child).localname, []).append(values_of(child) if len(child) else child.text)
    return values


def schema_faults(data, kind):
    """What yanglint, and so libyang, finds wrong with data of our YANG module; kind is its name of the type of data."""
    module = pathlib.Path(SOURCE) / "src/agent/yang/vpnval-agent.yang"
    with tempfile.NamedTemporaryFile(suffix=".xml") as file:
        file.write(etree.tostring(data))
        file.flush()
        return subprocess.run(["yanglint", "-t", kind, module, file.name], capture_output=True, text=True).stderr


def edit_between(before, after):
    """What leads from one file's configuration to the other's, as an edit."""
    return subprocess.run([WRITE_EDIT, before, after], check=True, capture_output=True, text=True).stdout


def verdict_of(document):
    """Of the only commit of a document."""
    commit, = json.loads(document)["commits"]
    return commit["verdict"]


def check(*options):
    """What vpnval check says of a commit. Its search is bounded by calls alone, as that of an Element with BUDGET."""
    command = [VPNVAL, "check", "--format=json", "--all-faults", BUDGET, *options]
    output = subprocess.run(command, capture_output=True, text=True)
    return verdict_of(output.stdout)


def main():
    import unittest
    lacks = missing_packages()
    if lacks:
        print(f"skipped: {', '.join(lacks)} missing")
        sys.exit(SKIPPED)
    unittest.main(verbosity=2, warnings="ignore")
