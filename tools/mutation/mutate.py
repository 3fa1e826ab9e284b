"""Do the tests notice a change of the code? One mutant at a time, drawn from the operators and numbers of src/.

Usage: mutate.py [--count 200] [--seed 1] [--only GLOB] [--folders A,B] [--jobs N] [--fresh] [--sanitize] [--list]

A mutant swaps + and -, * and /, < and <=, > and >=, == and !=, && and ||, changes a number by one or in its last digit,
or drops a sign. Three in ten change numbers, one in ten a table of numbers. In a private copy of the newest commit the
library is built with it and asked by the tests of its own folder, then by those of the others, the quick ones first, each
built when its turn comes, up to the first failure; a crash or a hang is one too. Warnings are errors. Of the mutants
drawn those come first that cost little to build. With --sanitize what survives is built once more with the address and
undefined-behaviour sanitizers, for the tests of its folder. Mutants that do not compile or leave the library's code as
it was are replaced by the next and not counted.
Everything lies in build/mutation: tree (the copy), state.jsonl (what has been found; the next start goes on from there,
on the same commit), survivors.txt.
"""
import argparse
import bisect
import fnmatch
import hashlib
import json
import os
import random
import re
import resource
import signal
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
WORK = ROOT / "build/mutation"
TREE = WORK / "tree"
BUILD = TREE / "build/release"
SANITIZED = TREE / "build/asan"
STATE = WORK / "state.jsonl"
FOLDERS = re.search(r"foreach\(folder (.*?)\)", (ROOT / "tests/CMakeLists.txt").read_text(), re.S)[1].split()
ASKED_FOR = {"ephemerides": "bodies", "wiring": "errors"}  # folders of src/ without tests of their name

TABLE_NUMBERS = 16  # braces with as many numbers and no statement are a table

SWAPS = {"+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "<": "<=", "<=": "<",
         ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&"}
TOKEN = re.compile(
    r'''(?P<blank>\s+|//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*)
      |(?P<text>(?:u8|[uUL])?R"(?P<d>[^(]*)\(.*?\)(?P=d)"|(?:u8|[uUL])?"(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])*')
      |(?P<number>(?:0[xX][0-9a-fA-F'.]+(?:[pP][+-]?\d+)?|(?:\d[\d']*\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)[uUlLfF]*)
      |(?P<name>[A-Za-z_]\w*)
      |(?P<sign>->|\+\+|--|<<=|>>=|<<|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|::|\.\.\.|.)''',
    re.X | re.S | re.M)
KEYWORDS_BEFORE_A_SIGN = {"return", "case", "co_return", "throw"}


@dataclass
class Token:
    kind: str
    text: str
    at: int
    spaced: bool = False  # blanks on both sides


@dataclass(frozen=True)
class Mutant:
    path: str
    at: int
    old: str
    new: str
    kind: str  # operator, number, table

    def key(self) -> str:
        return f"{self.path}@{self.at}:{self.old}->{self.new}"


def tokens_of(source: str) -> list:
    tokens, blank = [], True
    for match in TOKEN.finditer(source):
        kind = match.lastgroup if match.lastgroup != "d" else "text"
        if kind == "blank":
            blank = True
            continue
        after = source[match.end():match.end() + 1]
        tokens.append(Token(kind, match.group(), match.start(), blank and (after == "" or after.isspace())))
        blank = False
    return tokens


def closing(tokens: list, i: int, left: str, right: str) -> int:
    depth = 0
    for j in range(i, len(tokens)):
        depth += (tokens[j].text == left) - (tokens[j].text == right)
        if tokens[j].text == ">>" and right == ">":
            depth -= 2
        if depth <= 0:
            return j
    return len(tokens) - 1


def left_alone(tokens: list) -> set:
    """Tokens of static assertions, of template brackets, and the lengths of declared arrays."""
    out = set()
    for i, token in enumerate(tokens):
        if token.text in ("static_assert", "alignas", "__attribute__"):
            out.update(range(i, closing(tokens, i + 1, "(", ")") + 1))
        elif token.text == "operator":
            out.update((i + 1, i + 2))
        elif token.text == "<" and i > 0 and not token.spaced and (
                tokens[i - 1].text == "template" or tokens[i - 1].kind == "name"):
            out.update(range(i, closing(tokens, i, "<", ">") + 1))
        elif token.text == "[" and i > 1:
            j = i - 1
            while tokens[j].text == "]":  # further lengths of the same array
                while j > 0 and tokens[j].text != "[":
                    j -= 1
                j -= 1
            before = tokens[j - 1]
            declared = tokens[j].kind == "name" and (
                before.text == "," and j - 2 in out
                or (before.kind == "name" and before.text not in KEYWORDS_BEFORE_A_SIGN)
                or before.text == ">" and not before.spaced
                or before.text in ("*", "&") and not before.spaced and tokens[j - 2].kind == "name")
            if declared or (tokens[j].text == ")" and tokens[j - 2].text in ("*", "&")):
                out.update(range(i, closing(tokens, i, "[", "]") + 1))
    return out


def tables(tokens: list) -> set:
    """Tokens within braces that hold many numbers and no statement."""
    out, open_braces = set(), []
    for i, token in enumerate(tokens):
        if token.text == "{":
            open_braces.append(i)
        elif token.text == "}" and open_braces:
            inside = range(open_braces.pop(), i)
            if (sum(tokens[j].kind == "number" for j in inside) >= TABLE_NUMBERS
                    and not any(tokens[j].text == ";" for j in inside)):
                out.update(inside)
    return out


def changed_numbers(text: str) -> list:
    """The number with its last digit changed, and larger or smaller by one."""
    match = re.fullmatch(r"(0[xX])([0-9a-fA-F'.]+)([pPuUlL].*)?", text)
    if match:
        digits = match[2].replace("'", "").rstrip(".")
        stepped = "0123456789abcdef0"["0123456789abcdef".index(digits[-1].lower()) + 1]
        return [match[1] + digits[:-1] + stepped + (match[3] or "")]
    match = re.fullmatch(r"(\d[\d']*)([uUlL]*)", text)
    if match:
        value = int(match[1].replace("'", ""))
        return [f"{v}{match[2]}" for v in (value + 1, value - 1) if v >= 0]
    match = re.fullmatch(r"([\d']*\.?\d*)((?:[eE][+-]?\d+)?[fFlL]?)", text)
    digits, rest = match[1].replace("'", ""), match[2]
    last = max(i for i, c in enumerate(digits) if c.isdigit())
    stepped = digits[:last] + str(int(digits[last]) + (1 if digits[last] != "9" else -1)) + digits[last + 1:]
    whole, point, part = digits.partition(".")
    return [stepped + rest, f"{int(whole or 0) + 1}{point}{part}{rest}"]


def mutants_of(path: str, source: str, rng: random.Random) -> list:
    tokens = tokens_of(source)
    alone, table = left_alone(tokens), tables(tokens)
    found = []
    for i, token in enumerate(tokens):
        if i in alone or i == 0:
            continue
        before = tokens[i - 1]
        kind = "table" if i in table or path.endswith("_tables.h") else None
        value_before = (before.kind in ("number", "text") or before.text in (")", "]")
                        or before.kind == "name" and before.text not in KEYWORDS_BEFORE_A_SIGN)
        if token.kind == "number":
            found.append(Mutant(path, token.at, token.text, rng.choice(changed_numbers(token.text)), kind or "number"))
        elif token.kind != "sign":
            continue
        elif token.text == "-" and not value_before:
            found.append(Mutant(path, token.at, "-", "", kind or "operator"))
        elif token.text in SWAPS and token.spaced and value_before and tokens[i + 1].text not in (")", ",", "="):
            found.append(Mutant(path, token.at, token.text, SWAPS[token.text], kind or "operator"))
    return found


def runs_here(path: Path) -> bool:
    """Whether this machine has the instructions that a file of that name is for."""
    flags = Path("/proc/cpuinfo").read_text() if Path("/proc/cpuinfo").exists() else ""
    return all(word.replace("512", "512f") in flags for word in re.findall(r"avx\d+", path.name))


def drawn(only: str, seed: int) -> list:
    """All mutants in drawn order, the kinds spread so that every beginning keeps to their shares."""
    rng = random.Random(seed)
    pools = {"operator": [], "number": [], "table": []}
    for path in sorted(p for p in (TREE / "src").rglob("*") if p.suffix in (".cpp", ".h") and runs_here(p)):
        name = str(path.relative_to(TREE))
        if any(fnmatch.fnmatch(name, glob) for glob in only.split(",")):
            for mutant in mutants_of(name, path.read_text(), rng):
                pools[mutant.kind].append(mutant)
    for pool in pools.values():
        rng.shuffle(pool)
    order = []
    while any(pools.values()):
        turn = len(order) % 10
        kind = "table" if turn == 9 else "number" if turn in (2, 5, 8) else "operator"
        order.append((pools[kind] or pools["operator"] or pools["number"] or pools["table"]).pop())
    return order


def run(command: list, **options) -> subprocess.CompletedProcess:
    return subprocess.run(command, text=True, errors="replace", stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)


def must(command: list, what: str) -> str:
    done = run(command)
    if done.returncode != 0:
        sys.exit(f"{what}:\n{done.stdout[-4000:]}")
    return done.stdout.strip()


def prepare(commit: str, jobs: int, sanitize: bool) -> None:
    if not (TREE / ".git").exists():
        WORK.mkdir(parents=True, exist_ok=True)
        must(["git", "clone", "-q", "--no-checkout", str(ROOT), str(TREE)], "no copy")
    must(["git", "-C", str(TREE), "fetch", "-q", "origin"], "no fetch")
    must(["git", "-C", str(TREE), "checkout", "-q", "--force", "--detach", commit], "no checkout")
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if run(["sh", "-c", "command -v ccache"]).returncode == 0 else []
    for where, sanitizers in [(BUILD, "")] + ([(SANITIZED, "address,undefined")] if sanitize else []):
        must(["cmake", "-S", str(TREE), "-B", str(where), "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", "-DKITLIB_TESTS=ON",
              "-DKITLIB_APPS=OFF", "-DKITLIB_WERROR=ON", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON",
              f"-DKITLIB_SANITIZE={sanitizers}",
              "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"] + launcher, "cmake")
        built = build(jobs, where=where)
        if built.returncode != 0:
            sys.exit(f"the commit itself does not build:\n{built.stdout[-4000:]}")


def build(jobs: int, folders=FOLDERS, where=BUILD) -> subprocess.CompletedProcess:
    return run(["ninja", "-C", str(where), f"-j{jobs}", "KitLib"] + [f"{folder}_tests" for folder in folders])


def cheap_first(mutants: list) -> list:
    """Those first that few objects are built of: a header of all may cost as much as fifty files."""
    objects = {}
    for line in run(["ninja", "-C", str(BUILD), "-t", "deps"]).stdout.splitlines():
        if line.startswith("    "):
            path = os.path.relpath(os.path.join(BUILD, line.strip()), TREE)
            objects[path] = objects.get(path, 0) + 1
    return sorted(mutants, key=lambda m: objects.get(m.path, 1))


def code(folders: list) -> list:
    """What the library and the tests of internal headers are made of."""
    return [hashlib.sha256(path.read_bytes()).hexdigest()
            for path in [BUILD / "libKitLib.so"] + [BUILD / f"tests/{f}/{f}_tests" for f in folders]]


def limits() -> None:
    resource.setrlimit(resource.RLIMIT_AS, (6 << 30, 6 << 30))
    resource.setrlimit(resource.RLIMIT_FSIZE, (256 << 20, 256 << 20))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def first_failure(folder: str, timeout: float, where=BUILD) -> str:
    """The test of a folder that fails first, "" if none does."""
    log = WORK / "tests.log"
    with log.open("w") as out:
        process = subprocess.Popen([str(where / f"tests/{folder}/{folder}_tests"), "--gtest_fail_fast"], cwd=TREE,
                                   stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                                   preexec_fn=limits if where == BUILD else None, start_new_session=True)
        try:
            status, ending = process.wait(timeout), ""
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            status, ending = 1, " (hang)"
    if status == 0:
        return ""
    text = log.read_text(errors="replace")
    failed = re.findall(r"^\[  FAILED  \] (\w\S*\.\S+)", text, re.M)
    begun = re.findall(r"^\[ RUN      \] (\S+)", text, re.M)
    name = (failed or begun[-1:] or ["before the first test"])[0].rstrip(",")
    return f"{folder}: {name}" + (ending or (" (crash)" if status < 0 and not failed else ""))


def judged(mutant: Mutant, original: dict, jobs: int, order: list, timeouts: dict, sanitize: bool) -> str:
    """"replaced: why", "SURVIVED", or the test that caught it."""
    path = TREE / mutant.path
    source = path.read_text()
    path.write_text(source[:mutant.at] + mutant.new + source[mutant.at + len(mutant.old):])
    own = mutant.path.split("/")[1]
    own = ASKED_FOR.get(own, own)
    try:
        changed = False
        for folder in sorted(order, key=lambda f: f != own):
            if build(jobs, [folder]).returncode != 0:
                return "replaced: does not compile"
            changed = changed or code([folder]) != original[folder]
            caught = first_failure(folder, timeouts[folder]) if changed else ""
            if caught:
                return caught
        if not changed:
            return "replaced: same code"
        if not sanitize:
            return "SURVIVED"
        build(jobs, [own], SANITIZED)
        caught = first_failure(own, 10 * timeouts[own], SANITIZED)
        return f"sanitizers, {caught}" if caught else "SURVIVED"
    finally:
        path.write_text(source)


def text_of(mutant: Mutant, lines: dict) -> str:
    if mutant.path not in lines:
        source = (TREE / mutant.path).read_text()
        lines[mutant.path] = (source, [m.end() for m in re.finditer("\n", source)])
    source, ends = lines[mutant.path]
    row = bisect.bisect_right(ends, mutant.at)
    start = ends[row - 1] if row else 0
    stop = ends[row] - 1 if row < len(ends) else len(source)
    column = mutant.at - start
    line = source[start:stop]
    shown = line[:column] + f"[{mutant.old} => {mutant.new or 'nothing'}]" + line[column + len(mutant.old):]
    return f"{mutant.path}:{row + 1}: {shown.strip()}"


def main() -> None:
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--count", type=int, default=200)
    options.add_argument("--seed", type=int, default=1)
    options.add_argument("--only", default="*", help="files, such as 'src/time/*,src/ids/*'")
    options.add_argument("--folders", help="ask only the tests of these, such as numbers,time")
    options.add_argument("--jobs", type=int, default=os.cpu_count())
    options.add_argument("--sanitize", action="store_true", help="what survives meets the sanitizers (slow)")
    options.add_argument("--fresh", action="store_true", help="forget what was found, take the newest commit")
    options.add_argument("--list", action="store_true", help="print the mutants that would be tried, no more")
    given = options.parse_args()
    if given.folders:
        FOLDERS[:] = given.folders.split(",")

    head = {"commit": must(["git", "-C", str(ROOT), "rev-parse", "HEAD"], "git"), "seed": given.seed, "only": given.only}
    records = [json.loads(line) for line in STATE.read_text().splitlines()] if STATE.exists() else []
    if given.fresh or not records or (records[0]["seed"], records[0]["only"]) != (given.seed, given.only):
        records = [head]
    head, results = records[0], {r["mutant"]: r["result"] for r in records[1:]}
    prepare(head["commit"], given.jobs, given.sanitize)
    STATE.write_text("".join(json.dumps(r) + "\n" for r in records))
    print(f"commit {head['commit'][:10]}, seed {given.seed}, {len(results)} tried before", flush=True)

    order, lines = drawn(given.only, given.seed), {}
    if given.list:
        print("\n".join(text_of(m, lines) for m in order[:given.count]))
        return
    original, timeouts = {folder: code([folder]) for folder in FOLDERS}, {}
    for folder in FOLDERS:
        begin = time.monotonic()
        caught = first_failure(folder, 600)
        timeouts[folder] = 20 + 5 * (time.monotonic() - begin)
        if given.sanitize:
            caught = caught or first_failure(folder, 600, SANITIZED)
        if caught:
            sys.exit(f"fails without any mutant: {caught}")
    by_time = sorted(FOLDERS, key=timeouts.get)

    counted, survivors, replaced = 0, [], 0
    for mutant in cheap_first(order[:given.count]) + order[given.count:]:
        if counted == given.count:
            break
        result = results.get(mutant.key())
        if result is None:
            result = judged(mutant, original, given.jobs, by_time, timeouts, given.sanitize)
            with STATE.open("a") as state:
                state.write(json.dumps({"mutant": mutant.key(), "result": result}) + "\n")
        if result.startswith("replaced"):
            replaced += 1
            continue
        counted += 1
        line = text_of(mutant, lines)
        print(f"{counted} {line} | {result}", flush=True)
        if result == "SURVIVED":
            survivors.append(line)
            (WORK / "survivors.txt").write_text("".join(s + "\n" for s in survivors))
    (WORK / "survivors.txt").write_text("".join(s + "\n" for s in survivors))
    print(f"{counted} mutants, {counted - len(survivors)} caught, {len(survivors)} survived; {replaced} replaced")


if __name__ == "__main__":
    main()
