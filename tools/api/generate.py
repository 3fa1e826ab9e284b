#!/usr/bin/env python3
"""Writes what follows from the table of functions, api/*.toml: run.sh, or run.sh --check to compare only.

The row format is described in api/README.md. Of a file that is partly written by hand only what stands under one of the
marks below is replaced; the other files are wholly generated and say so in their first lines.
"""
import glob
import json
import os
import re
import sys
import textwrap

try:
    import tomllib
except ModuleNotFoundError:  # Python before 3.11: Debian's python3-tomli
    import tomli as tomllib

import python_package

BY = "Written by tools/api/generate.py from the table in api/."
WIDTH = 120
N_PUBLIC, UNASSIGNED, N_FUNCTIONS = 48, 40, 175
IN_ROLES = ("context", "select", "fixed", "each", "in", "value")
HANDLES = ("kl_time_id", "kl_model_id")


# ---- the table ----------------------------------------------------------------------------------------------------

class Argument:
    """One argument: role, name, type, unit, meaning."""

    def __init__(self, role, name, type_, unit="", meaning=""):
        self.role, self.name, self.type, self.unit, self.meaning = role, name, type_, unit, meaning
        self.base, _, rest = type_.partition("[")
        self.length = rest.rstrip("]") or None  # as written: a number, a constant, or the name of a count
        self.reads = role in IN_ROLES

    def declared(self, array=False):
        """The C parameter, of the scalar function or of its array form."""
        const = "const " if self.reads and self.base not in HANDLES and self.type != "char[][512]" else ""
        per_element = array and self.role in ("each", "gives", "both")
        if self.role == "value":
            return f"{self.base} {self.name}"
        if self.type == "char[][512]":
            return f"char {self.name}[][512]"
        if self.type.startswith("char *["):
            return f"const char *const {self.name}[]"
        if self.length and self.length.isdigit():
            return f"{const}{self.base} {self.name}{'[]' if per_element else ''}[{self.length}]"
        return f"{const}{self.base}{'' if self.base.endswith('*') else ' '}*{self.name}"


class Condition:
    """One condition: constant, text, when it is recorded, and what is out of the ordinary about it."""

    def __init__(self, function, code, name, text, when="", more=None):
        more = dict(more or {})
        self.function, self.code, self.text, self.when = function, code, text, when
        self.constant = f"{function.prefix}_{name}"
        warns = more.pop("severity", "warning" if re.search(r"(^|_)WARN$", name) else "error") == "warning"
        self.severity = 1 if warns else -1
        placeholder = re.search(r"%(l?i|ld|l?f|s)", text)
        kinds = {"i": "long", "d": "long", "f": "double", "s": "text"}
        self.value = more.pop("value", kinds[placeholder.group(1)[-1]] if placeholder else "none")
        self.bit = more.pop("bit", code)
        self.never = more.pop("never", False)
        self.named = more.pop("named", None)
        if more:
            raise SystemExit(f"{function.name}: {self.constant}: unknown {', '.join(more)}")

    def comment(self):
        return ": ".join(x for x in (("never recorded" if self.never else ""), self.when) if x)


class Function:
    """One row of the table."""

    KEYS = ("ids summary arguments conditions prefix reports_as returns vector run array class place documented constant"
            " note sample").split()

    def __init__(self, name, row, subject):
        unknown = [key for key in row if key not in self.KEYS]
        if unknown:
            raise SystemExit(f"{name}: unknown {', '.join(unknown)}")
        self.name, self.subject = name, subject
        self.public, self.internal = row.get("ids", {}).get("public"), row.get("ids", {}).get("internal")
        self.place = row.get("place", "public")
        self.reported = row.get("reports_as", name)
        self.summary, self.note = row.get("summary", ""), row.get("note", "")
        self.returns, self.vector = row.get("returns", "long"), row.get("vector", 1)
        self.run, self.array, self.member = row.get("run", False), row.get("array", False), row.get("class")
        self.sample = row.get("sample", {})
        self.constant = row.get("constant", re.sub("^(kl|KL)_", "", self.reported).upper())
        self.prefix = row.get("prefix", "KL_" + re.sub("^(kl|KL)_", "", self.name).upper())
        self.arguments = [Argument(*argument) for argument in row.get("arguments", [])]
        conditions = row.get("conditions", [])
        self.like = conditions if isinstance(conditions, str) else None  # those of another function, by its constants
        self.conditions = [] if self.like else [Condition(self, code, *c) for code, c in enumerate(conditions)]
        self.documented = row.get("documented")
        self.context = [a for a in self.arguments if a.role == "context"]
        if (self.array or self.member is not None) and not self.uniform():
            raise SystemExit(f"{name}: array and class want context, select, fixed, each, gives and both alone")

    def uniform(self):
        return all(a.role in ("context", "select", "fixed", "each", "gives", "both") for a in self.arguments)

    def parameters(self, run=False, array=False):
        """The C parameters of the function, its run twin, its array form or the twin of that."""
        own = [a.declared(array) for a in self.arguments if not (run and a in self.context)]
        at = 0 if run else len(self.context)
        if array:
            for i in range(len(own) - 1, at - 1, -1):  # texts have their width before them
                a = [x for x in self.arguments if not (run and x in self.context)][i]
                if a.role in ("each", "gives", "both") and a.base in ("char", "unsigned char"):
                    own.insert(i, f"const long *{a.name}_width" if self.several_texts() else "const long *width")
            own.insert(at, "const long *n")
            own.append("long *status")
        if self.vector:
            own.append("long ierr[2]" if self.vector == 2 else "long *ierr")
        return (["const long *run_id"] if run else []) + own

    def several_texts(self):
        return sum(a.base in ("char", "unsigned char") and a.role in ("each", "gives", "both") for a in self.arguments) > 1

    def forms(self):
        """Every exported function of the row, with its parameters."""
        found = [(self.name, self.parameters())]
        if self.run:
            found.append((self.name + "_run", self.parameters(run=True)))
        if self.array:
            found.append((self.name + "_n", self.parameters(array=True)))
        if self.array and self.run:
            found.append((self.name + "_run_n", self.parameters(run=True, array=True)))
        return found


class Table:
    def __init__(self, folder):
        self.functions, self.family, self.data = [], [], []
        for path in sorted(glob.glob(os.path.join(folder, "*.toml"))):
            subject = os.path.basename(path)[:-5]
            with open(path, "rb") as file:
                rows = tomllib.load(file)
            self.family += rows.pop("family", [])
            self.data += rows.pop("data", [])
            self.functions += [Function(name, row, subject) for name, row in rows.items()]
        for f in self.functions:
            if f.like:
                f.conditions = next(other for other in self.functions if other.name == f.like).conditions
            f.documented = len(f.conditions) if f.documented is None else f.documented
        self.public = [f for f in self.functions if f.place == "public"]
        self.by_internal = one_each((f.internal, f) for f in self.functions if f.internal is not None)
        self.by_public = one_each((f.public, f) for f in self.functions if f.public is not None)

    def placed(self, place):
        return [f for f in self.functions if f.place == place]


def one_each(pairs):
    found = {}
    for key, function in pairs:
        if key in found:
            raise SystemExit(f"{function.name}: id {key} is that of {found[key].name}")
        found[key] = function
    return found


# ---- C text -------------------------------------------------------------------------------------------------------

def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def wrapped(start, items, end):
    """start(item, item, ...)end in lines of at most WIDTH, continued under the first item."""
    lines, line = [], start
    for i, item in enumerate(items):
        piece = item + ("," if i + 1 < len(items) else end)
        if len(line) + len(piece) + (line != start and not line.endswith("(")) > WIDTH and line.strip():
            lines.append(line)
            line = " " * len(start) + piece
        else:
            line += ("" if line == start else " ") + piece
    return "\n".join(lines + [line if items else start + end])


def declaration(function, name, parameters):
    return wrapped(f"KL_API {function.returns} {name}(", parameters or ["void"], ");")


def enumeration(rows):
    """Constants with their numbers and comments, one a line."""
    lines = [(f"    {name} = {value}," if value is not None else f"    {name},", comment) for name, value, comment in rows]
    lines[-1] = (lines[-1][0].rstrip(","), lines[-1][1])
    width = max(len(text) for text, _ in lines)
    long_ones = any(width + len(comment) + 10 > WIDTH for _, comment in lines)
    out = []
    for text, comment in lines:
        if comment and long_ones:
            out += textwrap.wrap(f"/** {comment} */", WIDTH - 4, initial_indent="    ", subsequent_indent="     * ")
        out.append(text if long_ones or not comment else f"{text.ljust(width)} /**< {comment} */")
    return "enum {\n" + "\n".join(out) + "\n};\n"


def public_constants(function):
    rows = [(c.constant, c.bit, c.comment()) for c in function.conditions]
    rows.append((function.prefix + "_N_CODES", len(function.conditions), ""))
    return enumeration(rows)


def generated(comment, text):
    return f"{comment[0]} {text}\n{comment[0]} {BY}{comment[1]}\n"


# ---- headers ------------------------------------------------------------------------------------------------------

def subject_header(text, functions):
    """Puts the conditions of each function above its contract and the row's arguments into its declaration."""
    text = re.sub(r"/\*\* Conditions of [^*]*\*/\nenum \{.*?\};\n\n?", "", text, flags=re.S)
    for f in functions:
        declared = re.search(rf"^KL_API [\w ]+?\*? ?{f.name}\([^;]*\);\n", text, re.M)
        if not declared:
            raise SystemExit(f"include/kl/{f.subject}.h: no `KL_API {f.returns} {f.name}();` under a contract comment")
        text = text[:declared.start()] + declaration(f, f.name, f.parameters()) + "\n" + text[declared.end():]
        if f.conditions and not f.like:
            at = text.rfind("/**", 0, declared.start())
            note = f"; {f.note}" if f.note else ""
            block = f"/** Conditions of {f.name}, from api/{f.subject}.toml{note}. */\n" + public_constants(f) + "\n"
            text = text[:at] + block + text[at:]
    return text


def between(text, name, new):
    """The text between the marks of a block."""
    begin, end = f"/* >>> {name}: {BY} */\n", "/* <<< */\n"
    start = text.find(begin)
    if start < 0:
        raise SystemExit(f"mark missing: {begin}")
    start += len(begin)
    return text[:start] + new + text[text.index(end, start):]


def public_ids(table):
    rows = []
    for i in range(N_PUBLIC):
        f = table.by_public.get(i)
        if f is None:
            continue
        words = "two words of error vector" if f.vector == 2 else ""
        other = f.name if f.reported != f.name and f.reported.startswith("kl_") else ""
        rows.append((f"KL_ID_FUNC_{f.constant}", i, words or other))
    return enumeration(rows)


def family_conditions(table):
    """Constants of the functions of kl_family.h; two that share their names share the constants."""
    return constants_of(f for f in table.placed("family") if f.conditions)


def constants_of(functions, count=False):
    groups = {}
    for f in functions:
        for c in f.conditions:
            names, values = groups.setdefault(f.prefix, ([], {}))
            if f.name not in names:
                names.append(f.name)
            if values.setdefault(c.constant, (c.bit, c.comment()))[0] != c.bit:
                raise SystemExit(f"{c.constant} has two values")
    return "\n".join(f"/** Conditions of {', '.join(names)}. */\n"
                     + enumeration([(constant, bit, comment) for constant, (bit, comment) in values.items()]
                                   + ([(prefix + "_N_CODES", len(values), "")] if count else []))
                     for prefix, (names, values) in groups.items())


def header(path, purpose, includes, body):
    guard = "KL_" + re.sub(r"\W", "_", re.sub("^include/|^src/", "", path)).upper()
    guard = guard.replace("KL_KL_", "KL_")
    return (f"/**\n * @file {os.path.basename(path)}\n * {purpose}\n * {BY}\n */\n#ifndef {guard}\n#define {guard}\n\n"
            + "".join(f'#include "{i}"\n' for i in includes)
            + f'\n#ifdef __cplusplus\nextern "C" {{\n#endif\n\n{body}\n#ifdef __cplusplus\n}}\n#endif\n\n#endif\n')


def context_words(f):
    words = {"model_id": "model", "time_id": "time", "sat_id": "satellite"}
    names = [words[a.name] for a in f.context]
    return " and ".join(names) + (" ids" if len(names) > 1 else " id")


def run_twins_header(table):
    body = textwrap.dedent("""\
        /*
         * Each is the function without _run, called with the ids of a run: same arguments, outputs, conditions, public function
         * id and status. Without such a run they return KL_ERR at once, with the error vector as it was and nothing printed;
         * only the two of the on-board clocks call on with satellite id -1, whose condition is then in the vector. A run
         * without a model id works with the default models.
         */

        """)
    functions = [f for f in table.public if f.run]
    for f in functions:
        body += f"/** {f.name} with the {context_words(f)} of a run. */\n"
        body += declaration(f, f.name + "_run", f.parameters(run=True)) + "\n"
    includes = sorted({f"kl/{f.subject}.h" for f in functions})
    return header("include/kl/run_twins.h", "Functions that take a run in place of their leading ids.", includes, body)


def arrays_header(table):
    functions = [f for f in table.public if f.array]
    body = ""
    for f in functions:
        body += f"/** {f.name} for n elements. */\n" + declaration(f, f.name + "_n", f.parameters(array=True)) + "\n"
        if f.run:
            body += f"/** {f.name}_n with the {context_words(f)} of a run. */\n"
            body += declaration(f, f.name + "_run_n", f.parameters(run=True, array=True)) + "\n"
    includes = sorted({f"kl/{f.subject}.h" for f in functions}) or ["kl/types.h"]
    return header("include/kl/arrays.h", "Functions for many elements at once: the rules are those of kl/array_rules.h.",
                  includes, body)


# ---- sources ------------------------------------------------------------------------------------------------------

def function_ids(table):
    out = generated(("//", ""), "Internal function ids: indices of the message table.")
    out += "#ifndef KL_SRC_ERRORS_FUNCTION_IDS_H\n#define KL_SRC_ERRORS_FUNCTION_IDS_H\n\nenum {\n"
    for i, f in sorted(table.by_internal.items()):
        out += f"    KL_FN_{f.constant} = {i},\n"
    return out + f"\n    KL_N_FUNCTIONS = {N_FUNCTIONS}\n}};\n\n#endif\n"


def inside_conditions(table):
    return (generated(("//", ""), "Conditions of the functions that nobody outside the library sees.")
            + "#ifndef KL_SRC_ERRORS_CONDITIONS_H\n#define KL_SRC_ERRORS_CONDITIONS_H\n\n"
            + constants_of([f for f in table.placed("inside") + table.placed("reserved") if f.conditions], True)
            + "\n#endif\n")


def message_table(table):
    kinds = {"none": "", "long": "kLongArgument", "double": "kDoubleArgument", "text": "kTextArgument"}
    out = generated(("//", ""), "The message table: every function by its id, with the texts of its conditions in code order.")
    out += '#include "errors/function_ids.h"\n#include "errors/messages.h"\n\n#include <iterator>\n\n'
    out += "// clang-format off\nnamespace {\n\n"
    for i, f in sorted(table.by_internal.items()):
        if not f.conditions:
            continue
        out += f"constexpr Message k{i}[] = {{ // {f.reported}\n"
        for c in f.conditions:
            arguments = [quoted(c.text)] + ([kinds[c.value] or "kNoArgument"] if c.value != "none" or c.named else [])
            arguments += [quoted(c.named)] if c.named else []
            call = f"{'warning' if c.severity > 0 else 'error'}({', '.join(arguments)})"
            if c.bit != c.code:
                call += f".at_bit({c.bit})"
            out += f"    {call}, // {c.constant}{': ' + c.comment() if c.never else ''}\n"
        out += f"}};\nconstexpr MessageGroup kGroup{i} = group(k{i});\n\n"
    out += "constexpr FunctionMessages kFunctions[] = {\n"
    for i in range(N_FUNCTIONS):
        f = table.by_internal.get(i)
        public = f.public if f and f.public is not None else UNASSIGNED if i == 0 else -1
        group = f"&kGroup{i}" if f and f.conditions else "nullptr"
        out += f"    /* {i:3} */ {{{quoted(f.reported if f else '')}, {group}, {public}}},\n"
    out += "};\nstatic_assert(std::size(kFunctions) == KL_N_FUNCTIONS);\n\n"
    out += "// Internal id, words of error vector and number of documented codes, by public id.\n"
    out += "constexpr PublicRow kPublicRows[] = {\n"
    for i in range(N_PUBLIC):
        f = table.by_public.get(i)
        row = f"{{KL_FN_{f.constant}, {f.vector}, {f.documented}}}" if f else "{0, 0, 0}"
        out += f"    /* {i:2} */ {row},{'' if f else ' // unassigned'}\n"
    out += f"}};\nstatic_assert(std::size(kPublicRows) == KL_N_PUBLIC_IDS);\n\n}} // namespace\n\n"
    return out + ("const FunctionMessages &function_messages(int function_id)\n{\n    return kFunctions[function_id];\n}\n\n"
                  "const PublicRow &public_row(int public_id)\n{\n    return kPublicRows[public_id];\n}\n")


def definition(function, name, parameters):
    return wrapped(f"{function.returns} {name}(", parameters, ")") + "\n{\n"


def run_twins(table):
    out = generated(("//", ""), "The twins of public functions that take a run in place of their leading ids.")
    out += '#include "runs/with_run.h"\n\n// clang-format off\n'
    for f in [f for f in table.public if f.run]:
        for array in [False, True] if f.array else [False]:
            suffix = "_n" if array else ""
            names = [re.search(r"(\w+)(\[\w*\])*$", p).group(1) for p in f.parameters(array=array)]
            out += "\n" + definition(f, f.name + "_run" + suffix, f.parameters(run=True, array=array))
            if [a.name for a in f.context] == ["sat_id"]:
                names[0] = "&sat_id"
                out += "    const long sat_id = satellite_of(run_id);\n"
                out += f"    return {f.name}{suffix}({', '.join(names)});\n}}\n"
                continue
            given = [a.name for a in f.context]
            handles = ", ".join(f"kl_{h} *{h if h in given else ''}".rstrip() for h in ("model_id", "time_id"))
            out += f"    return with_run(run_id, [=]({handles}) {{\n"
            out += wrapped(f"        return {f.name}{suffix}(", names, ");") + "\n    });\n}\n"
    return out


# ---- LibFunc ------------------------------------------------------------------------------------------------------

CPP = {"double": "double", "long": "long", "double[3]": "Vector", "double[4]": "Quaternion", "double[9]": "Matrix",
       "long[4]": "TransportTime", "char": "TextArgument", "char[KL_TIME_ASCII_LENGTH]": "TimeText",
       "unsigned char[KL_CUC_LENGTH]": "CucTime"}
IDS = {"model_id": "ModelId", "time_id": "TimeId", "sat_id": "SatId"}


def address(type_, name):
    """What C gets of a value of CPP."""
    kind = CPP.get(type_, type_)
    return {"TextArgument": f"{name}.c_str()", "TimeText": f"{name}.text"}.get(
        kind, f"{name}.data()" if "[" in type_ else f"&{name}")


def fields(text):
    """'State pos=pos_out vel=vel_out' as type and {argument: field}."""
    kind, *pairs = text.split()
    return kind, {argument: field for field, argument in (pair.split("=") for pair in pairs)}


class Member:
    """A function as member of LibFunc: its parameters, its result and how it makes the call."""

    def __init__(self, f, run):
        self.f, self.run, more = f, run, f.member
        words = f.name[3:].split("_")
        self.name = more.get("name", words[0] + "".join(word.capitalize() for word in words[1:]))
        groups = {name: fields(text) for name, text in more.get("takes", {}).items()}
        gives = [a for a in f.arguments if a.role == "gives"]
        self.parameters, self.values, self.before = [], [], ""
        if run:
            self.parameters.append("const RunId &run")
            self.values.append("&run_id")
            self.before = "    const long run_id = run.getRunId();\n"
        taken = set()
        self.result, result_fields = "void", {}
        if "returns" in more:
            self.result, result_fields = fields(more["returns"])
        elif len(gives) == 1:
            self.result = CPP.get(gives[0].type, gives[0].type)
        for a in f.arguments:
            group = next((g for g, (_, of) in groups.items() if a.name in of), None)
            if a.role == "context":
                if not run:
                    self.parameters.append(f"const {IDS[a.name]} &{a.name}")
                    self.values.append("&satellite" if a.name == "sat_id" else f"{a.name}.getId()")
            elif a.role == "fixed":
                self.values.append("&kProcessing")
            elif a.role == "gives":
                out = f"out.{result_fields[a.name]}" if a.name in result_fields else "out"
                self.values.append(address(a.type, out))
            elif group:
                if group not in taken:
                    self.parameters.append(f"const {groups[group][0]} &{group}")
                taken.add(group)
                self.values.append(address(a.type, f"{group}.{groups[group][1][a.name]}"))
            else:
                kind = CPP.get(a.type, a.type)
                by_value = kind in ("double", "long", "TextArgument")
                self.parameters.append(f"{kind} {a.name}" if by_value else f"const {kind} &{a.name}")
                self.values.append(address(a.type, a.name))
        self.values.append("ierr")

    def declared(self):
        return wrapped(f"    static {self.result} {self.name}(", self.parameters, ");")

    def defined(self):
        call = f"{self.f.name}{'_run' if self.run else ''}("
        out = wrapped(f"{self.result} LibFunc::{self.name}(", self.parameters, ")") + f"\n{{\n{self.before}"
        out += f"    return result_of<{self.result}>(\"LibFunc::{self.name}\", {decoded(self.f)}, "
        out += f"[&]({self.result} &out, long *ierr) {{\n"
        return out + wrapped(f"        return {call}", self.values, ");") + "\n    });\n}\n"


def decoded(f):
    return f"KL_ID_FUNC_{f.constant}" if f.public is not None else "kUnassigned"


def members(table):
    for f in table.public:
        if f.member is not None:
            yield from (Member(f, run) for run in ([False, True] if f.run else [False]))


def plain(f):
    """The form with C arrays: name, parameters, arguments of the call."""
    return (Member(f, False).name, [a.declared() for a in f.arguments], [a.name for a in f.arguments] + ["ierr"])


def lib_func_header(text, table):
    out = ""
    for f in table.public:
        if f.member is None:
            continue
        out += f"    /** {f.summary}. */\n"
        for run in [False, True] if f.run else [False]:
            out += Member(f, run).declared() + "\n"
        if f.member.get("plain"):
            name, parameters, _ = plain(f)
            out += wrapped(f"    static void {name}(", parameters, ");") + "\n"
    return between(text, "members that only forward", out + "    ")


def lib_func_source(table):
    out = generated(("//", ""), "The members of LibFunc that only forward.")
    out += '#include "objects/forward.h"\n#include "orbkit/lib_func.hpp"\n\n// clang-format off\nnamespace ORBKIT {\n'
    for member in members(table):
        out += "\n" + member.defined()
        if member.f.member.get("plain"):
            name, parameters, values = plain(member.f)
            out += "\n" + wrapped(f"void LibFunc::{name}(", parameters, ")")
            out += f"\n{{\n    require(\"LibFunc::{name}\", {decoded(member.f)}, "
            out += f"[&](long *ierr) {{ return {member.f.name}({', '.join(values)}); }});\n}}\n"
    return out + "\n} // namespace ORBKIT\n"


# ---- tests, symbols, JSON -----------------------------------------------------------------------------------------

def every_function(table, samples):
    """One valid call of each function whose arguments have samples; the others are made by hand."""
    out = f"// One valid call of each function. {BY}\n"
    for f in table.public:
        if f.sample == "by hand" or not f.uniform() or any(a.role == "both" for a in f.arguments):
            continue
        doubles = longs = texts = 0
        values = {}
        for a in f.arguments:
            if a.role == "gives" and a.base == "double":
                values[a.name], doubles = f"w.a + {doubles}", doubles + int(a.length or 1)
            elif a.role == "gives" and a.base == "long":
                values[a.name], longs = f"w.fields + {longs}", longs + int(a.length or 1)
            elif a.role == "gives" and a.base == "char":
                values[a.name], texts = f"w.text[{texts}]", texts + 1
            elif a.role == "gives":
                values[a.name] = "w.octets" if a.base == "unsigned char" else f"w.record<{a.base}>()"
            else:
                found = f.sample.get(a.name) or samples["names"].get(a.name) or samples["types"].get(a.type)
                if not found:
                    raise SystemExit(f"{f.name}: no sample for {a.name}: tests/support/samples.toml, or sample = \"by hand\"")
                values[a.name] = found
        vector = ", w.ierr" if f.vector else ""
        flags = "false" if not f.vector else "true" if f.conditions else "true, false"
        def row(name, given):
            return f'{{"{name}", [](World &w) {{ return w.call({", ".join([name] + given)}{vector}); }}, {flags}}},\n'
        out += row(f.name, list(values.values()))
        if f.run:
            out += row(f.name + "_run", ["&w.run"] + [v for n, v in values.items() if n not in [a.name for a in f.context]])
    return out


def condition_rows(table):
    """Every condition as a caller meets it: for the test of all conditions."""
    kinds = {"none": "", "long": "0", "double": "0.000000", "text": ""}
    out = f"# {BY} Bit -1: in no vector. Values are those of a NULL argument.\n"
    out += "internal id;public id;words;code;bit;severity;name in the text;text\n"
    for i, f in sorted(table.by_internal.items()):
        for c in f.conditions:
            text = re.sub(r"%(l?i|ld|l?f|s)", kinds[c.value], c.text, count=1) if c.value != "none" else c.text
            public = f.public if f.public is not None else -1
            bit = c.bit if public >= 0 else -1
            out += f"{i};{public};{f.vector};{c.code};{bit};{c.severity};{c.named or f.reported};{text}\n"
    return out


def symbols(table):
    names = [name for f in table.public for name, _ in f.forms()] + [f.name for f in table.placed("family")]
    names += table.family + table.data
    if len(set(names)) != len(names):
        raise SystemExit("twice: " + ", ".join(sorted({n for n in names if names.count(n) > 1})))
    return "".join(name + "\n" for name in sorted(names))


def api_json(table):
    rows = []
    for f in table.functions:
        rows.append({
            "name": f.name, "place": f.place, "subject": f.subject, "public_id": f.public, "internal_id": f.internal,
            "reported_as": f.reported, "summary": f.summary, "returns": f.returns, "error_vector_words": f.vector,
            "forms": [{"name": n, "declaration": f"{f.returns} {n}({', '.join(p) or 'void'})"} for n, p in f.forms()]
            if f.place == "public" else [],
            "arguments": [{"role": a.role, "name": a.name, "type": a.base, "length": a.length, "unit": a.unit,
                           "meaning": a.meaning} for a in f.arguments],
            "conditions": [c.constant for c in f.conditions],
        })
    return json.dumps({"comment": BY, "functions": rows}, indent=1, ensure_ascii=False) + "\n"


def conditions_json(table):
    rows = [{"constant": c.constant, "function": f.reported, "public_id": f.public, "internal_id": i, "code": c.code,
             "bit": c.bit if f.public is not None else None, "severity": "warning" if c.severity > 0 else "error",
             "text": c.text, "value": c.value, "never_recorded": c.never, "when": c.when}
            for i, f in sorted(table.by_internal.items()) for c in f.conditions]
    return json.dumps({"comment": BY, "conditions": rows}, indent=1, ensure_ascii=False) + "\n"


# ---- all of it ----------------------------------------------------------------------------------------------------

def outputs(table):
    def old(path):
        with open(path, encoding="utf-8") as file:
            return file.read()
    with open("tests/support/samples.toml", "rb") as file:
        samples = tomllib.load(file)
    for subject in sorted({f.subject for f in table.public}):
        path = f"include/kl/{subject}.h"
        text = subject_header(old(path), [f for f in table.public if f.subject == subject])
        yield path, text
    yield "include/kl/types.h", between(old("include/kl/types.h"), "public function ids", public_ids(table))
    yield "include/kl/run_twins.h", run_twins_header(table)
    yield "include/kl/arrays.h", arrays_header(table)
    yield "include/kl_family.h", between(old("include/kl_family.h"), "conditions", family_conditions(table))
    yield "src/errors/function_ids.h", function_ids(table)
    yield "src/errors/conditions.h", inside_conditions(table)
    yield "src/errors/message_table.cpp", message_table(table)
    yield "src/runs/run_twins.cpp", run_twins(table)
    yield "include/orbkit/lib_func.hpp", lib_func_header(old("include/orbkit/lib_func.hpp"), table)
    yield "src/objects/lib_func_forwards.cpp", lib_func_source(table)
    yield "src/exported_symbols.txt", symbols(table)
    yield "tests/support/every_function.inc", every_function(table, samples)
    yield "tests/data/conditions.csv", condition_rows(table)
    yield "api/api.json", api_json(table)
    yield "api/conditions.json", conditions_json(table)
    yield from python_package.outputs(table)


def main():
    os.chdir(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
    check = "--check" in sys.argv[1:]
    stale = []
    for path, text in list(outputs(Table("api"))):
        try:
            with open(path, encoding="utf-8") as file:
                same = file.read() == text
        except FileNotFoundError:
            same = False
        if not same:
            stale.append(path)
            if not check:
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "w", encoding="utf-8") as file:
                    file.write(text)
    if check and stale:
        raise SystemExit("not what tools/api/run.sh writes: " + " ".join(stale))
    print("api: " + ("as the table says" if not stale else "written: " + " ".join(stale)))


if __name__ == "__main__":
    main()
