#!/usr/bin/python
# Copyright: the developers of Kestrane Configuration. MIT License.
"""Reads a Kestrane MDU."""

from __future__ import annotations

DOCUMENTATION = r"""
module: facts
short_description: Read a Kestrane MDU
description:
  - Reads every setting of a unit, its macro, its type, serial number and firmware. Writes nothing.
  - Runs C(kestrane-cli backup) on the machine where the module runs, usually the controller
    (C(ansible_connection=local)). What is secret is left out.
options:
  unit:
    description: HOST or HOST:PORT of the unit.
    type: str
    required: true
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
    description: It never changes anything.
author: The developers of Kestrane Configuration
"""

EXAMPLES = r"""
- name: Read the unit
  kestrane.mdu.facts:
    unit: 10.0.0.7

- name: Show its serial number
  ansible.builtin.debug:
    var: ansible_facts.kestrane_mdu.unit.serial
"""

RETURN = r"""
ansible_facts:
  description: The configuration, as the file of a backup holds it.
  returned: success
  type: dict
  contains:
    kestrane_mdu:
      description: C(unit) (type, serial, firmware), C(settings) nested by key, C(left_out) by key.
      type: dict
"""

import json

from ansible.module_utils.basic import AnsibleModule

from ansible_collections.kestrane.mdu.plugins.module_utils import cli


def main():
    """The module."""
    module = AnsibleModule(argument_spec=dict(cli.UNIT_ARGUMENTS), supports_check_mode=True)
    status, stdout, stderr = cli.run(module, cli.command(module, "backup"))
    if status != 0:
        module.fail_json(msg=cli.complaint(stderr), rc=status)
    backup = json.loads(stdout)
    facts = {key: backup.get(key, {}) for key in ("unit", "settings", "left_out")}
    module.exit_json(changed=False, ansible_facts={"kestrane_mdu": facts})


if __name__ == "__main__":
    main()
