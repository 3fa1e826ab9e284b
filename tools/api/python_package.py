"""The Python part of what follows from the table of functions: enums, records, functions, stubs, and loops in C.

Functions whose arguments are all context, select, fixed, each, gives and both become Python functions over arrays. One with
`array = true` calls kl_f_n; for another python/loops/kitlib_loops.c gets a loop over kl_f with the same parameters.
"""
import glob
import os
import re
import textwrap

BY = "Written by tools/api/generate.py from the table in api/ and the headers in include/kl."

# Classes of constants: name in Python, the constants, what is cut off their names.
ENUMS = [
    ("Time", r"KL_TIME_(UNDEF|TAI|UTC|UT1|GPS)$", "KL_TIME_", "Scales of time."),
    ("Ascii", r"KL_ASCII_\d+$", "KL_", "Layouts of the text of a time."),
    ("Transport", r"KL_TRANS_\d+$", "KL_", "Formats of transport times."),
    ("Frame", "block of KL_BM2000", "KL_", "Reference frames."),
    ("IersFrame", "block of KL_GCRS", "KL_", "Reference frames after the IERS Conventions."),
    ("CalcMode", r"KL_CALC_", "KL_CALC_", "What is computed."),
    ("Planet", "block of KL_MERCURY", "KL_", "Planets."),
    ("ModelKind", "block of KL_MODEL_EARTH", "KL_MODEL_", "Kinds of model, in the order of a ModelId's selections."),
    ("TimeModel", r"KL_TIME_MODEL_", "KL_TIME_MODEL_", "What a time id is made of."),
    ("Quality", r"KL_TIME_QUALITY_", "KL_TIME_QUALITY_", "Quality of a row of a time id."),
    ("CucType", r"KL_CUC_(TIME_FIELD_ONLY|WITH_P_FIELD)", "KL_CUC_", "Is there a P-field?"),
    ("CucEpoch", r"KL_CUC_EPOCH_(?!TIME)\w+", "KL_CUC_", "Epochs of a CUC."),
    ("Interpolation", r"KL_INTERPOL_", "KL_INTERPOL_", "Interpolations of quaternions."),
    ("Elements", r"KL_KEPLER_", "KL_KEPLER_", "Kinds of Keplerian elements."),
    ("LocalFrame", r"KL_ORBITAL_", "KL_ORBITAL_", "Frames on an orbit."),
    ("Shadow", "block of KL_SUNLIGHT", "KL_", "Where a satellite is in the Earth's shadow."),
    ("StarCorrection", "block of KL_STAR_PARALLAX", "KL_STAR_", "Corrections of a star's place; add them."),
    ("Eop", "block of KL_EOP_OCEAN_TIDES", "KL_EOP_", "Short-period corrections of the Earth's orientation; add them."),
]
# Selectors: name in C -> name in Python, class, default ("" for none). A tuple's first word may be f-specific: see selector().
SELECTORS = {
    "time_ref": ("ref", "Time", "Time.UTC"), "time_ref_in": ("ref_in", "Time", "Time.UTC"),
    "time_ref_out": ("ref_out", "Time", "Time.UTC"), "time_ref_default": ("ref", "Time", "Time.UTC"),
    "ascii_id_in": ("fmt_in", "Ascii", "Ascii.ASCII_43"), "ascii_id_out": ("fmt_out", "Ascii", "Ascii.ASCII_43"),
    "trans_id_in": ("fmt_in", "Transport", "Transport.TRANS_0"), "trans_id_out": ("fmt_out", "Transport", "Transport.TRANS_0"),
    "cs": ("cs", "Frame", "Frame.EF"), "cs_in": ("cs_in", "Frame", ""), "cs_out": ("cs_out", "Frame", ""),
    "calc_mode": ("mode", "CalcMode", "None"), "planet_id": ("planet", "Planet", ""),
    "max_degree": ("max_degree", "", "360"), "light_time": ("light_time", "", "1"), "order": ("order", "", ""),
}
SPECIAL = {
    ("kl_quaternions_interpol", "mode"): ("mode", "Interpolation", "Interpolation.SLERP"),
    ("kl_kepl_to_cart", "kind"): ("kind", "Elements", "Elements.OSCULATING"),
    ("kl_cart_to_kepl", "kind"): ("kind", "Elements", "Elements.OSCULATING"),
    ("kl_local_orbital_frame", "kind"): ("kind", "LocalFrame", "LocalFrame.QSW"),
    ("kl_star_radec", "corrections"): ("corrections", "", "7"), ("kl_star_radec", "cs_out"): ("cs_out", "Frame", "Frame.TOD"),
    ("kl_position_on_orbit", "cs"): ("cs", "Frame", ""), ("kl_orbit_sun", "cs"): ("cs", "Frame", ""),
}
RENAMED = {"time": "t", "time_in": "t", "ascii_in": "text", "transport_in": "transport"}
NUMPY = {"double": "f8", "long": "i8"}
HANDLES = {"kl_model_id": "model", "kl_time_id": "time"}
# Functions with another name here; an argument that C reads and writes is then among the results.
NAMES = {"KL_Coticchia_Surace": "geod_to_utm"}
BY_HAND = {"kl_time_obt_to_time", "kl_time_time_to_obt"}  # records that depend on the satellite


# Four longs of 2026-06-21T08:24:05.123456.
TRANSPORT_EXAMPLES = {0: "9668, 30245, 123456, 0", 11: "9668, 30245, 123456, 0", 21: "9668, 30245, 123456, 0", 22: "9668, 30245123, 456, 0",
                      23: "9668, 30245123, 456, 0", 31: "2424, 30245, 8091, 0", 41: "1466065445, 123456, 0, 0", 42: "2424, 30245, 123456, 0"}
LETTERS = [("yyyy", "2026"), ("MMM", "JUN"), ("mm", "06"), ("dd", "21"), ("hh", "08"), ("nn", "24"), ("ss", "05"), ("uuuuuu", "123456")]


# ---- what the headers say -----------------------------------------------------------------------------------------

def headers_with_comments():
    text = ""
    for path in sorted(glob.glob("include/kl/*.h")):
        with open(path, encoding="utf-8") as file:
            text += file.read()
    return text


def headers():
    return re.sub(r"/\*.*?\*/", "", headers_with_comments(), flags=re.S)


def one_line(comment):
    return re.sub(r"\s+(\* )?", " ", comment.strip())


def said_of_constants():
    """What the comment behind each constant says."""
    return {name: one_line(said) for name, said in re.findall(r"(KL_\w+)(?: = -?\w+)?,?[ ]+/\*\*<(.*?)\*/", headers_with_comments(), flags=re.S)}


def said_of_records():
    """Of each record what stands above it, and its fields with what stands behind them: {name: (summary, [(fields, words), ...])}."""
    found = {}
    text = headers_with_comments()
    for above, body, name in re.findall(r"(/\*\*(?:(?!\*/).)*\*/)?\s*typedef struct kl_\w+ \{([^}]*)\} (kl_\w+);", text, flags=re.S):
        rows = []
        for declared, said in re.findall(r"([^;]+);[ ]*(?:/\*\*<(.*?)\*/)?", body, flags=re.S):
            declared = re.sub(r"/\*.*?\*/", "", declared, flags=re.S)
            names = ", ".join(re.findall(r"(\w+)\)?(?:\[\w+\])?\s*(?:,|$)", declared.strip()))
            rows.append((names, one_line(said)))
        found[name] = (one_line(above.strip("/* \n")), rows)
    for old, new in re.findall(r"typedef (kl_\w+) (kl_\w+);", text):
        if old in found:
            found[new] = found[old]
    return found


_members = {}


def python_words(said):
    """Words about C as Python's: names of constants and functions, NULL, the zero behind a text."""
    if not _members:
        for name, _, rows in chosen_enums(headers()):
            for (member, _), constant in zip(rows, constants_of(name)):
                _members[constant] = f"kl.{name}.{member}"
    said = re.sub(r",? (then|and) a NUL\b", "", said)
    said = re.sub(r"; NULL: not asked for$", "", said)
    said = re.sub(r",? or in is NULL$|,? or NULL$|[,;] NULL$", "", said)
    said = re.sub(r"\bNULL\b", "None", said)
    said = said.replace("KL_Eclipse: ", "").replace("KL_TIME_ADD_SUM_ERR", "SUM_ERR").replace("KL_TRANS_*", "kl.Transport").replace("KL_ASCII_*", "kl.Ascii").replace("KL_TIME_*", "kl.Time").replace("KL_CUC_LENGTH", "19")
    said = re.sub(r"\b(KL_(?:\w+_)?[A-Z0-9]+), (_[A-Z0-9]+)( or |, )(_[A-Z0-9]+)", lambda m: ", ".join([m[1], m[1].rpartition("_")[0] + m[2]]) + m[3] + m[1].rpartition("_")[0] + m[4], said)
    said = re.sub(r"\bKL_[A-Z0-9_]+\b", lambda m: _members.get(m[0], m[0]), said)
    return re.sub(r"\bkl_(?=[a-z])", "kl.", said)


def constants_of(class_name):
    """The constants behind the members of a class, in their order."""
    which = next(which for name, which, _, _ in ENUMS if name == class_name)
    blocks = enum_blocks(headers())
    if which.startswith("block of "):
        return [n for n, _ in next((b for b in blocks if any(n == which[9:] for n, _ in b)), [])]
    return [n for b in blocks for n, v in b if re.match(which, n) and not n.endswith(("_ERR", "_WARN", "_N_CODES"))]


def said_of_members(class_name, rows):
    """A line a member, with an instant in the format where there are formats."""
    said, lines, layout = said_of_constants(), [], ""
    for (member, value), constant in zip(rows, constants_of(class_name)):
        words = python_words(said.get(constant, ""))
        if class_name == "Ascii":
            layout = said.get(constant, layout)
            example = layout
            for letters, written in LETTERS:
                example = example.replace(letters, written)
            words = f"{'RRR=' if value % 2 == 0 else ''}{layout}, {'UTC=' if value % 2 == 0 else ''}{example}"
        elif class_name == "Transport":
            words += f"; [{TRANSPORT_EXAMPLES[value]}]"
        if words:
            lines += textwrap.wrap(f"{member}: {words}", 112, initial_indent="    ", subsequent_indent="        ")
    return lines



def enum_blocks(text):
    """Every enumeration as [(constant, value), ...]."""
    blocks = []
    for body in re.findall(r"enum \{(.*?)\}", text, flags=re.S):
        rows, next_value = [], 0
        for item in filter(None, (part.strip() for part in body.split(","))):
            name, _, value = (part.strip() for part in item.partition("="))
            if value and not re.fullmatch(r"-?\d+", value):
                continue
            next_value = int(value) if value else next_value
            rows.append((name, next_value))
            next_value += 1
        blocks.append(rows)
    return blocks


def records(text):
    """Every record as {name: [(field, C type, length or None), ...]}; pointers are void *."""
    found = {}
    for body, name in re.findall(r"typedef struct kl_\w+ \{([^}]*)\} (kl_\w+);", text):
        fields = []
        for member in filter(None, (part.strip() for part in body.split(";"))):
            member = re.sub(r"\s+", " ", member)
            if "*" in member:
                fields.append((re.search(r"\*\s*(\w+)", member).group(1), "pointer", None))
                continue
            type_, names = re.match(r"((?:unsigned |const )?\w+) (.*)", member).groups()
            for one in names.split(","):
                field, length = re.match(r"\s*(\w+)(?:\[(\w+)\])?", one).groups()
                fields.append((field, type_, length))
        found[name] = fields
    for old, new in re.findall(r"typedef (kl_\w+) (kl_\w+);", text):
        if old in found:
            found[new] = found[old]
    return found


def camel(name):
    return "".join(word.capitalize() for word in re.sub("^(kl|KL)_", "", name).split("_"))


def condition_name(f, c):
    """A condition without the prefix of its function, or of the one whose constants it shares."""
    if c.constant.startswith(f.prefix + "_"):
        return c.constant[len(f.prefix) + 1:]
    return c.constant[len(os.path.commonprefix([x.constant for x in f.conditions])):]


# ---- one function -------------------------------------------------------------------------------------------------

class Parameter:
    """One argument as Python sees it."""

    def __init__(self, f, a, known):
        self.a, self.role, self.meaning, self.unit = a, a.role, a.meaning, a.unit
        self.name = RENAMED.get(a.name, a.name)
        self.record = a.base if a.base in known else None
        self.octets, self.text = a.base == "unsigned char", a.base == "char"
        self.length = int(a.length) if a.length and a.length.isdigit() else 0
        self.kind = ("record" if self.record else "octets" if self.octets else "text" if self.text else NUMPY.get(a.base, "?"))
        if a.length and not a.length.isdigit() and not (self.text or self.octets):
            self.kind = "?"  # a length that depends on another argument
        self.zeros = "read in every mode" in a.meaning or (a.name == "margin" and "NULL" not in a.meaning)
        self.optional = a.role == "each" and (a.name in ("vel", "acc", "margin") or "NULL" in a.meaning)
        self.enum = self.default = ""
        if a.role == "select":
            self.name, self.enum, self.default = SPECIAL.get((f.name, a.name)) or SELECTORS.get(a.name, (a.name, "", ""))
            if self.enum == "Frame" and f.name.startswith(("kl_iers", "kl_earth_orientation")):
                self.enum, self.default = "IersFrame", ""
            if a.name == "corrections" and not self.default:
                self.default = "0"


class PythonFunction:
    def __init__(self, f, known):
        self.f, self.name = f, NAMES.get(f.name, f.name[3:])
        self.parameters = [Parameter(f, a, known) for a in f.arguments]
        self.each = [p for p in self.parameters if p.role in ("each", "both")]
        self.select = [p for p in self.parameters if p.role == "select"]
        self.gives = [p for p in self.parameters if p.role == "gives" or (p.role == "both" and f.name in NAMES)]
        self.mode = any(p.a.name == "calc_mode" for p in self.select)
        # A record that is the only argument is given by its fields.
        self.flat = len(self.each) == 1 and self.each[0].record is not None
        if not self.mode or f.name == "kl_position_on_orbit":
            for p in self.each:
                if p.a.name == "vel":
                    p.optional = False
        self.fields = known
        self.result, self.result_fields = self.results()

    def supported(self):
        return all(p.kind != "?" or p.role in ("context", "fixed") for p in self.parameters) and self.f.uniform() \
            and bool(self.gives) and self.f.name not in BY_HAND and self.f.returns == "long"

    def has_texts(self):
        """Does the array form take or give texts, which numpy has in another form?"""
        return self.f.array and bool(self.each) and any(p.text for p in self.each + self.gives)

    def results(self):
        """Name of the result's class and its fields; no class for a single array."""
        names = {}
        own = kind = camel("kl_" + self.name)
        if self.f.member and "returns" in self.f.member:
            kind, *pairs = self.f.member["returns"].split()
            names = {argument: field for field, argument in (pair.split("=") for pair in pairs)}
        fields = []
        for p in self.gives:
            if p.record and len(self.gives) == 1:
                fields += [name for name, _, _ in self.fields[p.record]]
                kind = camel(p.record)
            else:
                # As in C; of sun_pos and pos_out the word that the class has, too. Other words, another class.
                name = re.sub(r"_out$", "", p.a.name)
                word = names.get(p.a.name, name)
                if word not in name.split("_"):
                    word, kind = name, own
                fields.append(word)
        return (kind if len(fields) > 1 else None), fields

    def signature(self, stub=False):
        def typed(name, type_, default):
            if stub:
                return f"{name}: {type_}" + (" = ..." if default else "")
            return name + (f"={default}" if default else "")
        parts = []
        if self.flat:
            for field, _, _ in self.fields[self.each[0].record]:
                parts.append(typed(field, "Numbers | None" if field.endswith("_rate") else "Numbers", "None" if field.endswith("_rate") else ""))
        else:
            optional = False
            for p in self.each:
                optional = optional or p.optional
                type_ = {"text": "Texts", "octets": "Octets", "record": "Record"}.get(p.kind, "Numbers")
                default = "0" if p.a.name == "zone" and p.role == "both" else "None" if optional else ""
                parts.append(typed(p.name, type_ + (" | None" if optional else ""), default))
        if parts:
            parts.append("/")
        parts.append("*")
        for p in self.select:
            type_ = "Record" if p.record else (f"{p.enum} | str | int" if p.enum else "int")
            parts.append(typed(p.name, type_ + (" | None" if p.default == "None" else ""), p.default))
        for p in self.parameters:
            if p.a.base in HANDLES:
                parts.append(typed(HANDLES[p.a.base], {"model": "ModelId | None", "time": "TimeId | None"}[HANDLES[p.a.base]], "None"))
        parts.append(typed("errors", "str", '"raise"'))
        parts.append(typed("return_status", "bool", "False"))
        return ", ".join(parts)

    def docstring(self, examples):
        lines = textwrap.wrap(python_words(self.f.summary) + ".", 112) + [""]
        def item(name, shape, unit, meaning):
            words = ", ".join(x for x in (shape, unit, python_words(meaning)) if x)
            lines.extend(textwrap.wrap(f"{name}: {words}" if words else name, 108, initial_indent="    ", subsequent_indent="        "))
        def shape(p):
            return {"record": f"record {camel(p.record or '')}", "text": "texts", "octets": "octets"}.get(p.kind) or (f"[..., {p.length}]" if p.length else "")
        if self.each:
            lines.append("Arguments, arrays that broadcast against each other:")
        for p in self.each:
            if self.flat:
                item(", ".join(n for n, _, _ in self.fields[p.record]), "", p.unit, p.meaning)
            else:
                item(p.name, shape(p), p.unit, p.meaning + ("; a copy is changed" if p.role == "both" and p not in self.gives else "")
                     + ("; None: 0" if p.optional and p.a.name == "margin" and p.zeros else ""))
        if self.select:
            lines.append("Keywords:")
        for p in self.select:
            what = p.meaning + ("; left out: by the arguments given" if p.default == "None" else "")
            what = re.sub(rf"[,:] (kl\.)?{p.enum}(?=$|;)", "", python_words(what)) if p.enum else what
            item(p.name, f"kl.{p.enum}" if p.enum else f"record {camel(p.record)}" if p.record else "", p.unit, what)
        for p in self.parameters:
            if p.a.base in HANDLES:
                which = HANDLES[p.a.base]
                item(which, {"model": "ModelId", "time": "TimeId"}[which], "", {"model": "None: the default models", "time": "None: the correlation of the package"}[which])
        lines.append("Returns " + (f"{self.result}:" if self.result else "an array, or a number for numbers:"))
        for p, name in zip(self.gives, self.result_fields):
            if p.record and len(self.gives) == 1:
                item(", ".join(self.result_fields), "", p.unit, p.meaning)
            else:
                item(name, shape(p), p.unit, p.meaning)
        rows = [c for c in self.f.conditions if not c.never and "KL_PROC" not in c.when]  # Python has no word for that format
        if rows and self.f.public is not None:
            lines.append("Raises KitError, or warns KitWarning (W):")
            for c in rows:
                item(condition_name(self.f, c) + (" (W)" if c.severity > 0 else ""), "", "", c.when or c.text)
        if not self.f.array:
            lines.append("C has no array form of it: the package's own loop in C calls it once an element.")
        if self.name in examples:
            lines += [""] + examples[self.name].strip().splitlines()
        return "\n".join(("    " + line).rstrip() for line in lines)

    def descriptor(self):
        """The parameters of the array call, in C's order."""
        rows = []
        at = len(self.f.context)
        for i, p in enumerate(self.parameters):
            if i == at:
                rows.append('("n",)')
            if p.role == "context":
                rows.append(f'("{HANDLES[p.a.base]}",)')
            elif p.role == "fixed":
                rows.append('("fixed",)')
            elif p.role == "select":
                rows.append(f'("record", _table.{camel(p.record)}, "{p.name}")' if p.record else f'("select", {"_table." + p.enum if p.enum else None}, "{p.name}")')
            else:
                if p.kind in ("text", "octets"):
                    rows.append(f'("width", {19 if p.octets and p.role == "gives" else 32 if not self.each else 0})')
                if self.flat and p is self.each[0]:
                    rows += [f'("each", "{field}", \'f8\', 0, {field.endswith("_rate")}, False)' for field, _, _ in self.fields[p.record]]
                    continue
                item = f"_table.{camel(p.record)}" if p.record else repr(p.kind)
                role = "inout" if p.role == "both" and p in self.gives else p.role
                rows.append(f'("{role}", "{p.name}", {item}, {p.length}, {p.optional}, {p.zeros})')
        if at == len(self.parameters):
            rows.append('("n",)')
        return rows

    def flat_record(self):
        return f"_table.{camel(self.each[0].record)}" if self.flat else None

    def code(self, examples):
        f = self.f
        symbol = f"kitlib_{f.name}_columns" if self.flat else f"kitlib_{f.name}_texts" if self.has_texts() else f.name + "_n" if f.array else f"kitlib_{f.name}_n"
        out = f'_{self.name} = _Function("{f.name}", "{symbol}", {f.public}, {f.vector}, {self.result + "Result" if self.result else None}, {self.flat_record()}, (\n'
        out += "".join(f"    {row},\n" for row in self.descriptor()) + "))\n\n\n"
        out += f"def {self.name}({self.signature()}):\n"
        out += f'    """{self.docstring(examples).strip()}\n    """\n'
        if self.flat:
            given = "(" + ", ".join(n for n, _, _ in self.fields[self.each[0].record]) + ",)"
        else:
            layout = next((p.name for p in self.select if p.record == "kl_cuc_config"), None)
            given = "(" + "".join((f"_of_layout({p.name}, {layout})" if p.octets and layout else p.name) + ", " for p in self.each).rstrip() + ")"
        select = []
        for p in self.select:
            if p.default == "None" and p.a.name == "calc_mode":
                select.append(f"mode if mode is not None else {self.mode_from()}")
            else:
                select.append(p.name)
        ids = [HANDLES[p.a.base] for p in self.parameters if p.a.base in HANDLES]
        out += f"    return _{self.name}.go({given}, ({''.join(s + ', ' for s in select).rstrip()}), ({''.join(i + ', ' for i in ids).rstrip()}), errors, return_status)\n\n\n"
        return out

    def mode_from(self):
        """The mode when it is left out: 1, by a velocity or rate that is given 2, by an acceleration 3."""
        names = [p.a.name for p in self.each]
        if self.flat:
            rates = [n for n, _, _ in self.fields[self.each[0].record] if n.endswith("_rate")]
            return f"2 if {' or '.join(r + ' is not None' for r in rates)} else 1" if rates else "1"
        least = "2" if "acc" in names and "cs" in [p.a.name for p in self.select] else "2 if vel is not None else 1" if "vel" in names else "1"
        return ("3 if acc is not None else " if "acc" in names else "") + least

    def result_class(self):
        return self.result, self.result_fields

    def stub_result(self):
        if not self.result:
            p = self.gives[0]
            return {"text": "Any", "octets": "Bytes"}.get(p.kind) or (("Longs" if p.kind == "i8" else "Doubles") if p.length else "Any")
        return self.result


# ---- the files ----------------------------------------------------------------------------------------------------

def chosen_enums(text):
    blocks = enum_blocks(text)
    for name, which, cut, doc in ENUMS:
        if which.startswith("block of "):
            rows = next((b for b in blocks if any(n == which[9:] for n, _ in b)), [])
        else:
            rows = [(n, v) for b in blocks for n, v in b if re.match(which, n) and not n.endswith(("_ERR", "_WARN", "_N_CODES"))]
        if rows:
            yield name, doc, [(n[len(cut):] if n.startswith(cut) else n[3:], v) for n, v in rows]


CTYPE = {"double": "c_double", "long": "c_long", "unsigned long": "c_ulong", "uint32_t": "c_uint32", "pointer": "c_void_p", "char": "c_char"}


def table_module(table, text, functions):
    out = f'"""Constants, records and results.\n\n{BY}\n"""\nimport ctypes as _c\nfrom collections import namedtuple as _namedtuple\nfrom enum import IntEnum as _IntEnum\n\n'
    for name, doc, rows in chosen_enums(text):
        lines = said_of_members(name, rows)
        if name == "Transport":
            doc += " Four longs; the examples are 2026-06-21T08:24:05.123456, in GPS where that is the scale."
        doc = f"{doc}\n\n" + "\n".join(lines) + "\n    " if lines else doc
        out += f'\nclass {name}(_IntEnum):\n    """{doc}"""\n\n' + "".join(f"    {n} = {v}\n" for n, v in rows) + "\n"
    known, said = records(text), said_of_records()
    for name, fields in sorted(known.items()):
        if name in HANDLES or name == "kl_crossing":
            continue
        summary, rows = said[name]
        lines = textwrap.wrap(f"{python_words(summary)} The record {name} of C.".strip(), 112, initial_indent="    ", subsequent_indent="    ")
        lines += ["", "    Fields in their order, by position or by name; those that are left out are 0:"]
        for names, words in ((n, w) for n, w in rows if n.split(", ")[0] in [field for field, _, _ in fields]):
            lines += textwrap.wrap(f"{names}: {python_words(words)}" if words else names, 112, initial_indent="        ", subsequent_indent="            ")
        text_of = "\n".join(lines).strip()
        out += f'\nclass {camel(name)}(_c.Structure):\n    """{text_of}\n    """\n\n    _fields_ = [\n'
        for field, type_, length in fields:
            kind = f"_c.{CTYPE[type_]}" if type_ in CTYPE else camel(type_)
            out += f'        ("{field}", {kind}{" * " + length if length else ""}),\n'
        out += "    ]\n\n"
    done = {}
    for f in functions:
        name, fields = f.result_class()
        if name and done.setdefault(name, fields) != fields:
            raise SystemExit(f"python: {f.name}: a result {name} with other fields: {fields}, {done[name]}")
    out += "\n# Results.\n"
    for name, fields in sorted(done.items()):
        out += f'{name}Result = _namedtuple("{name}Result", "{" ".join(fields)}")\n'
    out += "\n# Conditions of each function, by its public id: constant, value in an error vector's code, is it a warning?\nCONDITIONS = {\n"
    for f in table.public:
        if table.by_public.get(f.public) is f:
            rows = [f'("{condition_name(f, c)}", {c.code})' for c in f.conditions]
            out += f'    {f.public}: ("{f.name}", ({"".join(r + ", " for r in rows).rstrip()})),\n'
    return out + "}\n"


def functions_module(functions, examples):
    out = f'"""Functions of the library over arrays.\n\n{BY}\n"""\n'
    out += "# pylint: disable=all\nfrom . import _table\nfrom ._arrays import Function as _Function, of_layout as _of_layout\nfrom ._table import *  # noqa: F403\n"
    names = sorted({f.result + "Result" for f in functions if f.result})
    out += "from ._table import " + ", ".join(names) + "\n\n__all__ = [\n" + "".join(f'    "{f.name}",\n' for f in functions) + "]\n\n"
    for f in functions:
        out += f.code(examples)
    return out.rstrip() + "\n"


def stubs(text, functions, by_hand):
    out = f'"""Types of the package. {BY}"""\nfrom enum import IntEnum\nfrom typing import Any, NamedTuple\nimport ctypes\n\nimport numpy as np\nfrom numpy.typing import ArrayLike, NDArray\n\nfrom . import dask as dask, events as events, plot as plot\n\n'
    out += "Numbers = ArrayLike\nTexts = Any\nOctets = Any\nRecord = Any\nDoubles = NDArray[np.float64]\nLongs = NDArray[np.int64]\nBytes = NDArray[np.uint8]\n\n"
    for name, doc, rows in chosen_enums(text):
        out += f"class {name}(IntEnum):\n" + "".join(f"    {n} = {v}\n" for n, v in rows) + "\n"
    for name, fields in sorted(records(text).items()):
        if name in HANDLES or name == "kl_crossing":
            continue
        members = ", ".join(f"{n}: Any = ..." for n, _, _ in fields)
        out += f"class {camel(name)}(ctypes.Structure):\n" + "".join(f"    {n}: Any\n" for n, _, _ in fields) + f"    def __init__(self, {members}) -> None: ...\n\n"
    done = set()
    for f in functions:
        if f.result and f.result not in done:
            done.add(f.result)
            kinds = {}
            for p, n in zip(f.gives, f.result_fields):
                kinds[n] = "Any" if not p.length or p.record else "Longs" if p.kind == "i8" else "Doubles"
            out += f"class {f.result}Result(NamedTuple):\n" + "".join(f"    {n}: {kinds.get(n, 'Any')}\n" for n in f.result_fields) + "\n"
    for f in functions:
        result = f.stub_result() + ("Result" if f.result else "")
        out += f"def {f.name}({f.signature(stub=True)}) -> {result}: ...\n"
    return out + "\n" + by_hand


def loops(functions, known):
    out = f"""/*
 * Loops over functions of the library that have no array form of their own, with the parameters and the rules that it will
 * have: the union of the vectors, a status an element, NaN, 0 or an empty text for an element that failed.
 * {BY}
 */
#include "kl_lib.h"

#include <math.h>
#include <stddef.h>
#include <string.h>

#define AT(array) ((array) != NULL ? (array) + i : NULL)
#define ROW(array) ((array) != NULL ? (array)[i] : NULL)
#define TEXT(array, width) ((array) != NULL ? (array) + i * *(width) : NULL)

static void fill(double *values, long n)
{{
    long k;
    for (k = 0; values != NULL && k < n; ++k)
        values[k] = NAN;
}}

static void blank(void *octets, const long *width)
{{
    if (octets != NULL)
        memset(octets, 0, (size_t)*width);
}}

static long joined(long so_far, long next)
{{
    return so_far == KL_ERR || next == KL_ERR ? KL_ERR : so_far == KL_WARN || next == KL_WARN ? KL_WARN : KL_OK;
}}

/* Notes what one element gave; the return value is the one of the whole call so far. */
static long noted(long so_far, long one, long i, long *status, long *ierr, const long *word, int words)
{{
    int k;
    if (status != NULL)
        status[i] = one;
    for (k = 0; ierr != NULL && k < words; ++k)
        ierr[k] |= word[k];
    return joined(so_far, one);
}}

/* Clears the vector; 0 when there is nothing to do, then *result is the status of the call. */
static int begun(const long *n, long *ierr, int words, long *result)
{{
    int k;
    for (k = 0; ierr != NULL && k < words; ++k)
        ierr[k] = 0;
    *result = n == NULL || *n < 0 ? KL_ERR : KL_OK;
    return n != NULL && *n > 0;
}}
"""
    for pf in functions:
        f = pf.f
        if f.array:
            continue
        given = []
        after = []
        several = f.several_texts()
        for p in pf.parameters:
            a = p.a
            if p.role not in ("each", "gives", "both"):
                given.append(a.name)
                continue
            width = f"{a.name}_width" if several else "width"
            if p.kind in ("text", "octets"):
                given.append(f"TEXT({a.name}, {width})")
                if p.role != "each":
                    after.append(f"blank(TEXT({a.name}, {width}), {width});")
            elif p.length:
                given.append(f"ROW({a.name})")
                if p.role != "each":
                    after.append(f"fill(ROW({a.name}), {p.length});" if p.kind == "f8" else f"memset({a.name}[i], 0, sizeof {a.name}[i]);")
            else:
                given.append(f"AT({a.name})")
                if p.role != "each" and p.record:
                    after.append(f"memset({a.name} + i, 0, sizeof {a.name}[i]);")
                    after += [f"{a.name}[i].{n}{'[0]' if l else ''} = NAN;" for n, t, l in known[p.record] if t == "double"]
                elif p.role != "each":
                    after.append(f"fill(AT({a.name}), 1);" if p.kind == "f8" else f"{a.name}[i] = 0;")
        before = [f"blank({g}, {re.search(', (.*)[)]', g).group(1)});" for g, p in zip(given, pf.parameters) if p.role == "gives" and p.kind in ("text", "octets")]
        words = max(f.vector, 1)
        name = f"kitlib_{f.name}_n"
        declared = ", ".join(f.parameters(array=True))
        out += f"\nKL_API long {name}({declared});\nlong {name}({declared})\n{{\n    long i, result;\n    if (!begun(n, {'ierr' if f.vector else 'NULL'}, {words}, &result))\n        return result;\n"
        out += f"    for (i = 0; i < *n; ++i) {{\n        long word[{words}] = {{0}};\n        long one;\n"
        out += "".join(f"        {line}\n" for line in before)
        out += f"        one = {f.name}({', '.join(given + (['word'] if f.vector else []))});\n"
        out += f"        result = noted(result, one, i, status, {'ierr' if f.vector else 'NULL'}, word, {words});\n"
        out += "        if (one == KL_ERR) {\n" + "".join(f"            {line}\n" for line in after) + "        }\n    }\n    return result;\n}\n"
    with open("python/loops/texts.inc", encoding="utf-8") as file:
        out += file.read()
    out += "".join(text_loop(pf) for pf in functions if pf.has_texts())
    out += "".join(column_loop(pf) for pf in functions if pf.flat)
    with open("python/loops/by_hand.inc", encoding="utf-8") as file:
        return out + "\n" + file.read()


def column_loop(pf):
    """An array form that takes the fields of its records as columns, block by block; a column that is not there is zeros."""
    f, name, record = pf.f, f"kitlib_{pf.f.name}_columns", pf.each[0]
    fields = pf.fields[record.record]
    if not f.array or any(type_ != "double" or length for _, type_, length in fields):
        raise SystemExit(f"python: {f.name}: a record that is no columns of numbers")
    declared, passed = [], []
    for parameter in f.parameters(array=True):
        argument = re.search(r"(\w+)(\[\w*\])*$", parameter).group(1)
        p = next((p for p in pf.parameters if p.a.name == argument), None)
        declared += [f"const double *{field}" for field, _, _ in fields] if p is record else [parameter]
        varies = p is not None and p.role in ("each", "gives", "both") or argument == "status"
        passed.append("block" if p is record else f"AT({argument})" if varies else {"n": "&count", "ierr": "word"}.get(argument, argument))
    declared, words = ", ".join(declared), max(f.vector, 1)
    out = f"\nKL_API long {name}({declared});\nlong {name}({declared})\n{{\n    {record.record} block[kMostRows];\n    long i, k, count, result;\n"
    out += f"    if (!begun(n, ierr, {words}, &result))\n        return result;\n    memset(block, 0, sizeof block);\n"
    out += f"    for (i = 0; i < *n; i += kMostRows) {{\n        long word[{words}] = {{0}};\n        count = *n - i < kMostRows ? *n - i : kMostRows;\n"
    for field, _, _ in fields:
        out += f"        for (k = 0; {field} != NULL && k < count; ++k)\n            block[k].{field} = {field}[i + k];\n"
    out += f"        result = joined(result, {f.name}_n({', '.join(passed)}));\n"
    out += f"        for (k = 0; ierr != NULL && k < {words}; ++k)\n            ierr[k] |= word[k];\n"
    return out + "    }\n    return result;\n}\n"


def text_loop(pf):
    """An array form that takes and gives texts as numpy has them: block by block, so that each is touched once."""
    f, name = pf.f, f"kitlib_{pf.f.name}_texts"
    taken = next((p for p in pf.parameters if p.text and p.role == "each"), None)
    given = next((p for p in pf.parameters if p.text and p.role == "gives"), None)
    texts = {p.a.name: f.width_of(p.a) for p in (taken, given) if p}
    declared = ", ".join(f.parameters(array=True))
    passed = []
    for parameter in f.parameters(array=True):
        argument = re.search(r"(\w+)(\[\w*\])*$", parameter).group(1)
        p = next((p for p in pf.parameters if p.a.name == argument), None)
        width = next((t for t, w in texts.items() if w == argument), None)
        if width:
            passed.append("&octets_width" if taken and width == taken.a.name else argument)
        elif p is not None and p.text:
            passed.append("octets" if p is taken else "(char *)written")
        elif p is not None and p.role in ("each", "gives", "both") or argument == "status":
            passed.append(f"AT({argument})")
        else:
            passed.append({"n": "&count", "ierr": "word"}.get(argument, argument))
    words = max(f.vector, 1)
    if taken:
        declared = declared.replace(f"const long *{texts[taken.a.name]}", f"const long {texts[taken.a.name]}[2]").replace(f"const char *{taken.a.name}", f"const void *{taken.a.name}")
    if given:
        declared = declared.replace(f"char *{given.a.name}", f"uint32_t *{given.a.name}")
    out = f"\nKL_API long {name}({declared});\nlong {name}({declared})\n{{\n"
    if taken:
        out += "    unsigned char read[kRoom];\n    const char *octets;\n    long octets_width;\n"
    if given:
        out += "    unsigned char written[kMostRows * kWidest];\n"
    out += "    long i, k, count, result;\n"
    out += f"    if (!begun(n, ierr, {words}, &result))\n        return result;\n"
    if given:
        out += f"    if (*{texts[given.a.name]} > kWidest)\n        return KL_ERR;\n"
    out += f"    for (i = 0; i < *n; i += kMostRows) {{\n        long word[{words}] = {{0}};\n        count = *n - i < kMostRows ? *n - i : kMostRows;\n"
    if taken:
        wide = texts[taken.a.name]
        out += f"        octets = octets_of((const char *){taken.a.name} + i * {wide}[0] * {wide}[1], {wide}, count, read, &octets_width);\n"
    out += f"        result = joined(result, {f.name}_n({', '.join(passed)}));\n"
    out += f"        for (k = 0; ierr != NULL && k < {words}; ++k)\n            ierr[k] |= word[k];\n"
    if given:
        out += f"        widened(written, count * *{texts[given.a.name]}, {given.a.name} + i * *{texts[given.a.name]});\n"
    return out + "    }\n    return result;\n}\n"


def outputs(table):
    text = headers()
    known = {name: fields for name, fields in records(text).items() if name not in HANDLES}
    functions = [p for p in (PythonFunction(f, known) for f in table.public if f.uniform()) if p.supported()]
    examples = {}
    with open("python/docstring_examples.txt", encoding="utf-8") as file:
        for block in re.split(r"^\[(?=\w+\]$)", file.read(), flags=re.M)[1:]:
            name, _, body = block.partition("]\n")
            examples[name] = body
    with open("python/by_hand.pyi.inc", encoding="utf-8") as file:
        by_hand = file.read()
    yield "python/kitlib/_table.py", table_module(table, text, functions)
    yield "python/kitlib/_functions.py", functions_module(functions, examples)
    yield "python/kitlib/__init__.pyi", stubs(text, functions, by_hand)
    yield "python/loops/kitlib_loops.c", loops(functions, known)
