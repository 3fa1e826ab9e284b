"""The Fortran module: constants and records as the headers have them, an interface for every form of every function."""
import re

WIDTH = 100
NUMBERS = {"double": "real(c_double)", "long": "integer(c_long)", "unsigned long": "integer(c_long)",
           "uint32_t": "integer(c_int32_t)", "unsigned char": "integer(c_signed_char)", "char": "character(kind=c_char)"}


def bare(text):
    return re.sub(r"/\*.*?\*/|^\s*#.*?$", " ", text, flags=re.S | re.M)


def wrapped(opening, items, closing):
    """A statement over several lines, where it does not fit into one."""
    lines, line = [], opening
    for i, item in enumerate(items):
        piece = item + ("," if i + 1 < len(items) else "")
        if len(line) + len(piece) > WIDTH:
            lines.append(line + " &")
            line = " " * 12
        line += piece + " "
    if len(line) + len(closing) > WIDTH + 20:
        lines.append(line.rstrip() + " &")
        line = " " * 12
    return "\n".join(lines + [line.rstrip() + closing if line.strip() else line + closing])


def constants(text):
    for body in re.findall(r"enum \{(.*?)\}", bare(text), re.S):
        for name, value in re.findall(r"(KL_\w+)\s*=\s*(-?\d+)", body):
            yield f"  integer(c_long), parameter :: {name} = {value}_c_long"


def record(name, body):
    lines = [f"  type, bind(c) :: {name}"]
    for kind, names in re.findall(r"((?:unsigned )?\w+)\s+([^;]+);", body):
        for field in names.split(","):
            field = field.strip()
            shape = ",".join(reversed(re.findall(r"\[(\w+)\]", field)))
            plain = re.sub(r"\[\w+\]|[(*) ]", "", field)
            if "*" in field:
                lines.append(f"    type(c_ptr) :: {plain} = c_null_ptr")
            else:
                start = "" if kind == "char" or kind not in NUMBERS else " = 0"
                lines.append(f"    {NUMBERS.get(kind, f'type({kind})')} :: {plain}{f'({shape})' if shape else ''}{start}")
    return "\n".join(lines + [f"  end type {name}"])


def dummy(declared, arrays, callbacks):
    """One argument: its name and its declaration."""
    const = declared.startswith("const ")
    text = declared.removeprefix("const ")
    kind = re.match(r"(?:unsigned )?\w+", text).group(0)
    rest = text[len(kind):]
    name = re.search(r"(\w+)\s*\)?(?:\[\w*\])*$", rest).group(1)
    stars, sizes = rest.count("*"), re.findall(r"\[(\w*)\]", rest)
    intent = ("intent(in)" if const else "intent(inout)") + ", optional"  # left out: NULL
    if kind in callbacks:
        return name, f"type(c_funptr), value :: {name}"
    if kind == "void" and stars == 1:
        return name, f"type(c_ptr), value :: {name}"
    if stars > 1 or (stars == 1 and sizes == [""]):
        return name, f"type(c_ptr), {intent} :: {name}" + ("(*)" if sizes or name in arrays else "")
    if stars == 0 and not sizes:
        return name, f"{NUMBERS.get(kind, f'type({kind})')}, value :: {name}"
    shape = [s if s.isdigit() else "*" for s in reversed(sizes)]
    if stars == 1 and (name in arrays or name == "ierr" or kind in ("char", "unsigned char")):
        shape.append("*")
    return name, f"{NUMBERS.get(kind, f'type({kind})')}, {intent} :: {name}" + (f"({','.join(shape)})" if shape else "")


def interface(function, form, callbacks):
    declared = form["declaration"]
    returns, name, inside = re.match(r"(.*?)\b(\w+)\((.*)\)$", declared).groups()
    many = {"each", "gives", "both"}
    arrays = {a["name"] for a in function["arguments"] if a["length"]}
    if re.search(r"_n$", name):
        arrays |= {"status"} | {a["name"] for a in function["arguments"] if a["role"] in many}
    dummies = [] if inside == "void" else [dummy(p.strip(), arrays, callbacks) for p in inside.split(",")]
    records = {m for _, d in dummies for m in re.findall(r"type\((kl_\w+)\)", d)}
    kinds = {k for _, d in dummies for k in re.findall(r"\bc_\w+", d)}
    returns = returns.strip()
    result = {"void": None, "long": "integer(c_long)", "const char *": "type(c_ptr)"}[returns]
    kinds |= set(re.findall(r"\bc_\w+", result or ""))
    word = "function" if result else "subroutine"
    lines = [wrapped(f"    {word} {name}(", [n for n, _ in dummies],
                     f') bind(c, name="{name}")')]
    if kinds or records:
        lines.append(wrapped("      import :: ", sorted(kinds) + sorted(records), ""))
    lines += [f"      {d}" for _, d in dummies]
    if result:
        lines.append(f"      {result} :: {name}")
    return "\n".join(lines + [f"    end {word} {name}"])


def module(api, headers, comment):
    """The text of the module from the rows of api.json and the texts of the headers."""
    text = "\n".join(headers)
    records = dict(re.findall(r"typedef struct (\w+) \{(.*?)\} \1;", bare(text), re.S))
    callbacks = set(re.findall(r"typedef [^;()]*\(\*(\w+)\)\(|typedef [\w ]*?(\w+)\([^;]*\);", bare(text)))
    callbacks = {name for pair in callbacks for name in pair if name}
    calls = [interface(f, form, callbacks) for f in api["functions"] if f["place"] == "public" for form in f["forms"]]
    return "\n".join([
        "! The library for Fortran 2018: the C functions, by their names. An argument that is left out is NULL to the library;",
        "! matrices come with the second index first; a text ends with c_null_char.",
        f"! {comment}", "module kitlib", "  use, intrinsic :: iso_c_binding", "  implicit none", "  public", "",
        *constants(text), "", *[record(n, b) for n, b in records.items()], "", "  interface", *calls, "  end interface",
        "end module kitlib", ""])
