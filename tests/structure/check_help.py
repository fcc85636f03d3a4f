#!/usr/bin/env python3
"""Checks the help page, dist/velmora.html.

  check_help.py               checks the page that is installed
  check_help.py --self-test   proves on small pages that each kind of fault is found

The page has to be well-formed and complete without a network: each link leads to a part of it, each
picture lies beside it. It names every caption that a user can see, in a term, a heading or bold
letters. Its colours are legible, and its search finds what it should; for that its script is run by
mujs. Prints one line a fault, and counts one check a rule.
"""

import html.parser
import re
import sys
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

from help_captions import visible_captions, shortcut_keys, listed_captions
from help_script import faults_of_search

ROOT = Path(__file__).resolve().parents[2]

VOID = {"br", "col", "hr", "img", "input", "link", "meta", "source", "wbr"}
HEADINGS = ("h1", "h2", "h3", "h4")
# Where a caption stands for itself.
TERMS = {"b", "dt", "th", "q", "h2", "h3", "h4", "strong", "samp"}
LEAST_CONTRAST = 4.5
# Letters and what they stand on, by the names of their colours.
PAIRS = [("ink", "paper"), ("quiet", "paper"), ("link", "paper"), ("title", "paper"),
         ("ink", "panel"), ("head-ink", "head-paper"), ("warn-ink", "warn-paper"),
         ("link", "warn-paper"), ("do-ink", "do-paper"), ("link", "do-paper"),
         ("mark-ink", "mark-paper")]


def plain(text):
    return re.sub(r"\s+", " ", text).strip()


def text_of(element):
    return plain("".join(element.itertext()))


class Tags(html.parser.HTMLParser):
    """Elements that a browser would close in another place than an XML parser does."""

    def __init__(self, text):
        super().__init__()
        self.faults = []
        self.feed(text)

    def handle_startendtag(self, tag, attributes):
        if tag not in VOID:
            self.faults.append(f"line {self.getpos()[0]}: <{tag}/> isn't closed for a browser")

    def handle_starttag(self, tag, attributes):
        if tag in VOID:
            self.faults.append(f"line {self.getpos()[0]}: <{tag}> has to end with />")


class Page:
    def __init__(self, text, folder):
        self.text = text
        self.folder = folder  # where its pictures are looked for
        self.root = ET.fromstring(re.sub(r"^\s*<!DOCTYPE html>", "", text))
        self.parents = {child: parent for parent in self.root.iter() for child in parent}
        self.ids = [each.get("id") for each in self.root.iter() if each.get("id")]
        self.terms = [text_of(each) for each in self.root.iter() if each.tag in TERMS]
        self.style = "".join(text_of(each) for each in self.root.iter("style"))

    def find(self, name):
        return next((each for each in self.root.iter() if each.get("id") == name), None)

    def depth(self, section):
        depth = 0
        while (section := self.parents.get(section)) is not None:
            depth += section.tag == "section"
        return depth

    def check_elements(self):
        return Tags(self.text).faults

    def check_ids(self):
        return [f"#{name} stands for two parts" for name in sorted(set(self.ids))
                if self.ids.count(name) > 1]

    def check_links(self):
        faults = []
        for link in self.root.iter("a"):
            target = link.get("href", "")
            if not target.startswith("#"):
                faults.append(f"'{target}' leads out of the page")
            elif target[1:] not in self.ids:
                faults.append(f"'{target}' leads nowhere")
            if not text_of(link):
                faults.append(f"the link to '{target}' has no words")
        return faults

    def pictures(self):
        return {path for each in self.root.iter() if each.tag in ("img", "source")
                for path in (each.get("src"), each.get("srcset")) if path}

    def check_pictures(self):
        faults = [f"{path} doesn't exist" for path in sorted(self.pictures())
                  if not (self.folder / path).is_file()]
        faults += [f"{each.get('src')} has no words for those who can't see it"
                   for each in self.root.iter("img") if not plain(each.get("alt") or "")]
        used = {Path(path).name for path in self.pictures()}
        return faults + [f"help/{path.name} isn't used" for path in
                         sorted((self.folder / "help").glob("*")) if path.name not in used]

    def check_network(self):
        found = re.findall(r"https?:|//[a-z0-9-]+\.[a-z]|@import|url\(|XMLHttpRequest|fetch\(|<script src",
                           self.text)
        return [f"'{each}' may need a network" for each in found]

    def check_landmarks(self):
        faults = [] if self.root.get("lang") else ["the page has no language"]
        for tag in ("title", "header", "main", "h1"):
            if len(list(self.root.iter(tag))) != 1:
                faults.append(f"there has to be one <{tag}>")
        faults += ["a <nav> has no name" for each in self.root.iter("nav")
                   if not each.get("aria-label")]
        faults += [f"<{each.tag}> has no <label>" for each in self.root.iter("input")
                   if not any(label.get("for") == each.get("id") for label in self.root.iter("label"))]
        return faults + [f"a table begins without headings: {text_of(each)[:40]}"
                         for each in self.root.iter("table") if each.find("thead") is None]

    def sections(self):
        return list(self.root.iter("section"))

    def check_headings(self):
        faults = []
        for section in self.sections():
            wanted = HEADINGS[self.depth(section) + 1]
            if not section.get("id"):
                faults.append(f"a section has no id: {text_of(section)[:40]}")
            if len(section) == 0 or section[0].tag != wanted:
                faults.append(f"#{section.get('id')} doesn't begin with <{wanted}>")
        return faults

    def check_contents(self):
        """The table of contents has the sections of the two upper levels, in their order."""
        wanted = [(section.get("id"), text_of(section[0])) for section in self.sections()
                  if self.depth(section) < 2 and len(section)]
        links = [(link.get("href")[1:], text_of(link)) for nav in self.root.iter("nav")
                 for link in nav.iter("a")]
        faults = [f"the contents lack '{title}' (#{name})" for name, title in wanted
                  if (name, title) not in links]
        faults += [f"the contents have '{title}' (#{name}) and the page hasn't" for name, title in links
                   if (name, title) not in wanted]
        return faults or ([] if links == wanted else ["the contents are in another order"])

    def check_captions(self, captions):
        return [f"nothing says what '{caption}' is" for caption in captions
                if not any(holds(term, caption) for term in self.terms)]

    def check_list(self, name, captions):
        """Each entry of a list on the window is explained where that list is."""
        part = self.find(name)
        if part is None:
            return [f"#{name} is missing"]
        terms = [text_of(each) for each in part.iter() if each.tag in TERMS]
        return [f"#{name} doesn't explain '{caption}'" for caption in captions
                if not any(holds(term, caption) for term in terms)]

    def check_keys(self, keys):
        part = self.find("keys")
        cells = [text_of(each) for each in part.iter("td")] if part is not None else []
        return [f"#keys lacks {key}" for key in keys
                if not any(re.search(rf"(?<![\w+]){re.escape(key)}(?![\w+])", cell) for cell in cells)]

    def schemes(self):
        """The colours by name: the light ones, and over them the dark ones and those of paper."""
        blocks = [dict(re.findall(r"--([\w-]+):\s*(#[0-9a-f]{6})", block))
                  for block in re.findall(r":root\s*\{([^}]*)\}", self.style)]
        return [{**blocks[0], **block} for block in blocks] if blocks else [{}]

    def check_contrast(self):
        faults = []
        for number, colours in enumerate(self.schemes()):
            for ink, ground in PAIRS:
                if ink not in colours or ground not in colours:
                    faults.append(f"scheme {number}: no colour --{ink} or --{ground}")
                elif contrast(colours[ink], colours[ground]) < LEAST_CONTRAST:
                    faults.append(f"scheme {number}: --{ink} on --{ground} has a contrast of "
                                  f"{contrast(colours[ink], colours[ground]):.1f}")
        for words in ("prefers-color-scheme: dark", "@media print"):
            if words not in self.style:
                faults.append(f"no rules for {words}")
        return faults


def holds(term, caption):
    """Whether a term names a caption, alone or beside others."""
    return re.search(rf"(?<!\w){re.escape(caption)}(?!\w)", term) is not None


def brightness(colour):
    parts = [int(colour[at:at + 2], 16) / 255 for at in (1, 3, 5)]
    parts = [part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
    return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2]


def contrast(one, other):
    dark, light = sorted((brightness(one), brightness(other)))
    return (light + 0.05) / (dark + 0.05)


def check_page(text, folder, src=None):
    """A list of (the rule, its faults); `src` holds the fields that the page explains."""
    try:
        page = Page(text, folder)
    except ET.ParseError as fault:
        return [("well-formed", [f"velmora.html: {fault}"])]
    checks = [("well-formed", []), ("elements", page.check_elements()), ("ids", page.check_ids()),
              ("links", page.check_links()), ("pictures", page.check_pictures()),
              ("network", page.check_network()), ("landmarks", page.check_landmarks()),
              ("headings", page.check_headings()), ("contents", page.check_contents()),
              ("contrast", page.check_contrast())]
    if src is not None:
        checks.append(("captions", page.check_captions(visible_captions(src))))
        checks.append(("keys", page.check_keys(shortcut_keys(src))))
        for name, captions in listed_captions(src).items():
            checks.append((f"list of #{name}", page.check_list(name, captions)))
    return checks


def close(checks):
    for rule, faults in checks:
        for fault in faults:
            print(f"{rule}: {fault}")
    failed = sum(1 for _, faults in checks if faults)
    print(f"{len(checks) - failed} passed, {failed} failed")
    return 1 if failed else 0


def check_installed_page():
    path = ROOT / "dist/velmora.html"
    text = path.read_text(encoding="utf-8")
    checks = check_page(text, path.parent, ROOT / "src")
    if len(checks) > 1:
        checks += faults_of_search(text)
    return close(checks)


SMALL = """<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8" /><title>Help</title><style>
:root { --paper: #ffffff; --ink: #000000; --quiet: #505050; --panel: #eeeeee; --link: #0000aa;
--title: #000040; --head-paper: #000040; --head-ink: #ffffff; --warn-paper: #ffffff;
--warn-ink: #000000; --do-paper: #ffffff; --do-ink: #000000; --mark-paper: #ffff00;
--mark-ink: #000000; }
@media (prefers-color-scheme: dark) { } @media print { }
</style></head><body><header><h1>Help</h1></header>
<nav aria-label="Contents"><a href="#one">One</a> <a href="#one-a">Inner</a></nav>
<main><section id="one"><h2>One</h2><p><b>Press</b> it.<br /></p>
<table><thead><tr><th>A</th></tr></thead></table>
<section id="one-a"><h3>Inner</h3><img src="help/a.png" alt="A picture" />
<label for="box">Box</label><input id="box" /></section></section></main></body></html>
"""

FIELDS = {
    "forms/form1.h": 'MenuItem mnuA{*this, "mnuA", "Press"};  // "not this"\n',
    "forms/form1.cpp": 'lstAct(form, "lstAct", {"Press"}), list.addColumn({"Pre" "ss", 1900});\n',
    "rows/watch_columns.cpp": "", "qt/windows/main_window.cpp": "",
}

# name of the case, what is replaced by what (in the page, or in a file of src), beginnings of faults
CASES = [
    ("a page that keeps to the rules", "", "", []),
    ("an element that isn't closed", "</p>", "", ["well-formed: velmora.html:"]),
    ("an element closed as only XML allows", "<b>Press</b>", "<b>Press</b><i/>",
     ["elements: line 10: <i/>"]),
    ("an id twice", 'id="box"', 'id="one"', ["ids: #one", "landmarks: <input>"]),
    ("a link to nothing", 'href="#one-a"', 'href="#two"',
     ["links: '#two'", "contents: the contents lack 'Inner'", "contents: the contents have"]),
    ("a link to the network", "it.", '<a href="http://x">it</a>',
     ["links: 'http://x'", "network: 'http:'"]),
    ("a picture that isn't there", "a.png", "b.png",
     ["pictures: help/b.png doesn't", "pictures: help/a.png isn't"]),
    ("a picture without words", "A picture", " ", ["pictures: help/a.png has"]),
    ("no language", ' lang="en"', "", ["landmarks: the page has no language"]),
    ("two headings of the page", "<p>", "<h1>Two</h1><p>", ["landmarks: there has to be one <h1>"]),
    ("a heading of the wrong level", "<h3>Inner</h3>", "<h4>Inner</h4>", ["headings: #one-a"]),
    ("a section without an id", 'section id="one-a"', "section",
     ["links: '#one-a'", "headings: a section", "contents: the contents lack", "contents: the contents have"]),
    ("a title that the contents lack", "<h3>Inner</h3>", "<h3>Other</h3>",
     ["contents: the contents lack", "contents: the contents have"]),
    ("contents in another order",
     '<a href="#one">One</a> <a href="#one-a">Inner</a>', '<a href="#one-a">Inner</a> <a href="#one">One</a>',
     ["contents: the contents are in another"]),
    ("letters that can't be read", "--quiet: #505050", "--quiet: #909090",
     ["contrast: scheme 0: --quiet on --paper has a contrast of 3."]),
    ("letters that can't be read on dark", "dark) { }", "dark) { :root { --paper: #202020; } }",
     ["contrast: scheme 1: --ink on", "contrast: scheme 1: --quiet on", "contrast: scheme 1: --link on",
      "contrast: scheme 1: --title on"]),
    ("no colours for the dark", "prefers-color-scheme: dark", "all", ["contrast: no rules for"]),
    ("a field that nobody explains", "<b>Press</b>", "Press", ["captions: nothing says what 'Press'"]),
    ("a caption that is part of another word", "<b>Press</b>", "<b>Pressed</b>",
     ["captions: nothing says what 'Press'"]),
    ("an entry of the actions", "forms/action_entries.h", '{act::alert, "Alert me"},',
     ["captions: nothing says what 'Alert me'", "list of #actions: #actions is missing"]),
    ("a heading that only a window has", "qt/windows/options_panel.cpp", 'group(QStringLiteral("Interval"), x)',
     ["captions: nothing says what 'Interval'"]),
    ("a shortcut", "qt/windows/keys.cpp", "add(QKeySequence(Qt::Key_F7)", ["keys: #keys lacks F7"]),
    ("a shortcut of a menu", "qt/windows/keys.cpp", '{"mnuLock", "Alt+Return"},',
     ["keys: #keys lacks Alt+Enter"]),
]


def faults_of(old, new):
    with tempfile.TemporaryDirectory() as scratch:
        fields = {**FIELDS, **({old: new} if "/" in old and old.endswith((".h", ".cpp")) else {})}
        for name, text in {**{f"src/{name}": text for name, text in fields.items()},
                           "help/a.png": ""}.items():
            path = Path(scratch, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        page = SMALL if old in fields else SMALL.replace(old, new) if old else SMALL
        checks = check_page(page, Path(scratch), Path(scratch, "src"))
        return [f"{rule}: {fault}" for rule, faults in checks for fault in faults]


def self_test():
    results = []
    for name, old, new, expected in CASES:
        found = faults_of(old, new)
        fits = len(found) == len(expected) and all(
            fault.startswith(beginning) for fault, beginning in zip(found, expected))
        results.append((name, [] if fits else [f"expected {expected}, found {found}"]))
    # A search that shows the parts with any of the words, or forgets the headings above a part.
    text = (ROOT / "dist/velmora.html").read_text(encoding="utf-8")
    for right, wrong in (("words.every(", "words.some("), ("heading(above)", '""'),
                         ("above.hidden = false", "above.hidden = true")):
        broken = text.replace(right, wrong)
        finds = broken != text and any(faults for _, faults in faults_of_search(broken))
        results.append((f"a search with {wrong}", [] if finds else ["nothing was found"]))
    return close(results)


if __name__ == "__main__":
    sys.exit(self_test() if "--self-test" in sys.argv[1:] else check_installed_page())
