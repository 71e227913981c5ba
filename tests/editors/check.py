"""check.py NAME PROJECT MCR: one check of the files for editors. Says what is wrong, and fails."""

import json
import random
import re
import subprocess
import sys
import tempfile
from pathlib import Path

PROJECT = Path(sys.argv[2])
MCR = sys.argv[3]
EXTENSION = PROJECT / "editors/vscode"

sys.dont_write_bytecode = True
sys.path.insert(0, str(PROJECT / "editors"))


def mcr(*arguments, text=None):
    """What mcr gives for a text on standard input."""
    return subprocess.run([MCR, *arguments], input=text, capture_output=True)


def macros():
    return sorted([*PROJECT.glob("examples/*.mcr"), *PROJECT.glob("tests/macros/*/*.mcr")])


# --- The generated files are those that the engine's words make -------------------------------


def check_current():
    import generate

    for name, text in generate.files(MCR).items():
        if (PROJECT / "editors" / name).read_text() != text:
            yield f"editors/{name} is stale: run scripts/editors"


# --- The grammar finds what the engine's tokenizer finds --------------------------------------

# Classes of the tokenizer by the beginnings of scopes; captures overrule what is around them.
CLASS_OF_SCOPE = {
    "comment": "comment", "string": "string", "constant.numeric.float": "real",
    "constant.numeric.integer": "integer", "keyword.other.unit": None,
    "support.constant.integer": "integer", "support.constant.string": "string",
    "support.function": "name", "support.class": "name", "entity.name.function": "name",
    "variable": "name", "punctuation": "character", "keyword": "keyword", "storage": "keyword",
    "constant.language": "keyword",
}


def class_of_scope(scope):
    for beginning in sorted(CLASS_OF_SCOPE, key=len, reverse=True):
        if scope.startswith(beginning):
            return CLASS_OF_SCOPE[beginning]
    raise ValueError(f"no class for {scope}")


def classes_by_grammar(text, patterns):
    """The class of every character, as an editor would find it line by line."""
    classes = []
    for line in text.splitlines(keepends=True):
        found = [" " if c.isspace() else "character" for c in line]
        at = 0
        while at < len(line):
            matches = [(m.start(), i, m) for i, (p, _) in enumerate(patterns)
                       if (m := p.search(line, at))]
            if not matches:
                break
            _, index, match = min(matches, key=lambda row: row[:2])
            rule = patterns[index][1]
            spans = [(match.span(), rule["name"])] if "name" in rule else []
            for group, capture in rule.get("captures", {}).items():
                if match.group(int(group)) is not None:
                    spans.append((match.span(int(group)), capture["name"]))
            for (begin, end), scope in spans:
                kind = class_of_scope(scope)
                if kind:
                    found[begin:end] = [c if c == " " and kind == "character" else kind
                                        for c in found[begin:end]]
            at = max(match.end(), at + 1)
        classes += found
    return classes


def classes_by_engine(text):
    lines = text.split("\n")
    starts = [0]
    for line in lines:
        starts.append(starts[-1] + len(line) + 1)
    classes = [" " if c.isspace() else "?" for c in text]
    comment = None
    for row in mcr("tokens", "-", text=text.encode("latin-1")).stdout.decode("latin-1").split("\n"):
        if not row:
            continue
        place, _, kind, piece = row.split("\t")
        line, column = map(int, place.split(":"))
        at = starts[line - 1] + column - 1
        if kind == "comment-start":
            comment = at
        elif kind == "comment-end":
            classes[comment:at] = ["comment"] * (at - comment)
            comment = None
        elif comment is None and kind not in ("blanks", "tabs"):
            length = len(re.sub(r"\\(\\|x[0-9a-f]{2}|t)", ".", piece))
            length = min(length, starts[line] - 1 - at)  # without a quote that was added
            classes[at:at + length] = [kind] * length
    return classes


def generated_texts():
    """Lines of hostile bits; the same ones every time."""
    bits = ["'", "rem ", "Rem\t", '"', '""', " ", "\t", ".", ". ", "&h", "&hE5", "1", "1e-2", "2d3",
            "3mil", "1.5in", "x", "If ", "(", ")", "vbLf", "end ", "Sub f", "+", "^", "& ", "#",
            "_", "mbYes", "12&", "Len", ".Sub x", "Console", "remark", "Null", ":", "\\", "e5"]
    source = random.Random(7)
    for _ in range(300):
        yield "\n".join("".join(source.choices(bits, k=source.randrange(9))) for _ in range(20))


def show(text, ours, theirs):
    for at, (a, b) in enumerate(zip(ours, theirs)):
        if a != b:
            line = text.count("\n", 0, at)
            return f"line {line + 1}: {text.splitlines()[line]!r} at {text[at:at+8]!r}: {a}, not {b}"
    return None


def check_grammar():
    grammar = json.loads((PROJECT / "editors/textmate/mcr.tmLanguage.json").read_text())
    patterns = [(re.compile(rule["match"], re.ASCII), rule) for rule in grammar["patterns"]]
    texts = [(str(p), p.read_bytes().decode("latin-1").removeprefix("\xef\xbb\xbf"))
             for p in macros()]
    texts += [("generated", text) for text in generated_texts()]
    for name, text in texts:
        text = text.replace("\r\n", "\n").replace("\r", " ").replace("\xa0", " ")
        if not text.endswith("\n"):
            text += "\n"
        fault = show(text, classes_by_grammar(text, patterns), classes_by_engine(text))
        if fault:
            yield f"{name}, {fault}"


# --- The rules of the extension ---------------------------------------------------------------


def check_indentation():
    """Every example keeps its indentation when the rules make it anew."""
    rules = json.loads((EXTENSION / "language-configuration.json").read_text())["indentationRules"]
    increase, decrease = (re.compile(rules[name]["pattern"], re.IGNORECASE) for name in
                          ("increaseIndentPattern", "decreaseIndentPattern"))
    for path in PROJECT.glob("examples/*.mcr"):
        depth = 0
        for number, line in enumerate(path.read_text().splitlines(), 1):
            if not line.strip():
                continue
            here = depth - (1 if decrease.search(line) else 0)
            found = (len(line) - len(line.lstrip())) / 4
            if found != here:
                yield f"{path.name}:{number}: {here} levels by the rules, {found:g} in the file"
                break
            depth = here + (1 if increase.search(line) else 0)


def check_snippets():
    """Every snippet is a macro once its places are filled in, and has an own prefix."""
    snippets = json.loads((EXTENSION / "snippets.json").read_text())
    prefixes = [snippet["prefix"] for snippet in snippets.values()]
    if len(set(prefixes)) != len(prefixes):
        yield "two snippets have one prefix"
    for name, snippet in snippets.items():
        text = "\n".join(snippet["body"])
        text = re.sub(r"\$\{\d+:([^}]*)\}", r"\1", text)
        # A place without a text stands for a statement, or for nothing behind a dot.
        text = re.sub(r"\.\$\d", ".", text)
        text = re.sub(r"\$\d", "x = 1", text)
        result = mcr("check", "-", text=text.encode())
        if result.returncode != 0:
            yield f"{name}: {result.stderr.decode().strip()}"


def check_problems():
    """The problem matcher finds the places in what mcr check and mcr run say."""
    package = json.loads((EXTENSION / "package.json").read_text())
    pattern = package["contributes"]["problemMatchers"][0]["pattern"]
    with tempfile.TemporaryDirectory() as folder:
        texts = {"syntax": ("x = 1\nx = = 2\n", 2), "open": ("\nFor i = 1 To 2\n", 2),
                 "run": ("Sub f\n x = 1 \\ 0\nEnd Sub\nf\n", 2), "good": ("x = 1\n", None),
                 "early": ("x = 1\nf \"a\nx = = 2\n", 2)}
        for name, (text, line) in texts.items():
            path = Path(folder, name + ".mcr")
            path.write_text(text)
            for command in {"run": ["run"], "early": ["check"]}.get(name, ["run", "check"]):
                said = mcr(command, str(path)).stderr.decode().splitlines()
                matches = [m for row in said if (m := re.search(pattern["regexp"], row))]
                found = [(m[pattern["file"]], int(m[pattern["line"]])) for m in matches]
                if found != ([(str(path), line)] if line else []):
                    yield f"{command} of {name}: {found} in {said}"
                severities = [m[pattern["severity"]] for m in matches]
                if severities != (["warning" if name == "early" else None] if line else []):
                    yield f"{command} of {name}: {severities} in {said}"
        said = mcr("check", str(Path(folder, "none.mcr"))).stderr.decode()
        if re.search(pattern["regexp"], said):
            yield f"a place is found in {said}"


def check_package():
    """What the extension refers to is there, and every JSON file can be read."""
    package = json.loads((EXTENSION / "package.json").read_text())
    contributes = package["contributes"]
    names = [package["main"], contributes["languages"][0]["configuration"],
             contributes["grammars"][0]["path"], contributes["snippets"][0]["path"]]
    for name in names:
        path = EXTENSION / name
        if not path.is_file():
            yield f"{name} is missing"
        elif path.suffix == ".json":
            json.loads(path.read_text())


CHECKS = {"current": check_current, "grammar": check_grammar, "indentation": check_indentation,
          "snippets": check_snippets, "problems": check_problems, "package": check_package}

if __name__ == "__main__":
    faults = list(CHECKS[sys.argv[1]]())
    print("\n".join(faults[:20]), end="\n" if faults else "")
    sys.exit(1 if faults else 0)
