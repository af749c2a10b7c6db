"""Commits of any number of ports and claims for the tests of the page."""
import json
import pathlib

LAST_VLAN = 4094


def port_names(count):
    return [f"gigabit-ethernet-1/{1 + i // 40}/{1 + i % 40}" for i in range(count)]


def profile(ports):
    return {
        "card": {"vpn-max": 100000, "access-ports": 1000, "selective-encapsulation-vlan-entries": 100000,
                 "selective-encapsulation-vlan-ranges": 10000},
        "interfaces": [{"name": name, "logical-id": i + 1, "ifindex": 1001 + i} for i, name in enumerate(ports)],
    }


def attachment(port, dot1q=None, ranges=(), untagged=False):
    entry = {"name": port}
    if dot1q:
        entry["dot1q"] = dot1q
    if untagged:
        entry["encapsulation"] = {"untagged": [None]}
    if ranges:
        entry["encapsulation"] = {"dot1q-range": [{"min": first, "max": last} for first, last in ranges]}
    return entry


class Configuration:
    """What an operator writes, by the names that the page shows."""

    def __init__(self):
        self.vpws = {}
        self.vpls = {}
        self.members = {}
        self.snooping = []
        self.layer3 = {}

    def add_vpws(self, group, vpn, *attachments):
        self.vpws.setdefault(group, {})[vpn] = list(attachments)

    def add_vpls(self, group, vpn, dot1q, ports):
        self.vpls.setdefault(group, {})[vpn] = {"dot1q": dot1q, "access-interface": [{"name": p} for p in ports]}

    def document(self):
        return {
            "mpls:mpls": {
                "l2-vpn:l2vpn-config": {"l2vpn": {
                    "vpws-group": [{"name": group, "vpn": [{"name": vpn, "access-interface": attachments}
                                                           for vpn, attachments in vpns.items()]}
                                   for group, vpns in self.vpws.items()],
                    "mpls-l2vpn-vpls:vpls-group": [{"name": group, "vpn": [{"name": vpn, "bridge-domain": domain}
                                                                           for vpn, domain in vpns.items()]}
                                                   for group, vpns in self.vpls.items()],
                }},
                "ldp:ldp": {"interface": [{"name": name} for name in self.layer3]},
            },
            "base:config": {
                "vlan": [{"id": vlan, "interface": [{"name": p} for p in ports]}
                         for vlan, ports in self.members.items()],
                "l3-interface": [{"name": name, "vlan": vlan} for name, vlan in self.layer3.items()],
                "igmp-snooping": [{"instance": 1, "interface": [{"name": p} for p in self.snooping]}],
            },
        }


def write(folder, ports, running, candidate):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in (("element", profile(ports)), ("running", running.document()),
                          ("candidate", candidate.document())):
        (folder / f"{name}.json").write_text(json.dumps(content), encoding="utf-8")


def dense_configuration(ports, claims_a_port, conflicts, is_candidate):
    """Ports full of claims, each on VLANs of its own: every ninth a range, every seventh a VPN of two or more ports. The
    change adds, moves and removes some, and takes a VLAN that is taken so many times."""
    made = Configuration()
    step = LAST_VLAN // (claims_a_port + 1)
    for i, port in enumerate(ports):
        for j in range(claims_a_port):
            number, vlan = i * claims_a_port + j, 1 + j * step + (i * 7 + j * j * 3) % max(step - 2, 1)
            if is_candidate and number % 97 == 5 or not is_candidate and number % 89 == 7:
                continue
            if j % 7 == 3:
                made.members.setdefault(vlan, []).append(port)
            elif j % 9 == 4 and step > 5:
                made.add_vpws(f"transit-{i % 8}", f"t{number}", attachment(port, ranges=[(vlan, vlan + step // 2)]))
            else:
                moved = 1 if is_candidate and number % 101 == 11 else 0
                made.add_vpws(f"region-{i % 16}", f"customer-{number}", attachment(port, vlan + moved))
    for k in range(conflicts if is_candidate else 0):
        i = k * 5 % len(ports)
        j = next(j for j in range(k * 3 % claims_a_port, 9999) if j % 7 != 3 and j % 9 != 4
                 and (i * claims_a_port + j) % 97 != 5 and (i * claims_a_port + j) % 101 != 11)
        made.add_vpws("new", f"new-{k}", attachment(ports[i], 1 + j * step + (i * 7 + j * j * 3) % max(step - 2, 1)))
    return made


def write_dense(folder, count, claims, conflicts):
    """So many ports with so many claims in all, and a change that draws so many rejections."""
    ports = port_names(count)
    write(folder, ports, *(dense_configuration(ports, claims // count, conflicts, is_candidate)
                           for is_candidate in (False, True)))
