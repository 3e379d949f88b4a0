"""C++ cut into tokens, as far as finding texts needs it."""

import ast
import re
from dataclasses import dataclass

PATTERN = re.compile(
    r"""
    (?P<skipped> \s+ | //[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:[^\n\\]|\\.)* )
  | (?P<raw>     R"(?P<fence>[^()\\\s]*)\((?P<inside>.*?)\)(?P=fence)" )
  | (?P<string>  (?:u8)?"(?:[^"\\\n]|\\.)*" )
  | (?P<char>    '(?:[^'\\\n]|\\.)+' )
  | (?P<number>  \d(?:[\w.]|'(?=\w))* )
  | (?P<name>    [A-Za-z_]\w* )
  | (?P<sign>    :: | -> | \.\.\. | . )
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)
PAIRS = {"(": ")", "[": "]", "{": "}"}


@dataclass
class Token:
    kind: str
    value: str
    line: int


def unquoted(literal):
    """The characters that a plain literal stands for."""
    return ast.literal_eval(literal.removeprefix("u8"))


def tokens_of(source):
    """The tokens, string literals that follow each other joined."""
    tokens, line = [], 1
    for match in PATTERN.finditer(source):
        kind = match.lastgroup if match.lastgroup in ("skipped", "string", "char", "number", "name", "sign") else "raw"
        if kind in ("string", "raw"):
            value = match["inside"] if kind == "raw" else unquoted(match[0])
            if tokens and tokens[-1].kind == "string":
                tokens[-1].value += value
            else:
                tokens.append(Token("string", value, line))
        elif kind != "skipped":
            tokens.append(Token(kind, match[0], line))
        line += match[0].count("\n")
    return tokens


def is_sign(tokens, at, *signs):
    return 0 <= at < len(tokens) and tokens[at].kind == "sign" and tokens[at].value in signs


def pieces(tokens, opening, separator=",", angles=False):
    """What stands between the bracket at `opening` and its partner, cut at the separators of that level; and
    where the partner stands. With `angles`, for declarations, "<" and ">" are brackets as well."""
    found, depth, at = [[]], 0, opening + 1
    while at < len(tokens):
        sign = tokens[at].value if tokens[at].kind == "sign" else ""
        if depth == 0 and sign and sign in ")]}":
            break
        if sign and (sign in PAIRS or (angles and sign == "<")):
            depth += 1
        elif sign and (sign in ")]}" or (angles and sign == ">")):
            depth -= 1
        if depth == 0 and sign == separator:
            found.append([])
        else:
            found[-1].append(tokens[at])
        at += 1
    return [piece for piece in found if piece], at


def top_level(tokens):
    """The tokens that stand inside no bracket."""
    depth = 0
    for token in tokens:
        closes = token.kind == "sign" and token.value in ")]}"
        depth -= closes
        if depth == 0 and not closes and not (token.kind == "sign" and token.value in PAIRS):
            yield token
        depth += token.kind == "sign" and token.value in PAIRS
