"""A session of ncclient with the operations of served_element.Client, so that both walk through the same tests."""
from lxml import etree
from ncclient import manager
from ncclient.operations import RaiseMode

from served_element import LONGEST, Reply


class NcclientSession:
    """Each operation is ncclient's own. What it says is a Reply, an rpc-error too."""

    def __init__(self, element):
        ready = element.ready
        self.manager = manager.connect(
            host=ready["address"], port=ready["port"], username=ready["user"], key_filename=str(element.key),
            allow_agent=False, look_for_keys=False, hostkey_verify=False, timeout=LONGEST)
        self.manager.raise_mode = RaiseMode.NONE
        self.id = int(self.manager.session_id)

    @staticmethod
    def reply(answered):
        return Reply(etree.fromstring(answered.xml.encode()))

    def edit(self, config, test_option=None):
        return self.reply(self.manager.edit_config(target="candidate", config=config, test_option=test_option))

    def commit(self, confirmed=False, timeout=None, persist=None, persist_id=None):
        return self.reply(self.manager.commit(confirmed, timeout and str(timeout), persist, persist_id))

    def cancel(self, persist_id=None):
        return self.reply(self.manager.cancel_commit(persist_id))

    def discard(self):
        return self.reply(self.manager.discard_changes())

    def lock(self):
        return self.reply(self.manager.lock("candidate"))

    def unlock(self):
        return self.reply(self.manager.unlock("candidate"))

    def validate(self, source="candidate"):
        given = etree.fromstring(source) if source.startswith("<") else source
        return self.reply(self.manager.validate(given))

    def copy(self, target, source):
        return self.reply(self.manager.copy_config(source=source, target=target))

    def kill(self, session):
        return self.reply(self.manager.kill_session(str(session)))

    def running(self):
        return self.reply(self.manager.get_config("running"))

    def candidate(self):
        return self.reply(self.manager.get_config("candidate"))

    def in_a_row(self, count):
        """So many validates, none of which waits for the one before."""
        self.manager.async_mode = True
        asked = [self.manager.validate("candidate") for _ in range(count)]
        self.manager.async_mode = False
        for rpc in asked:
            rpc.event.wait(LONGEST)
        return [self.reply(rpc.reply) for rpc in asked]

    def end(self):
        """Ends the session as NETCONF would have it."""
        return self.reply(self.manager.close_session())

    def close(self):
        """Ends the session as a broken connection does."""
        self.manager._session.close()
