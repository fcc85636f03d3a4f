"""Runs the script of the help page by mujs and looks whether its search shows what it should."""

import json
import re
import subprocess
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

RUNNER = Path(__file__).with_name("help_search.js")

# what is typed, parts that have to be found, parts that must not be shown
QUERIES = [
    ("ticks restart", ["odd-ticks", "data-set"], ["act-sound", "lock"]),
    ("bare root", ["act-move", "odd-move"], ["act-delete", "odd-ticks"]),
    ("folder row N/A", ["odd-folder-na", "list-na"], ["act-sound", "mail-account"]),
    ("n/a CHECK drive", ["list-na", "odd-folder-na"], ["lock"]),
    ('"Run-time error \'53\'"', ["data-recover", "odd-delete-log"], ["tray-icon"]),
    ("deletes for good", ["act-delete", "files"], ["events"]),
    ("percent slider", ["space-percent"], ["act-mail"]),
    ("STARTTLS 587", ["mail-setup"], ["space-kb"]),
    ("forgot password", ["answer-lock"], ["mail-account"]),
    # A heading above a part counts as its own words.
    ("known oddities pause", ["odd-pause-check", "odd-pause-action"], ["act-pause", "tray-menu"]),
    ("  mail   server  ", ["mail-account"], ["keys"]),
    ("How do I unlock it with the password?", ["lock"], ["mail-account", "tray-icon"]),
    ("what do the alerts mean", ["alerts-texts"], ["page-programs"]),
    ("to the", ["start-watch"], []),
    # The last one finds nothing.
    ("velociraptor", [], ["start", "odd-ticks", "keys"]),
]


def model_of(element):
    children = [element.text] if element.text else []
    for child in element:
        children.append(model_of(child))
        if child.tail:
            children.append(child.tail)
    return {"name": element.tag.upper(), "attributes": dict(element.attrib), "children": children,
            "text": "".join(element.itertext())}


def run_script(text):
    """What the page shows for each query, for a link to a hidden part, and for an address."""
    root = ET.fromstring(re.sub(r"^\s*<!DOCTYPE html>", "", text))
    script = "".join("".join(each.itertext()) for each in root.iter("script"))
    with tempfile.TemporaryDirectory() as scratch:
        paths = []
        for name, content in (("model.json", json.dumps(model_of(root))), ("script.js", script),
                              ("queries.json", json.dumps([query for query, _, _ in QUERIES]))):
            paths.append(str(Path(scratch, name)))
            Path(paths[-1]).write_text(content, encoding="utf-8")
        result = subprocess.run(["mujs", str(RUNNER), *paths], capture_output=True, text=True,
                                timeout=60)
    if result.returncode != 0 or result.stderr:
        raise RuntimeError(result.stderr.strip() or f"mujs ended with status {result.returncode}")
    return [json.loads(line) for line in result.stdout.splitlines()]


def faults_of_query(shown, found, hidden):
    faults = [f"doesn't find #{name}" for name in found if name not in shown["found"]]
    faults += [f"shows #{name}" for name in hidden if name in shown["found"] + shown["around"]]
    visible = set(shown["found"] + shown["around"])
    faults += [f"the contents show #{name}" for name in shown["links"] if name not in visible]
    said = "Nothing found" if not found else "part"
    if said not in shown["said"]:
        faults.append(f"says '{shown['said']}'")
    if not shown["form"]:
        faults.append("the box for the search stays hidden")
    return faults


def faults_of_search(text):
    """A list of (what was typed, the faults)."""
    try:
        results = run_script(text)
    except (OSError, RuntimeError, subprocess.TimeoutExpired) as fault:
        return [("the page's script", [str(fault)])]
    checks = [(f"search for '{query}'", faults_of_query(shown, found, hidden))
              for (query, found, hidden), shown in zip(QUERIES, results)]
    link, address = results[len(QUERIES):]
    sections = re.findall(r'<section id="([^"]+)"', text)
    checks.append(("a link to a hidden part",
                   [] if sorted(link["found"]) == sorted(sections) else ["doesn't show everything again"]))
    checks.append(("an address with words", [] if "space-percent" in address["found"]
                   and "lock" not in address["found"] else ["doesn't search"]))
    return checks
