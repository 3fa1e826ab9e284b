"""Man pages of section 3 from the table of functions and the contract comments of the headers: man_pages.py DIRECTORY."""
import json
import os
import re
import sys

TOP = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")


def read(path):
    with open(os.path.join(TOP, path), encoding="utf-8") as file:
        return file.read()


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\n".join("\\&" + line if line[:1] in ".'" else line for line in text.split("\n"))


def contract(header, name):
    """The comment above the declaration, without its frame."""
    found = re.search(rf"/\*\*((?:(?!\*/).)*)\*/\s*KL_API [^;/]*?\b{name}\(", header, re.S)
    if not found:
        raise SystemExit(f"{name}: no contract comment in its header")
    lines = [re.sub(r"^\s*\* ?", "", line).rstrip() for line in found.group(1).split("\n")]
    return re.sub(r"^@param(\[[a-z,]+\])", r"\1", "\n".join(lines), flags=re.M).replace("@return", "Returns").strip("\n")


def page(function, form, header, version):
    name = form["name"]
    of = f" (a form of {function['name']}(3))" if name != function["name"] else ""
    declaration = re.sub(r", ", ",\n    ", form["declaration"]) + ";"
    lines = [f'.TH {name} 3 "" "KitLib {version}" "Library functions"', ".SH NAME",
             roff(f"{name} - {function['summary'][:1].lower()}{function['summary'][1:]}{of}"),
             ".SH SYNOPSIS", ".nf", ".B #include <kl_lib.h>", "", roff(declaration), ".fi"]
    lines += [".SH DESCRIPTION", ".nf", roff(contract(header, function["name"])), ".fi"]
    rows = [c for c in function["rows"] if not c["never_recorded"]]
    if rows:
        lines.append(".SH ERRORS")
        for c in rows:
            when = f"\n.br\n{roff(c['when'])}" if c["when"] else ""
            lines += [".TP", f".B {roff(c['constant'])}", f"{c['severity']} {c['code']}: {roff(c['text'])}{when}"]
    return "\n".join(lines + [".SH SEE ALSO", "kitlib(1)", ""])


def main():
    to = sys.argv[1]
    os.makedirs(to, exist_ok=True)
    version = ".".join(re.findall(r"^#define KL_VERSION_(?:MAJOR|MINOR|PATCH) (\d+)$", read("include/kl/version.h"), re.M))
    conditions = json.loads(read("api/conditions.json"))["conditions"]
    for function in json.loads(read("api/api.json"))["functions"]:
        if function["place"] != "public":
            continue
        function["rows"] = [c for c in conditions if c["function"] == function["reported_as"]]
        header = read(f"include/kl/{function['subject']}.h")
        for form in function["forms"]:
            with open(os.path.join(to, form["name"] + ".3"), "w", encoding="utf-8") as file:
                file.write(page(function, form, header, version))


if __name__ == "__main__":
    main()
