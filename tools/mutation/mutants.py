"""Finds the rules of a source file that can be broken, one at a time.

clang's syntax tree says where they are: comparisons, arithmetic, logic, literals, conditions,
statements and results. What is the same after the change for every reader (a negated comparison is
the opposite comparison) is found once.
"""

import dataclasses
import re

from clang.cindex import Config, CursorKind, Index, TranslationUnit, TypeKind

OPPOSITES = {
    "<": ("<=", ">="),
    "<=": ("<", ">"),
    ">": (">=", "<="),
    ">=": (">", "<"),
    "==": ("!=",),
    "!=": ("==",),
    "&&": ("||",),
    "||": ("&&",),
    "+": ("-",),
    "-": ("+",),
    "*": ("/",),
    "/": ("*",),
    "%": ("/",),
    "<<": (">>",),
    ">>": ("<<",),
    "&": ("|",),
    "|": ("&",),
    "^": ("|",),
    "+=": ("-=",),
    "-=": ("+=",),
    "*=": ("/=",),
    "/=": ("*=",),
    "&=": ("|=",),
    "|=": ("&=",),
    "<<=": (">>=",),
    ">>=": ("<<=",),
}
COMPARING = {"<", "<=", ">", ">=", "==", "!=", "&&", "||"}

INTEGERS = {
    TypeKind.CHAR_S,
    TypeKind.CHAR_U,
    TypeKind.SCHAR,
    TypeKind.UCHAR,
    TypeKind.SHORT,
    TypeKind.USHORT,
    TypeKind.INT,
    TypeKind.UINT,
    TypeKind.LONG,
    TypeKind.ULONG,
    TypeKind.LONGLONG,
    TypeKind.ULONGLONG,
}
FLOATS = {TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.LONGDOUBLE}

FUNCTIONS = {
    CursorKind.FUNCTION_DECL,
    CursorKind.CXX_METHOD,
    CursorKind.CONSTRUCTOR,
    CursorKind.DESTRUCTOR,
    CursorKind.CONVERSION_FUNCTION,
    CursorKind.FUNCTION_TEMPLATE,
    CursorKind.LAMBDA_EXPR,
}
STATEMENTS = {
    CursorKind.CALL_EXPR,
    CursorKind.BINARY_OPERATOR,
    CursorKind.COMPOUND_ASSIGNMENT_OPERATOR,
    CursorKind.UNARY_OPERATOR,
    CursorKind.CXX_DELETE_EXPR,
    CursorKind.CXX_THROW_EXPR,
    CursorKind.UNEXPOSED_EXPR,
}
CONSTANT_ONLY = {
    CursorKind.STATIC_ASSERT,
    CursorKind.ENUM_CONSTANT_DECL,
    CursorKind.TEMPLATE_NON_TYPE_PARAMETER,
    CursorKind.TEMPLATE_TYPE_PARAMETER,
}


@dataclasses.dataclass
class Mutant:
    """One rule broken: the text between two offsets replaced by another."""

    path: str  # from the top of the tree
    begin: int
    end: int
    kind: str  # "expression", "condition", "removal" or "result"
    change: str  # in words
    replacement: str
    function: str
    line: int
    number: int = 0

    def place(self):
        return (self.path, self.begin, self.end, self.kind, self.replacement)


class Finder:
    """Walks the syntax tree of one translation unit after the other."""

    def __init__(self, tree, wanted):
        self.tree = tree
        self.wanted = wanted  # whether a path from the top of the tree is to be looked at
        self.texts = {}
        self.found = {}
        self.index = Index.create()

    def text(self, path):
        if path not in self.texts:
            with open(path, "rb") as source:
                self.texts[path] = source.read()
        return self.texts[path]

    def search(self, source, arguments):
        unit = self.index.parse(source, args=arguments, options=TranslationUnit.PARSE_NONE)
        for cursor in unit.cursor.get_children():
            self.visit(cursor, "", None, None)

    def mutants(self):
        ordered = sorted(self.found.values(), key=lambda m: (m.path, m.begin, -m.end, m.change))
        for number, mutant in enumerate(ordered, start=1):
            mutant.number = number
        return ordered

    # --- walking ---------------------------------------------------------------------------------

    def path_of(self, cursor):
        file = cursor.location.file
        if file is None or not file.name.startswith(self.tree + "/"):
            return None
        path = file.name[len(self.tree) + 1 :]
        return path if self.wanted(path) else None

    def visit(self, cursor, function, result, parent):
        if cursor.kind in CONSTANT_ONLY:
            return
        if cursor.kind != CursorKind.NAMESPACE and parent is None or cursor.kind.is_declaration():
            path = self.path_of(cursor)
            if path is None and cursor.kind != CursorKind.NAMESPACE:
                return
        if cursor.kind in FUNCTIONS or cursor.kind == CursorKind.VAR_DECL:
            if self.is_constant(cursor):
                return
        if cursor.kind in FUNCTIONS:
            # The result of a lambda expression is seldom written down.
            lambda_expression = cursor.kind == CursorKind.LAMBDA_EXPR
            result = None if lambda_expression else cursor.result_type.get_canonical()
            function = function if lambda_expression else self.name_of(cursor)
        self.look(cursor, function, result, parent)
        children = list(cursor.get_children())
        if cursor.kind == CursorKind.CASE_STMT:
            children = children[1:]
        for child in children:
            self.visit(child, function, result, cursor)

    @staticmethod
    def name_of(cursor):
        owner = cursor.semantic_parent
        if owner is not None and owner.kind in (
            CursorKind.CLASS_DECL,
            CursorKind.STRUCT_DECL,
            CursorKind.CLASS_TEMPLATE,
        ):
            return f"{owner.spelling}::{cursor.spelling}"
        return cursor.spelling

    def is_constant(self, cursor):
        path = cursor.extent.start.file
        if path is None:
            return False
        begin = cursor.extent.start.offset
        head = self.text(path.name)[begin : begin + 400].decode(errors="replace")
        return re.search(r"\bconstexpr\b", re.split(r"[{;=(]", head)[0]) is not None

    # --- what can be broken ----------------------------------------------------------------------

    def span(self, cursor):
        start, end = cursor.extent.start, cursor.extent.end
        if start.file is None or end.file is None or start.file.name != end.file.name:
            return None
        return start.file.name, start.offset, end.offset

    def source(self, cursor):
        span = self.span(cursor)
        if span is None:
            return None
        name, begin, end = span
        return self.text(name)[begin:end].decode(errors="replace")

    def add(self, cursor, kind, begin, end, replacement, change, function):
        path = self.path_of(cursor)
        if path is None:
            return
        mutant = Mutant(
            path,
            begin,
            end,
            kind,
            change,
            " ".join(replacement.split()),
            function,
            cursor.extent.start.line,
        )
        self.found.setdefault(mutant.place(), mutant)

    def look(self, cursor, function, result, parent):
        if cursor.kind in (CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR):
            self.operator(cursor, function)
        elif cursor.kind == CursorKind.CALL_EXPR and cursor.spelling.startswith("operator"):
            self.operator(cursor, function)
        elif cursor.kind == CursorKind.CALL_EXPR and cursor.spelling in ("min", "max"):
            self.extreme(cursor, function)
        elif cursor.kind == CursorKind.UNARY_OPERATOR:
            self.unary(cursor, function)
        elif cursor.kind in (
            CursorKind.INTEGER_LITERAL,
            CursorKind.FLOATING_LITERAL,
            CursorKind.CHARACTER_LITERAL,
            CursorKind.CXX_BOOL_LITERAL_EXPR,
        ):
            self.literal(cursor, function)
        elif cursor.kind in (
            CursorKind.IF_STMT,
            CursorKind.WHILE_STMT,
            CursorKind.CONDITIONAL_OPERATOR,
        ):
            self.condition(cursor, function)
        elif cursor.kind == CursorKind.RETURN_STMT:
            self.result(cursor, function, result)
        if parent is not None and cursor.kind in STATEMENTS:
            self.statement(cursor, parent, function)

    def operator(self, cursor, function):
        children = sorted(
            (child for child in cursor.get_children() if self.span(child)),
            key=lambda child: child.extent.start.offset,
        )
        span = self.span(cursor)
        if span is None or len(children) < 2:
            return
        left, right = self.span(children[0]), self.span(children[-1])
        text = self.text(span[0])
        if not span[1] == left[1] < left[2] <= right[1] < right[2] == span[2]:
            return
        sign = text[left[2] : right[1]].decode(errors="replace")
        for other in OPPOSITES.get(sign.strip(), ()):
            broken = text[left[1] : left[2]].decode() + f" {other} " + text[right[1] : right[2]].decode()
            change = f"`{sign.strip()}` becomes `{other}`"
            self.add(cursor, "expression", span[1], span[2], broken, change, function)

    def extreme(self, cursor, function):
        text, span = self.source(cursor), self.span(cursor)
        other = {"min": "max", "max": "min"}[cursor.spelling]
        head = f"std::{cursor.spelling}"
        if text and re.match(re.escape(head) + r"[(<]", text):
            change = f"`{head}` becomes `std::{other}`"
            broken = f"std::{other}" + text[len(head) :]
            self.add(cursor, "expression", span[1], span[2], broken, change, function)

    def unary(self, cursor, function):
        text, span = self.source(cursor), self.span(cursor)
        if not text:
            return
        if text.startswith("!"):
            broken, change = f"bool({text[1:]})", "`!` goes"
        elif text.startswith("++"):
            broken, change = "--" + text[2:], "`++` becomes `--`"
        elif text.startswith("--"):
            broken, change = "++" + text[2:], "`--` becomes `++`"
        elif text.startswith("-") or text.startswith("~"):
            broken, change = text[1:], f"`{text[0]}` goes"
        else:
            return
        self.add(cursor, "expression", span[1], span[2], broken, change, function)

    def literal(self, cursor, function):
        text, span = self.source(cursor), self.span(cursor)
        if not text or not re.fullmatch(r"[\w.'\\+]+", text):
            return
        if text in ("true", "false"):
            broken = "false" if text == "true" else "true"
        elif text.startswith("'"):
            broken = f"static_cast<char>({text} + 1)"
        elif text == "1":
            broken = "0"
        elif text == "0":
            broken = "1"
        elif re.match(r"\d", text):
            broken = f"{text} + 1"
        else:
            return
        self.add(cursor, "expression", span[1], span[2], broken, f"`{text}` becomes `{broken}`", function)

    def stripped(self, cursor):
        while cursor.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
            children = list(cursor.get_children())
            if len(children) != 1:
                break
            cursor = children[0]
        return cursor

    def negates_itself(self, cursor):
        """Whether breaking what the expression consists of turns it round already."""
        cursor = self.stripped(cursor)
        text = self.source(cursor) or ""
        if cursor.kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            return True
        if cursor.kind == CursorKind.UNARY_OPERATOR and text.startswith("!"):
            return True
        if cursor.kind in (CursorKind.BINARY_OPERATOR, CursorKind.CALL_EXPR):
            children = [child for child in cursor.get_children() if self.span(child)]
            if len(children) >= 2:
                children.sort(key=lambda child: child.extent.start.offset)
                left, right = self.span(children[0]), self.span(children[-1])
                between = self.text(left[0])[left[2] : right[1]].decode(errors="replace").strip()
                return between in COMPARING - {"&&", "||"}
        return False

    def condition(self, cursor, function):
        condition = next(iter(cursor.get_children()), None)
        if condition is None or not condition.kind.is_expression() or self.negates_itself(condition):
            return
        text, span = self.source(condition), self.span(condition)
        if text and span[0] == cursor.extent.start.file.name:
            self.add(
                condition, "condition", span[1], span[2], f"!({text})", "the condition is negated", function
            )

    def semicolon(self, span):
        rest = self.text(span[0])[span[2] : span[2] + 40]
        match = re.match(rb"\s*;", rest)
        return span[2] + match.end() if match else None

    def result(self, cursor, function, result):
        value = next(iter(cursor.get_children()), None)
        span = self.span(cursor)
        if value is None or span is None or result is None:
            return
        end, text = self.semicolon(span), self.source(value)
        if end is None or not text:
            return
        literal = self.stripped(value).kind in (
            CursorKind.INTEGER_LITERAL,
            CursorKind.FLOATING_LITERAL,
            CursorKind.CXX_BOOL_LITERAL_EXPR,
            CursorKind.CXX_NULL_PTR_LITERAL_EXPR,
        )
        if literal:
            return
        if result.kind == TypeKind.BOOL:
            if self.negates_itself(value):
                return
            broken, change = f"return !({text});", "the result is negated"
        elif result.kind in INTEGERS or result.kind in FLOATS:
            broken, change = f"return ({text}) + 1;", "the result is one more"
        elif result.kind == TypeKind.POINTER:
            broken, change = "return nullptr;", "the result is null"
        elif result.kind == TypeKind.RECORD and text != "{}" and not text.endswith("()"):
            broken, change = "return {};", "the result is a default one"
        else:
            return
        self.add(cursor, "result", span[1], end, broken, change, function)

    def statement(self, cursor, parent, function):
        bodies = {
            CursorKind.COMPOUND_STMT: 0,
            CursorKind.IF_STMT: 1,
            CursorKind.WHILE_STMT: 1,
            CursorKind.CXX_FOR_RANGE_STMT: 1,
            CursorKind.FOR_STMT: 1,
            CursorKind.CASE_STMT: 1,
            CursorKind.DEFAULT_STMT: 0,
        }
        if parent.kind not in bodies:
            return
        span = self.span(cursor)
        if span is None or cursor.extent.start.offset == parent.extent.start.offset:
            return
        if parent.kind == CursorKind.FOR_STMT and list(parent.get_children())[-1] != cursor:
            return
        end, text = self.semicolon(span), self.source(cursor)
        before = self.text(span[0])[: span[1]].rstrip()[-1:]
        if end is None or not text or before not in (b"{", b"}", b";", b")", b":") and not self.text(
            span[0]
        )[: span[1]].rstrip().endswith(b"else"):
            return
        if re.match(r"[A-Z_]+\(|static_cast<void>|\(void\)", text):
            return
        short = " ".join(text.split())
        short = short if len(short) < 60 else short[:57] + "..."
        self.add(cursor, "removal", span[1], end, "", f"`{short}` goes", function)


def use_library(path):
    """Says which libclang to load."""
    Config.set_library_file(path)
