"""generate.py MCR FOLDER: writes the highlighting files from the words that `mcr words` lists."""

import json
import subprocess
import sys
from pathlib import Path

# Keywords that are more than control words; one that stands in no group is a control word.
GROUPS = {
    "keyword.operator.word": "and eqv imp is mod not or xor",
    "constant.language": "empty false nothing null true",
    "storage.type": "const dim erase function option redim sub",
    "storage.modifier": "byref byval default preserve private public",
}
CONTROL = "keyword.control"
VIM_GROUPS = {
    CONTROL: ("mcrStatement", "Statement"),
    "keyword.operator.word": ("mcrWordOperator", "Operator"),
    "constant.language": ("mcrLiteral", "Boolean"),
    "storage.type": ("mcrDeclaration", "StorageClass"),
    "storage.modifier": ("mcrModifier", "StorageClass"),
}


def read_words(mcr):
    """The words by their kinds, each kind in the order of the engine."""
    listing = subprocess.run([mcr, "words"], check=True, capture_output=True, text=True).stdout
    words = {}
    for row in listing.splitlines():
        kind, word = row.split("\t")
        words.setdefault(kind, []).append(word)
    return words


def group_keywords(keywords):
    groups = {scope: [] for scope in VIM_GROUPS}
    for word in sorted(keywords):
        homes = [scope for scope, members in GROUPS.items() if word in members.split()]
        groups[homes[0] if homes else CONTROL].append(word)
    return groups


def sorted_words(words):
    """Once each, whatever the case."""
    return sorted({word.lower(): word for word in words}.values(), key=str.lower)


def character_class(signs):
    return "".join("\\" + sign if sign in "^-" else sign for sign in signs)


# --- TextMate ---------------------------------------------------------------------------------

NAME = "[A-Za-z][A-Za-z0-9_]*"
END = "(?![A-Za-z0-9_])"
DIGITS = "(?:&[Hh](?>[0-9A-Fa-f]*)|[0-9]+)&?"
EXPONENT = "[DEde]-?[0-9]+"


def any_of(words):
    return f"(?i:{'|'.join(words)}){END}"


def textmate(words):
    unit = f"(?:({'|'.join(words['unit'])})(?![A-Za-z])|[A-Za-z]*)"
    operators = character_class(words["operator"])
    units = {"1": {"name": "keyword.other.unit.mcr"}}
    # Every name is taken whole, so that nothing is found in the middle of one. The order counts.
    patterns = [
        {"name": "comment.line.apostrophe.mcr", "match": "'.*"},
        {"name": "comment.line.rem.mcr", "match": "(?i:rem)(?=\\s).*"},
        {"name": "string.quoted.double.mcr", "match": '"(?:[^"\\r\\n]|"")*"?'},
        {"name": "constant.numeric.float.mcr", "captures": units,
         "match": f"{DIGITS}(?:\\.[0-9]*(?:{EXPONENT})?|{EXPONENT}){unit}"},
        {"name": "constant.numeric.integer.mcr", "captures": units, "match": DIGITS + unit},
        {"name": "punctuation.accessor.mcr", "match": "\\.\\s*\\."},
        {"match": f"(\\.)[ \\t\\r\\v\\f]*(?!(?i:rem)\\s)({NAME}|(?!&[Hh])[{operators}])",
         "captures": {"1": {"name": "punctuation.accessor.mcr"},
                      "2": {"name": "variable.other.member.mcr"}}},
        {"match": f"(?i:(function|sub))[ \\t]+({NAME})",
         "captures": {"1": {"name": "storage.type.mcr"},
                      "2": {"name": "entity.name.function.mcr"}}},
    ]
    for scope, members in group_keywords(words["keyword"]).items():
        patterns.append({"name": scope + ".mcr", "match": any_of(members)})
    for scope, kind in [("support.constant.integer", "integer"),
                        ("support.constant.string", "string"),
                        ("support.function", "function"), ("support.class", "object")]:
        patterns.append({"name": scope + ".mcr", "match": any_of(sorted_words(words[kind]))})
    patterns += [
        {"name": "variable.other.mcr", "match": NAME},
        {"name": "keyword.operator.mcr", "match": f"[{operators}]"},
    ]
    grammar = {
        "name": "Macro", "scopeName": "source.mcr", "fileTypes": ["mcr"], "patterns": patterns,
    }
    return json.dumps(grammar, indent=2) + "\n"


# --- Vim --------------------------------------------------------------------------------------


def vim_keywords(group, words):
    lines = []
    line = ""
    for word in words:
        if len(line) + len(word) > 80:
            lines.append(line)
            line = ""
        line += " " + word
    return [f"syn keyword {group}{line}" for line in lines + [line]]


def vim(words):
    operators = character_class(words["operator"])
    digits = r"\%(&h\x*\|\d\+\)\@>&\?"
    exponent = r"[de]-\?\d\+"
    units = r"\|".join(words["unit"])
    lines = [
        '" Vim syntax file',
        '" Language: macros (*.mcr)',
        '" Written by scripts/editors; changes belong there.',
        "",
        'if exists("b:current_syntax")',
        "  finish",
        "endif",
        "",
        "syn case ignore",
        "syn iskeyword a-z,A-Z,48-57,_",
        "",
    ]
    links = []
    for scope, members in group_keywords(words["keyword"]).items():
        group, link = VIM_GROUPS[scope]
        lines += vim_keywords(group, members)
        links.append((group, link))
    for group, kind, link in [("mcrConstant", "integer", "Constant"),
                              ("mcrStringConstant", "string", "Constant"),
                              ("mcrFunction", "function", "Function"),
                              ("mcrObject", "object", "Type")]:
        lines += vim_keywords(group, sorted_words(words[kind]))
        links.append((group, link))
    # Of several matches at one place the last wins, behind keywords. Names are taken whole, so that
    # nothing is found in the middle of one.
    lines += [
        "",
        r"syn match mcrName /\a\w*/",
        f"syn match mcrOperator @[{operators}]@",
        rf"syn match mcrInteger /{digits}\a*/ contains=mcrUnit",
        rf"syn match mcrReal /{digits}\%(\.\d*\%({exponent}\)\?\|{exponent}\)\a*/ contains=mcrUnit",
        rf"syn match mcrUnit /\C\d&\?\zs\%({units}\)\a\@!/ contained",
        rf"syn match mcrMember ;\.\s*\%(\a\w*\|\%(&h\)\@![{operators}]\);",
        r"syn match mcrPlain /\.\s*\./",
        r'syn match mcrString /"\%([^"\r]\|""\)*"\?/',
        r"syn match mcrComment /'.*/ contains=mcrTodo",
        r"syn match mcrComment /rem\%(\s.*\|$\)/ contains=mcrTodo",
        r"syn match mcrMemberComment /\.\s*\zerem\%(\s\|$\)/",
        "syn keyword mcrTodo contained TODO FIXME XXX",
        "",
    ]
    links += [("mcrOperator", "Operator"), ("mcrInteger", "Number"), ("mcrReal", "Float"),
              ("mcrUnit", "Special"), ("mcrString", "String"), ("mcrComment", "Comment"),
              ("mcrTodo", "Todo")]
    lines += [f"hi def link {group} {link}" for group, link in links]
    lines += ["", 'let b:current_syntax = "mcr"']
    return "\n".join(lines) + "\n"


def files(mcr):
    """The text of each generated file by its path below the folder."""
    words = read_words(mcr)
    grammar = textmate(words)
    return {
        "textmate/mcr.tmLanguage.json": grammar,
        "vscode/syntaxes/mcr.tmLanguage.json": grammar,
        "vim/syntax/mcr.vim": vim(words),
    }


if __name__ == "__main__":
    for name, text in files(sys.argv[1]).items():
        Path(sys.argv[2], name).write_text(text)
