"""Finds the texts that the sources hold for people.

Screens write them as qsTr("..."). In C++ a text is whatever is written for a parameter or a field of the type
Text::English: in calls of the lookups, in calls of what hands its argument on to them, and in tables."""

import re
from dataclasses import dataclass, field

from cpptokens import is_sign, pieces, tokens_of, top_level, unquoted

TYPE = "English"


class Unclear(Exception):
    """A place of the sources whose text cannot be told."""


@dataclass
class Text:
    plural: str = ""
    files: list = field(default_factory=list)


@dataclass
class Function:
    parameters: dict  # which of them are texts, by their place
    count: int
    variadic: bool

    def takes(self, count):
        return count == self.count or (self.variadic and count >= self.count - 1)


class Declarations:
    """What takes texts: functions and the fields of structs, by name."""

    def __init__(self):
        self.functions, self.structs = {}, {}

    def __or__(self, other):
        both = Declarations()
        both.structs = self.structs | other.structs
        for name in self.functions.keys() | other.functions.keys():
            both.functions[name] = self.functions.get(name, []) + other.functions.get(name, [])
        return both

    def read(self, name, tokens):
        opened = []
        for at, token in enumerate(tokens):
            if token.kind == "sign" and token.value in "([{":
                opened.append(at)
            elif token.kind == "sign" and token.value in ")]}":
                opened.pop()
            elif token.value == TYPE and token.kind == "name" and tokens[at - 1].value != "using":
                holder = opened[-1] if opened else 0
                if is_sign(tokens, holder, "("):
                    self.add_function(tokens, holder)
                elif is_sign(tokens, holder, "{") and tokens[holder - 2].value == "struct":
                    self.structs[tokens[holder - 1].value] = fields(pieces(tokens, holder, ";")[0])
                else:
                    raise Unclear(f"{name}:{token.line}: a text is neither a parameter nor a field")

    def add_function(self, tokens, opening):
        parameters, _ = pieces(tokens, opening, angles=True)
        texts = {at: each[-1].value for at, each in enumerate(parameters) if any(t.value == TYPE for t in each)}
        variadic = any(token.value == "..." for each in parameters for token in each)
        name = opening - 1
        while is_sign(tokens, opening - 1, "]") and not is_sign(tokens, name, "="):
            name -= 1  # a lambda's name stands before its "= [...]"
        name -= is_sign(tokens, name, "=")
        known = self.functions.setdefault(tokens[name].value, [])
        function = Function(texts, len(parameters), variadic)
        if function not in known:
            known.append(function)

    def names(self):
        of_functions = {name for each in self.functions.values() for f in each for name in f.parameters.values()}
        return of_functions | {name for each in self.structs.values() for name in each.values()}


def fields(statements):
    """The names of a struct's fields that are texts, by their place among all its fields."""
    texts, place = {}, 0
    for statement in statements:
        if statement[0].value in ("using", "enum", "struct", "static", "[") or any(t.value == "(" for t in statement):
            continue
        names = [t.value for at, t in enumerate(statement) if at + 1 == len(statement) or is_sign(statement, at + 1, "=")]
        if any(token.value == TYPE for token in statement):
            texts[place] = names[0]
        place += 1
    return texts


class Texts(dict):
    """Every text with its plural and the files that it stands in, by its English."""

    def __init__(self):
        super().__init__()
        self.filled = set()  # files, and the structs of which they hold a row

    def put(self, name, one, many=""):
        if not one:
            return
        text = self.setdefault(one, Text())
        if many and text.plural and text.plural != many:
            raise Unclear(f'{name}: "{one}" has two plurals')
        text.plural = text.plural or many
        if name not in text.files:
            text.files.append(name)

    def literals(self, name, tokens, known):
        """The texts that an argument can be; none where it is handed on from a place that takes texts."""
        written = [token.value for token in top_level(tokens) if token.kind == "string"]
        if not written and not (tokens[-1].kind == "name" and tokens[-1].value in known):
            raise Unclear(f"{name}:{tokens[0].line}: no text stands here, nor a name of one")
        return written

    def read_calls(self, name, tokens, declared):
        for at, token in enumerate(tokens):
            if token.kind != "name" or token.value not in declared.functions:
                continue
            opening = at + 1
            if is_sign(tokens, opening, "<"):
                opening = next(i for i in range(opening, len(tokens)) if is_sign(tokens, i, ">")) + 1
            if not is_sign(tokens, opening, "("):
                continue
            arguments, _ = pieces(tokens, opening)
            if any(each.value == TYPE for argument in arguments for each in argument):
                continue  # its declaration
            fitting = [f for f in declared.functions[token.value] if f.takes(len(arguments))]
            if not fitting:
                raise Unclear(f"{name}:{token.line}: {token.value} is called as nobody declared it")
            places = max((f.parameters for f in fitting), key=len)
            found = [self.literals(name, arguments[place], declared.names()) for place in places]
            if len(found) == 2 and found[0] and found[1]:
                self.put(name, found[0][0], found[1][0])
            else:
                for text in (text for each in found for text in each):
                    self.put(name, text)

    def read_tables(self, name, tokens, declared):
        for at, token in enumerate(tokens):
            if token.kind == "name" and token.value in declared.structs and tokens[at - 1].value != "struct":
                opening = initialiser(tokens, at + 1)
                if opening is not None:
                    self.read_rows(name, tokens, opening, declared, token.value)

    def read_rows(self, name, tokens, opening, declared, struct):
        values, _ = pieces(tokens, opening)
        if values and is_sign(values[0], 0, "{"):
            for value in values:
                self.read_rows(name, value, 0, declared, struct)
            return
        for place, title in declared.structs[struct].items():
            for at, value in enumerate(values):
                named = is_sign(value, 0, ".")
                if value[1].value == title if named else at == place:
                    for text in self.literals(name, value, declared.names()):
                        self.put(name, text)
                        self.filled.add((name, struct))

    def read_screen(self, name, source):
        for call in re.finditer(r"\bqsTr\(\s*(\"(?:[^\"\\\n]|\\.)*\"\s*\))?", source):
            if not call[1]:
                raise Unclear(f"{name}: qsTr needs one plain text: {source[call.start():call.start() + 40]}")
            self.put(name, unquoted(call[1][:-1].strip()))


def initialiser(tokens, at):
    """Where the values of what is declared from here on begin, if it has any."""
    while at < len(tokens):
        if is_sign(tokens, at, "{"):
            return at
        if is_sign(tokens, at, "(") and is_sign(tokens, at + 1, ")") and is_sign(tokens, at + 2, ">", ","):
            at += 1  # a count in the type of an array
        elif is_sign(tokens, at, "(", ")", ";", "}"):
            return None
        at += 1
    return None


def texts_below(folder):
    """Every text of the sources in a folder."""
    def shown(path):
        return path.relative_to(folder.parent).as_posix()

    code = {path: tokens_of(path.read_text("utf-8"))
            for path in sorted(folder.rglob("*")) if path.suffix in (".h", ".cpp")}
    everywhere = Declarations()
    for path, tokens in code.items():
        if path.suffix == ".h":
            everywhere.read(shown(path), tokens)
    texts = Texts()
    for path, tokens in code.items():
        own = Declarations()
        own.read(shown(path), tokens)
        declared = everywhere | own
        texts.read_calls(shown(path), tokens, declared)
        texts.read_tables(shown(path), tokens, declared)
        for struct in own.structs.keys() - everywhere.structs.keys():
            if (shown(path), struct) not in texts.filled:
                raise Unclear(f"{shown(path)}: no row of {struct} was found")
    for struct in everywhere.structs.keys() - {struct for _, struct in texts.filled}:
        raise Unclear(f"no row of {struct} was found")
    for path in sorted(folder.rglob("*.qml")):
        texts.read_screen(shown(path), path.read_text("utf-8"))
    return texts
