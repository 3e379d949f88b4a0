"""Catalogues of translations: reads and writes their files, and tells where one departs from the sources."""

import re
from collections import Counter
from dataclasses import dataclass, field

from cpptokens import unquoted

ESCAPES = {"\\": "\\\\", '"': '\\"', "\n": "\\n", "\t": "\\t"}


class Unreadable(Exception):
    """A line of a catalogue that is not understood."""


@dataclass
class Entry:
    english: str = ""
    plural: str = ""
    words: dict = field(default_factory=dict)  # by the number of the form
    unsure: bool = False


def read(path):
    """Every entry by its English, without the header."""
    entries, entry, part, unsure = {}, None, None, False
    for number, line in enumerate(path.read_text("utf-8").splitlines(), 1):
        keyword = re.fullmatch(r"(msgid|msgid_plural|msgstr(?:\[(\d)\])?)? *(\".*\")", line)
        if line.startswith("#~"):
            raise Unreadable(f"{path.name}:{number}: an entry that was given up")
        if line.startswith("#,"):
            unsure = unsure or "fuzzy" in line
        elif keyword:
            kind, form, text = keyword[1], int(keyword[2] or 0), unquoted(keyword[3])
            if kind == "msgid":
                entry, unsure = Entry(unsure=unsure), False
            part = (kind, form) if kind else part
            if part[0] == "msgid":
                entry.english += text
            elif part[0] == "msgid_plural":
                entry.plural += text
            else:
                entry.words[form] = entry.words.get(form, "") + text
                entries[entry.english] = entry
        elif line.strip() and not line.startswith("#"):
            raise Unreadable(f"{path.name}:{number}: {line}")
    entries.pop("", None)
    return entries


def quoted(text):
    return '"' + "".join(ESCAPES.get(letter, letter) for letter in text) + '"'


def template(texts):
    """The entries of an empty catalogue, in the order of the sources."""
    blocks = []
    for english, text in texts.items():
        lines = [f"#: {name}" for name in text.files] + [f"msgid {quoted(english)}"]
        if text.plural:
            lines += [f"msgid_plural {quoted(text.plural)}", 'msgstr[0] ""', 'msgstr[1] ""']
        else:
            lines += ['msgstr ""']
        blocks.append("\n".join(lines))
    return "\n\n".join(blocks) + "\n"


def placeholders(text):
    """What is filled in later: "%1" and the like, and "{}" with its place and its form."""
    places, next_place = [], 0
    for place, form in re.findall(r"\{(\d*)(:[^{}]*)?\}", text):
        places.append(f"{{{place or next_place}{form}}}")
        next_place += 1
    numbered = bool(re.search(r"\{\d", text))
    if numbered and re.search(r"\{[:}]", text):
        places.append("numbered and unnumbered ones together")
    return Counter(places + re.findall(r"%\d", text))


def edges(text):
    return text[: len(text) - len(text.lstrip())], text[len(text.rstrip()):]


def faults_of(entry):
    """What is wrong with the words of one entry."""
    if entry.unsure:
        yield "is marked as unsure"
    if not entry.words or not all(entry.words.values()):
        yield "has no words"
        return
    for words in entry.words.values():
        if placeholders(words) != placeholders(entry.english):
            yield f'has other placeholders: "{words}"'
        if edges(words) != edges(entry.english):
            yield f'begins or ends with other blanks: "{words}"'


def differences(texts, entries):
    """How a catalogue departs from the texts of the sources, a sentence each."""
    for english, text in texts.items():
        if english not in entries:
            yield f'lacks "{english}"'
        elif entries[english].plural != text.plural:
            yield f'"{english}" has another plural than in the sources'
    for english, entry in entries.items():
        if english not in texts:
            yield f'has in excess "{english}"'
        else:
            for fault in faults_of(entry):
                yield f'"{english}" {fault}'
