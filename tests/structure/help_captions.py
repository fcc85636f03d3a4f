"""The captions that a user can see, read from the sources of the fields and of their windows."""

import re

LITERAL = r'"((?:[^"\\]|\\.)*)"'
# Longer texts are sentences, which explain themselves.
LONGEST_CAPTION = 60

# Captions of fields that no window shows.
NEVER_SHOWN = {
    # the watch for changes in a folder, which nothing starts
    "Watch Directory For Changes", "Select Directory To Watch...", "Start Watching Dir",
    "Stop Watching Dir",
    # the rates of the drive information, which nothing computes, and a list that nothing fills
    "Free Space Data", "Elapsed Time:", "Rate of Change:", "Free Space on First Start:",
    "Free Space Now:", "Label1", "Top 10",
    # the window behind "Show Recycle Bin", and menus without an effect in the tool bar
    "Schedule Tasks", "Defrag", "Recycle", "Work",
    # beside the window's own cross
    "X",
    # the first title of a window that has another one before it is shown
    "Alert Window - Velmora",
    # the subject of a mail at the beginning, which is a value
    "Karvelle Velmora: system info",
}

# Each finds captions in the first group, or a list of them in braces in a group "list".
IN_FORMS = [
    rf'(?:\*this|form|menus_)\s*,\s*"\w+"\s*,\s*{LITERAL}',
    r'(?:\*this|form)\s*,\s*"\w+"\s*,\s*(?P<list>\{[^{}]*\})',
    rf"addColumn\(\{{\s*{LITERAL}",
    r"for \(const char\* \w+ :\s*(?P<list>\{[^{}]*\})",
    rf"\{{\s*{LITERAL}\s*(?:,\s*(?:\"(?:[^\"\\]|\\.)*\"|\w+)\s*)?\}}",
    rf"\{{act::\w+,\s*{LITERAL}",
    rf"\.Caption = {LITERAL}",
    rf"constexpr const char\* \w+ = {LITERAL}",
    r"std::array (?:\w+::)?\w+(?P<list>\{[^{}]*\})",
    rf'Form\("\w+",\s*{LITERAL}',
]
IN_WINDOWS = [
    r"QString words\[\] = (?P<list>\{[^{}]*\})",
    rf"(?:group|wordFor|addRow)\(\s*QStringLiteral\({LITERAL}",
    rf"\{{{LITERAL}, form\.",
]


def source(path):
    """A file without its comments, with the literals that the compiler joins joined."""
    text = path.read_text(encoding="utf-8")
    text = re.sub(r'//[^\n"]*(?:"[^"\n]*"[^\n"]*)*$', "", text, flags=re.MULTILINE)
    return re.sub(r'"\s*"(?=[^,)}])', "", text)


def caption(literal):
    """As it is shown: a letter to press has no mark, blanks at the ends don't count."""
    text = literal.replace('\\"', '"').replace("\\\\", "\\")
    return re.sub(r"\s+", " ", text.replace("&&", "\0").replace("&", "").replace("\0", "&")).strip()


def captions_in(text, patterns):
    found = []
    for pattern in patterns:
        for match in re.finditer(pattern, text):
            literals = (re.findall(LITERAL, match["list"])
                        if "list" in match.re.groupindex else [match[1]])
            found += [caption(literal) for literal in literals]
    return found


def is_shown(text):
    # Numbers and signs alone are values.
    return (re.search(r"[A-Za-z]", text) is not None and len(text) <= LONGEST_CAPTION
            and text not in NEVER_SHOWN)


def files(src, folder):
    return sorted(path for path in (src / folder).rglob("*") if path.suffix in (".h", ".cpp"))


def visible_captions(src):
    """The captions of all fields, and the words that the windows put beside them; each once."""
    found = []
    # Words for those who can't see a field stand beside no field.
    shown = [path for path in files(src, "forms") if path.stem != "field_words"]
    for path in (*shown, src / "rows/watch_columns.cpp"):
        found += captions_in(source(path), IN_FORMS)
    for path in files(src, "qt/windows"):
        found += captions_in(source(path), IN_WINDOWS)
    return sorted({text for text in found if is_shown(text)})


def entries_of(src, field):
    """The entries of a list of the main window or of the mail settings, where it is constructed."""
    for path in files(src, "forms"):
        match = re.search(rf'(?:\*this|form),\s*"{field}",\s*(\{{[^{{}}]*\}})', source(path))
        if match:
            return [caption(literal) for literal in re.findall(LITERAL, match[1])]
    return []


def listed_captions(src):
    """The entries of the check lists, by the part of the page that explains them."""
    actions = src / "forms/action_entries.h"
    lists = {
        "actions": captions_in(source(actions), [rf"\{{act::\w+,\s*{LITERAL}"])
        if actions.exists() else [],
        "events": entries_of(src, "lstEvt"),
        "mail-content": entries_of(src, "lstNotContent"),
        "mail-times": entries_of(src, "lstNotTime"),
    }
    return {name: captions for name, captions in lists.items() if captions}


def shortcut_keys(src):
    """The keys of the windows' commands: "F5", "Ctrl+L"."""
    keys = set()
    for path in files(src, "qt/windows"):
        text = source(path)
        keys.update(re.findall(r"Qt::Key_(F\d+)\b", text))
        keys.update(re.findall(r'\{"mnu\w+",\s*"([^"]+)"', text))
    return sorted(key.replace("Return", "Enter") for key in keys)
