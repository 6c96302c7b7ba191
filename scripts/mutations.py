"""The small deliberate breaks that scripts/mutate tries: where a source file has places for them.

The code is laid out by clang-format, which is relied upon: operators of two operands stand between
blanks, the brackets of templates do not.
"""
import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)|(?P<raw>R"\((?:.|\n)*?\)")|(?P<string>"(?:\\.|[^"\\\n])*")"""
    r"""|(?P<char>'(?:\\.|[^'\\\n])+')|(?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)"""
    r"""|(?P<number>\b(?:0[xX][0-9a-fA-F']+|\d[\d']*(?:\.\d+)?(?:[eE][-+]?\d+)?)[uUlLzZf]*)"""
    r"""|(?P<word>[A-Za-z_]\w*)"""
    r"""|(?P<op><=>|<<=|>>=|->|\+\+|--|&&|\|\||[-+*/%&|^<>=!]=|::|<<|>>|[-+*/%&|^<>=!~?:;,.(){}\[\]])"""
    r"""|(?P<space>\s+)|(?P<other>.)""", re.MULTILINE | re.DOTALL | re.VERBOSE)

BINARY = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||",
          "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&",
          "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
PREFIX = {"++": "--", "--": "++"}
ASSIGNING = {"=", "+=", "-=", "*=", "/=", "|=", "&="}
NO_STATEMENT = {"return", "if", "for", "while", "do", "switch", "case", "default", "break", "else",
                "continue", "throw", "try", "catch", "using", "namespace", "struct", "class",
                "enum", "template", "const", "constexpr", "static", "auto", "typename", "public",
                "private", "protected", "friend", "inline", "static_assert"}
# What is the same as {} wherever it can be returned.
NOTHING = {"{}", "false", "0", "nullptr", "std::nullopt"}
# What signals processes or ends them is left as it is: a change there may reach others.
LEFT_ALONE = re.compile(r"::kill\(|::_exit\(|::abort\(")


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    begin: int
    end: int


@dataclass(frozen=True)
class Mutation:
    """A change of one file: its bytes from `begin` to `end` become `new`."""
    file: str
    line: int    # counted from 1
    place: str   # the line's text, which names the place where others were added or removed
    change: str
    begin: int
    end: int
    new: str

    def applied(self, text):
        return text[:self.begin] + self.new + text[self.end:]

    def key(self):
        return (self.file, self.place, self.change)


def tokens_of(text):
    tokens = []
    for match in TOKEN.finditer(text):
        if match.lastgroup not in ("comment", "space"):
            tokens.append(Token(match.lastgroup, match.group(), match.start(), match.end()))
    return tokens


def partner(tokens, i):
    """The index of the bracket that closes the one at i."""
    depth = 0
    for k in range(i, len(tokens)):
        if tokens[k].text in ("(", "[", "{"):
            depth += 1
        elif tokens[k].text in (")", "]", "}"):
            depth -= 1
            if depth == 0:
                return k
    return len(tokens) - 1


def other_number(number):
    """The text of a number with another value."""
    body = re.fullmatch(r"(0[xX][0-9a-fA-F']+|[\d'.eE+-]+?)([uUlLzZf]*)", number)
    digits, suffix = body.group(1).replace("'", ""), body.group(2)
    if digits.lower().startswith("0x"):
        return hex(int(digits, 16) + 1) + suffix
    if "." in digits or "e" in digits.lower():
        return ("1.0" if float(digits) == 0 else repr(float(digits) * 2)) + suffix
    return str(int(digits, 8 if digits[0] == "0" and len(digits) > 1 else 10) + 1) + suffix


class Finder:
    def __init__(self, file, text):
        self.file, self.text, self.tokens = file, text, tokens_of(text)
        self.lines = text.split("\n")
        self.starts = [0]
        for line in self.lines:
            self.starts.append(self.starts[-1] + len(line) + 1)
        self.found = []
        self.seen = {}

    def line_of(self, offset):
        low, high = 0, len(self.lines)
        while high - low > 1:
            middle = (low + high) // 2
            low, high = (middle, high) if self.starts[middle] <= offset else (low, middle)
        return low

    def place_of(self, line):
        """The text of a line, with its number among those of the same text where there are more."""
        text = self.lines[line].strip()
        alike = [i for i, other in enumerate(self.lines) if other.strip() == text]
        return text if len(alike) == 1 else f"{text}  ({alike.index(line) + 1} of {len(alike)})"

    def add(self, begin, end, new, change):
        line = self.line_of(begin)
        if LEFT_ALONE.search(self.text[begin:end] + self.lines[line]):
            return
        count = self.seen[line, change] = self.seen.get((line, change), 0) + 1
        if count > 1:
            change += f"  (number {count} in the line)"
        self.found.append(
            Mutation(self.file, line + 1, self.place_of(line), change, begin, end, new))

    def replace(self, token, new):
        self.add(token.begin, token.end, new, f"{token.text} -> {new}")

    def is_apart(self, token):
        return self.text[token.begin - 1] in " \n" and self.text[token.end:token.end + 1] in " \n"

    def find(self):
        for i, token in enumerate(self.tokens):
            if token.kind == "op":
                if token.text in BINARY and self.is_apart(token):
                    self.replace(token, BINARY[token.text])
                elif token.text in PREFIX:
                    self.replace(token, PREFIX[token.text])
            elif token.kind == "number":
                self.replace(token, other_number(token.text))
            elif token.text in ("true", "false"):
                self.replace(token, "false" if token.text == "true" else "true")
            elif token.text in ("if", "while") and self.tokens[i + 1].text == "(":
                self.negate(i + 1)
            elif token.text == "return":
                self.return_nothing(i)
            if i > 0 and self.starts_statement(i):
                self.statement(i)
        return self.found

    def negate(self, i):
        """Negates the condition in the parentheses at i, after what declares something in them."""
        last = partner(self.tokens, i)
        first, depth = i + 1, 0
        for k in range(i + 1, last):
            depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(self.tokens[k].text, 0)
            if depth == 0 and self.tokens[k].text == ";":
                first = k + 1
        begin, end = self.tokens[first].begin, self.tokens[last].begin
        self.add(begin, end, f"!({self.text[begin:end]})", "condition negated")

    def return_nothing(self, i):
        end = i + 1
        while end < len(self.tokens) and self.tokens[end].text != ";":
            end = partner(self.tokens, end) + 1 if self.tokens[end].text in "([{" else end + 1
        begin, stop = self.tokens[i].end, self.tokens[min(end, len(self.tokens) - 1)].begin
        if self.text[begin:stop].strip() not in NOTHING | {"", "true"}:
            self.add(begin, stop, " {}", "returns {}")

    def starts_statement(self, i):
        token, before = self.tokens[i], self.tokens[i - 1].text
        if before not in (";", "{", "}", ")", "else", ":"):
            return False
        if token.text in PREFIX:
            return True
        return token.kind == "word" and token.text not in NO_STATEMENT

    def statement(self, i):
        """Leaves a call or an assignment out, and returns before it."""
        k, assigns = i + (self.tokens[i].text in PREFIX), self.tokens[i].text in PREFIX
        calls = False
        while k < len(self.tokens) and self.tokens[k].text != ";":
            token = self.tokens[k]
            if token.text in ASSIGNING and self.is_apart(token):
                assigns = True
            if not assigns:
                # Only what hangs together is the beginning of a call or an assignment.
                if token.kind != "word" and token.text not in ("::", ".", "->", "(", "[", "*"):
                    return
                if k > i and self.text[token.begin - 1] == " ":
                    return
                calls = calls or token.text == "("
            k = partner(self.tokens, k) + 1 if token.text in ("(", "[", "{") else k + 1
            if k < len(self.tokens) and self.tokens[k].text in (")", "}"):
                return
        if k >= len(self.tokens) or not (assigns or calls):
            return
        begin, end = self.tokens[i].begin, self.tokens[k].begin
        self.add(begin, end, "", "left out")
        self.add(begin, begin, "return; ", "return before it")


def mutations_of(file, text):
    """All changes of a file, in its order."""
    return Finder(file, text).find()
