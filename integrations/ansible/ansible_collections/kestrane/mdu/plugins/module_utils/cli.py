# Copyright: the developers of Kestrane Configuration. MIT License.
"""Calls of kestrane-cli for the modules of this collection."""

from __future__ import annotations

import json
import os
import tempfile

UNIT_ARGUMENTS = dict(
    unit=dict(type="str", required=True),
    executable=dict(type="path", default="kestrane-cli"),
    timeout=dict(type="float"),
    versions_url=dict(type="str"),
)


def command(module, call, *words):
    """The command line of a call on the module's unit."""
    line = [module.params["executable"], call, *words, "--unit=" + module.params["unit"]]
    if module.params["timeout"] is not None:
        line.append("--timeout=%g" % module.params["timeout"])
    if module.params["versions_url"]:
        line.append("--versions-url=" + module.params["versions_url"])
    return line


def run(module, line):
    """Status, standard output and standard error; no status: it could not be started."""
    try:
        return module.run_command(line, encoding="utf-8", errors="replace")
    except Exception as error:  # what run_command raises depends on its version
        module.fail_json(msg="%s could not be run: %s" % (line[0], error))


def complaint(stderr):
    """The error lines without the program's name."""
    lines = [line.split(": ", 1)[-1] for line in stderr.splitlines() if line.strip()]
    return "; ".join(lines) or "no reason was given"


def nested(settings):
    """Keys with dots and nested ones alike, as the nested form of a file."""
    result = {}
    for key, value in settings.items():
        if isinstance(value, dict):
            value = nested(value)
        at = result
        *parents, last = str(key).split(".")
        for parent in parents:
            at = at.setdefault(parent, {})
        if isinstance(value, dict) and isinstance(at.get(last), dict):
            merge(at[last], value)
        else:
            at[last] = value
    return result


def merge(into, other):
    """Puts what `other` holds into `into`, at every depth."""
    for key, value in other.items():
        if isinstance(value, dict) and isinstance(into.get(key), dict):
            merge(into[key], value)
        else:
            into[key] = value


def flat(settings, prefix=""):
    """A list of the dotted keys of a nested dictionary with their values."""
    pairs = []
    for key, value in settings.items():
        name = prefix + str(key)
        pairs += flat(value, name + ".") if isinstance(value, dict) else [(name, value)]
    return pairs


def write_configuration(module, settings):
    """A configuration file for its owner alone, so that no value stands in a command line."""
    descriptor, path = tempfile.mkstemp(suffix=".mdu.json", dir=module.tmpdir)
    module.add_cleanup_file(path)
    with os.fdopen(descriptor, "w", encoding="utf-8") as file:
        json.dump({"format": "kestrane-configuration", "version": 1, "settings": settings}, file)
    return path
