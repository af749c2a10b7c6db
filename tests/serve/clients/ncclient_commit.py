"""Makes a change with ncclient and commits it: ncclient_commit.py HOST PORT USER KEY EDIT all|errors."""
import sys

from ncclient import manager
from ncclient.operations import RaiseMode, RPCError

host, port, user, key, edit, raised = sys.argv[1:]

with manager.connect(host=host, port=int(port), username=user, key_filename=key, allow_agent=False, look_for_keys=False,
                     hostkey_verify=False, timeout=300) as element:
    element.raise_mode = RaiseMode.ALL if raised == "all" else RaiseMode.ERRORS
    element.edit_config(target="candidate", config=open(edit).read())
    try:
        print("ok:", element.commit().ok)
    except RPCError as error:
        print(f"{type(error).__name__}: {error}")
        for name in "severity", "tag", "app_tag", "path", "message":
            print(f"{name}: {getattr(error, name)}")
        print(error.info)
