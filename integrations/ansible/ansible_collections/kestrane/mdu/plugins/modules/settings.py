#!/usr/bin/python
# Copyright: the developers of Kestrane Configuration. MIT License.
"""Brings settings of a Kestrane MDU to given values."""

from __future__ import annotations

DOCUMENTATION = r"""
module: settings
short_description: Bring settings of a Kestrane MDU to given values
description:
  - Compares the given settings with those of a unit, writes what differs and nothing else, and
    reads back what was written. Given twice, it writes once.
  - Runs C(kestrane-cli apply) on the machine where the module runs, usually the controller
    (C(ansible_connection=local)).
options:
  unit:
    description: HOST or HOST:PORT of the unit.
    type: str
    required: true
  settings:
    description:
      - The settings by key, dotted or nested. The keys are listed below.
      - A secret setting stands in O(secrets) and is refused here.
    type: dict
    default: {}
  secrets:
    description:
      - Secret settings by key. Their values are in no log, no command line and no result.
      - A key of a control port is not given back by a unit, so it counts as a change each time.
    type: dict
    default: {}
  src:
    description:
      - Configuration files of the controller, as C(kestrane-cli backup) writes them. Later files
        win over earlier ones, O(settings) and O(secrets) over all of them.
    type: list
    elements: path
    default: []
  only:
    description: Prefixes of keys; what is outside of them is left alone.
    type: list
    elements: str
    default: []
  except:
    description: Prefixes of keys that are left alone.
    type: list
    elements: str
    default: []
  identity:
    description:
      - Whether settings that tell units apart (names, IP address, unit ID) count too. In files of
        O(src) they are meant for the unit that the file came from.
    type: bool
    default: true
  live:
    description: Whether values that a restart of the unit loses count too.
    type: bool
    default: false
  undo:
    description: A file for the values that stood before the change, written before the first write.
    type: path
  reset:
    description: Whether to reset the Ethernet processor at the end, if network settings changed.
    type: bool
    default: false
  timeout:
    description: Seconds to wait for a connection and for each reply.
    type: float
  versions_url:
    description: Root of the versions server.
    type: str
  executable:
    description: The program kestrane-cli.
    type: path
    default: kestrane-cli
attributes:
  check_mode:
    support: full
    description: Reads and compares, and types everything as a write would. Sends no write.
  diff_mode:
    support: full
    description: The settings that change. Secrets show as C((secret)).
author: The developers of Kestrane Configuration
notes:
  - "The settings, with their kind and meaning; BOARD, PORT, LEVEL and N stand for one of several:"
  # made by make-docs from "kestrane-cli settings --json": begin
  - "C(network.netbios_name), text, identity. Name on Windows networks, up to 15 characters, stored in capitals."
  - "C(network.unit_location), text, identity. Where the unit stands, up to 16 characters."
  - "C(network.unit_name), text, identity. Name of the unit, up to 16 characters."
  - "C(network.ip_address), quad, identity. Fixed IP address, used without DHCP or where no DHCP server answers."
  - "C(network.dhcp), switch. Whether the unit asks a DHCP server for its address."
  - "C(network.subnet_mask), quad. Subnet mask of the fixed address."
  - "C(network.default_gateway), quad. Default gateway of the fixed address."
  - "C(network.primary_dns), quad. First DNS server."
  - "C(network.secondary_dns), quad. Second DNS server."
  - "C(network.time_server), quad. IP address of the time server."
  - "C(ports.PORT.enabled), switch. Whether TCP control port PORT is open."
  - "C(ports.PORT.port), number. TCP port number of control port PORT."
  - "C(ports.PORT.attack_limit), number. Failed attempts after which control port PORT closes, 10 to 100; 255 for no limit."
  - "C(ports.PORT.key), hex key, secret. Chaskey key of control port PORT, 32 hexadecimal digits; all F for none."
  - "C(ports.PORT.key_count), number, read only. Keys that control port PORT has had, a count."
  - "C(ports.disconnect_timeout), number. Seconds without traffic after which a control connection is closed, in steps of 10; 0 for never."
  - "C(arp.req_ff), switch. Whether the unit announces itself by ARP requests to FF."
  - "C(arp.resp_ff), switch. Whether the unit announces itself by ARP responses to FF."
  - "C(arp.req_00), switch. Whether the unit announces itself by ARP requests to 00."
  - "C(arp.repeat), choice. Time between two ARP announcements."
  - "C(arp.reset_on_traffic), switch. Whether other traffic starts the time between announcements afresh."
  - "C(snmp.read_community), secret text, secret. SNMP read community, up to 24 characters; empty to close the SNMP port."
  - "C(snmp.contact), text. SNMP contact, up to 16 characters."
  - "C(unit.id), hex byte, identity. Address of the unit among several on one line, two hexadecimal digits, 00 to 61."
  - "C(oled.timeout), number. Seconds until the front display goes dark, in steps of 10; 0 for never."
  - "C(oled.hide_ip), switch. Whether the front display hides the IP settings."
  - "C(web.arm_buttons), switch. Whether the web page has arm buttons."
  - "C(privileges.BOARD.PORT.write_own_privileges), switch. Right of control port PORT on BOARD: write own privileges."
  - "C(privileges.BOARD.PORT.read_other_privileges), switch. Right of control port PORT on BOARD: read other privileges."
  - "C(privileges.BOARD.PORT.write_other_privileges), switch. Right of control port PORT on BOARD: write other privileges."
  - "C(privileges.BOARD.PORT.live_control), switch. Right of control port PORT on BOARD: live control."
  - "C(privileges.BOARD.PORT.reset_min_max), switch. Right of control port PORT on BOARD: reset min max."
  - "C(privileges.BOARD.PORT.write_macro_memory), switch. Right of control port PORT on BOARD: write macro memory."
  - "C(privileges.BOARD.PORT.commit_sensors), switch. Right of control port PORT on BOARD: commit sensors."
  - "C(privileges.BOARD.PORT.changeover_settings), switch. Right of control port PORT on BOARD: changeover settings."
  - "C(privileges.BOARD.PORT.bit_3), switch. Right of control port PORT on BOARD: bit 3."
  - "C(privileges.BOARD.PORT.bit_4), switch. Right of control port PORT on BOARD: bit 4."
  - "C(privileges.BOARD.PORT.write_names), switch. Right of control port PORT on BOARD: write names."
  - "C(privileges.BOARD.PORT.bit_6), switch. Right of control port PORT on BOARD: bit 6."
  - "C(privileges.BOARD.PORT.network_configuration), switch. Right of control port PORT on BOARD: network configuration."
  - "C(security.LEVEL.password), secret text, secret, write only. Password of the web LEVEL, up to 16 characters without blanks; empty for none."
  - "C(security.LEVEL.disabled), switch. Whether the web LEVEL is closed."
  - "C(names.inlet.main.upper), text. First line of the name of the main inlet, up to 8 characters."
  - "C(names.inlet.main.lower), text. Second line of the name of the main inlet, up to 8 characters."
  - "C(names.inlet.backup.upper), text. First line of the name of the backup inlet, up to 8 characters."
  - "C(names.inlet.backup.lower), text. Second line of the name of the backup inlet, up to 8 characters."
  - "C(names.outlet.N.upper), text. First line of the name of outlet N, up to 8 characters."
  - "C(names.outlet.N.lower), text. Second line of the name of outlet N, up to 8 characters."
  - "C(triggers.N.name), text. Name by which an operator starts macro N, up to 14 characters."
  - "C(triggers.N.page), number, read only. Page of the front display that macro N stands on."
  - "C(triggers.N.address), hex byte. Address that macro N starts at, two hexadecimal digits from 10 to 7E; empty for none."
  - "C(triggers.N.enabled), switch. Whether an operator may start macro N."
  - "C(sensors.N.name), text. Name of 1-Wire sensor N, up to 8 characters."
  - "C(sensors.N.address), text, read only. Committed address of 1-Wire sensor N, 16 hexadecimal digits with the family last."
  - "C(changeover.startup.off_time_main), number. Time that the main supply may be off, in samples of 0.2 ms, after a restart."
  - "C(changeover.startup.off_time_backup), number. Time that the backup supply may be off, in samples of 0.2 ms, after a restart."
  - "C(changeover.startup.phase), number. Phase window for changing back, in samples of 0.2 ms, after a restart."
  - "C(changeover.startup.change_back), number. Delay before changing back, in units of 10 seconds; 255 for never, after a restart."
  - "C(changeover.startup.default_alarm), number, read only. Alarm after a restart: 0 none, 1 flash, 2 beep, 3 both."
  - "C(changeover.startup.default_inlet), choice. Preferred inlet after a restart."
  - "C(changeover.live.off_time_main), number, live. Time that the main supply may be off, in samples of 0.2 ms, until a restart."
  - "C(changeover.live.off_time_backup), number, live. Time that the backup supply may be off, in samples of 0.2 ms, until a restart."
  - "C(changeover.live.phase), number, live. Phase window for changing back, in samples of 0.2 ms, until a restart."
  - "C(changeover.live.change_back), number, live. Delay before changing back, in units of 10 seconds; 255 for never, until a restart."
  - "C(changeover.live.default_inlet), choice, live. Preferred inlet until a restart."
  - "C(macro.N), macro line. Instruction of the macro program at address N, two bytes in hexadecimal."
  # made by make-docs: end
"""

EXAMPLES = r"""
- name: One name and one time server
  kestrane.mdu.settings:
    unit: 10.0.0.7
    settings:
      network.unit_name: Rack 7
      network:
        time_server: 10.0.0.1

- name: A standard for all units, with the community from the vault
  kestrane.mdu.settings:
    unit: "{{ ansible_host }}:{{ mdu_port | default(1243) }}"
    src: [standard.mdu.json]
    identity: false
    secrets:
      snmp.read_community: "{{ vault_community }}"
"""

RETURN = r"""
result:
  description: What came of it, C(same), C(different) (check mode), C(changed), C(refused), C(failed).
  returned: always, once the unit was asked
  type: str
changes:
  description: Each setting that differs, with C(key), C(before), C(after) and C(state).
  returned: as result
  type: list
  elements: dict
left_alone:
  description: Settings that differ and were left alone, with C(key) and C(why).
  returned: as result
  type: list
  elements: dict
"""

import json

from ansible.module_utils.basic import AnsibleModule

from ansible_collections.kestrane.mdu.plugins.module_utils import cli

# States of a change that did not come about, or of which nobody knows.
NOT_DONE = ("not taken", "not begun")


def refuse_open_secrets(module):
    """Nothing secret may stand where Ansible logs it."""
    line = [module.params["executable"], "settings", "--json"]
    status, stdout, stderr = cli.run(module, line)
    if status != 0:
        module.fail_json(msg="the settings can't be listed: " + cli.complaint(stderr))
    secret = {row["key"] for row in json.loads(stdout) if "secret" in row["flags"]}
    settings = cli.nested(module.params["settings"])
    found = [(key, value) for key, value in cli.flat(settings) if key in secret]
    if found:
        module.no_log_values.update(str(value) for _, value in found if value)
        names = ", ".join(sorted(key for key, _ in found))
        module.fail_json(msg="secret, give it under \"secrets\": " + names)


def call_words(module, path):
    """The arguments of apply."""
    params = module.params
    words = list(params["src"])
    words += [path] if path else []
    words += ["--json", "--yes"]
    for prefix in params["only"]:
        words.append("--only=" + prefix)
    for prefix in params["except"]:
        words.append("--except=" + prefix)
    for flag in ("identity", "live", "reset"):
        if params[flag]:
            words.append("--" + flag)
    if params["undo"] and not module.check_mode:
        words.append("--undo=" + params["undo"])
    if module.check_mode:
        words.append("--dry-run")
    return words


def as_diff(changes):
    """The changes as two texts, a line for each setting; two secrets would look alike."""
    def shown(change, side):
        alike = side == "after" and change["before"] == change["after"]
        return json.dumps(change[side], ensure_ascii=False) + (" (changed)" if alike else "")

    def text(side):
        return "".join("%s: %s\n" % (change["key"], shown(change, side)) for change in changes)
    return {"before": text("before"), "after": text("after")}


def main():
    """The module."""
    arguments = dict(
        cli.UNIT_ARGUMENTS,
        settings=dict(type="dict", default={}),
        secrets=dict(type="dict", default={}, no_log=True),
        src=dict(type="list", elements="path", default=[]),
        only=dict(type="list", elements="str", default=[]),
        identity=dict(type="bool", default=True),
        live=dict(type="bool", default=False),
        undo=dict(type="path"),
        reset=dict(type="bool", default=False),
    )
    arguments["except"] = dict(type="list", elements="str", default=[])
    module = AnsibleModule(argument_spec=arguments, supports_check_mode=True)
    refuse_open_secrets(module)
    wanted = cli.nested(module.params["settings"])
    cli.merge(wanted, cli.nested(module.params["secrets"]))
    if not wanted and not module.params["src"]:
        module.fail_json(msg="nothing is wanted: give settings, secrets or src")
    path = cli.write_configuration(module, wanted) if wanted else None
    status, stdout, stderr = cli.run(module, cli.command(module, "apply", *call_words(module, path)))
    try:
        report = json.loads(stdout)
    except ValueError:
        module.fail_json(msg=cli.complaint(stderr), rc=status)
    result = {key: report.get(key) for key in ("result", "changes", "left_alone")}
    changes = result["changes"] or []
    done = [change for change in changes if change["state"] not in NOT_DONE]
    result["changed"] = report["result"] == "different" or (
        report["result"] in ("changed", "failed") and bool(done))
    if module._diff:
        result["diff"] = as_diff(changes)
    if status not in (0, 3):
        module.fail_json(msg=report.get("error") or cli.complaint(stderr), rc=status, **result)
    module.exit_json(**result)


if __name__ == "__main__":
    main()
