"""Finds the places of a C++ source that one small change makes a mutant of.

A mutation is one of five kinds: a comparison that is turned round or moves its bound, a bound or another number that is one
more, a sign, a condition, a result. The source is read as text: the project's formatting sets blanks around binary operators,
which tells a comparison from a template's brackets.
"""

import re
from dataclasses import dataclass

OPERATORS = {
    "comparison": {" == ": [" != "], " != ": [" == "], " < ": [" <= ", " >= "], " <= ": [" < ", " > "],
                   " > ": [" >= ", " <= "], " >= ": [" > ", " < "]},
    "sign": {" + ": [" - "], " - ": [" + "], " += ": [" -= "], " -= ": [" += "], " * ": [" / "], " / ": [" * "],
             "++": ["--"], "--": ["++"]},
    "condition": {" && ": [" || "], " || ": [" && "]},
    "bound": {"std::min": ["std::max"], "std::max": ["std::min"]},
    "result": {"true": ["false"], "false": ["true"]},
}
# What no program does: comments, preprocessor lines, texts, what only the compiler reads.
SILENT = re.compile(
    r'//[^\n]*|/\*.*?\*/|^[ \t]*#(?:[^\n\\]|\\.)*|R"\((?:.|\n)*?\)"|"(?:[^"\\\n]|\\.)*"|\b\d[\w\']*(?:\.\d+)?'
    r"|'(?:[^'\\\n]|\\.)+'|\bstatic_assert\([^;]*;|\boperator[^\w\s(]+|\bnoexcept\((?:true|false)\)",
    re.M | re.S)
INTEGER = re.compile(r"(?<![\d']\.)\b(?:0[xX][0-9a-fA-F']+|\d[\d']*)(?=[uUlL]*\b)(?!\.\d)")
NEGATION = re.compile(r"!(?=[\w(:])")
CONDITION = re.compile(r"\b(?:else )?(?:if|while) \(")
RESULT = re.compile(r"\breturn ([^;{}]+);")
# These are flipped above, or are what every other result becomes.
NO_OTHER_RESULT = {"true", "false", "0", "nullptr", "std::nullopt", "*this"}


@dataclass(frozen=True)
class Mutation:
    path: str
    kind: str
    start: int  # characters of the source
    end: int
    new: str
    expression: str  # the line, with the change marked in it

    def of(self, source):
        return source[:self.start] + self.new + source[self.end:]

    def __str__(self):
        return f"{self.path}: {self.expression}"


def blanked(source):
    """The source with everything silent as blanks, each character at its place. Numbers stay."""
    def blank(match):
        text = match.group()
        return text if text[0].isdigit() else re.sub(r"[^\n]", " ", text)
    return SILENT.sub(blank, source)


def expression(source, start, end, new):
    """The changed line in one form: {old => new} where it changes."""
    first = source.rfind("\n", 0, start) + 1
    last = source.find("\n", end)
    change = "{" + source[start:end].strip() + " => " + (new.strip() or "nothing") + "}"
    blank = " " if source[start] == " " else ""
    line = source[first:start] + blank + change + blank + source[end:last if last >= 0 else None]
    return re.sub(r"\s+", " ", line).strip()


def closing(code, at):
    """The place of the bracket that closes the one before `at`."""
    depth = 1
    while depth:
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        at += 1
    return at - 1


def one_more(text):
    number = text.replace("'", "")
    value = int(number, 16 if number[:2].lower() == "0x" else 8 if number.startswith("0") and len(number) > 1 else 10)
    return f"0x{value + 1:X}" if number[:2].lower() == "0x" else str(value + 1)


def changes(code):
    """(kind, start, end, new text) of everything that can be changed."""
    for kind, table in OPERATORS.items():
        for old, news in table.items():
            word = r"\b" + re.escape(old) + r"\b" if old[0].isalpha() else re.escape(old)
            for match in re.finditer(word, code):
                yield from ((kind, *match.span(), new) for new in news)
    for match in INTEGER.finditer(code):
        yield "bound", *match.span(), one_more(match.group())
    for match in NEGATION.finditer(code):
        yield "condition", *match.span(), ""
    for match in CONDITION.finditer(code):
        end = closing(code, match.end())
        condition = code[match.end():end]
        # The others have a change of their own that does the same.
        if not re.search(r";|==|!=|&&|\|\||[<>]=? |!|\b(?:auto|const) ", condition):
            yield "condition", match.end(), end, f"!({condition})"
    for match in RESULT.finditer(code):
        if match.group(1) not in NO_OTHER_RESULT:
            yield "result", *match.span(1), "{}"


def mutations(path, source):
    """Every mutation of a source, in order. Bytes outside of ASCII count as characters do."""
    found = {Mutation(path, kind, start, end, new, expression(source, start, end, new))
             for kind, start, end, new in changes(blanked(source))}
    return sorted(found, key=lambda mutation: (mutation.start, mutation.end, mutation.new))
