"""Helpers of the description-page generators: a page is a list of paragraphs written with a
small mark-up (_{sub}, ^{sup}, **bold**) and saved as an RTF file in this folder.

The pages are plain ASCII RTF: Chinese text goes in as \\uN escapes (with "?" for readers without
Unicode), so a file reads the same whatever code page the reader assumes."""
import os
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

from catalogue_csv import write_atomic  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent


def esc(text):
    out = []
    for ch in text:
        cp = ord(ch)
        if ch in "\\{}":
            out.append("\\" + ch)
        elif ch == "\t":
            out.append("\\tab ")
        elif cp < 0x80:
            out.append(ch)
        elif cp > 0xFFFF:
            raise ValueError("character U+%X lies outside the range of \\uN" % cp)
        else:
            n = cp if cp < 0x8000 else cp - 0x10000
            out.append("\\u%d?" % n)
    return "".join(out)


def marked(text):
    """Text with _{sub}, ^{sup} and **bold** marks as RTF groups."""
    parts = []
    pos = 0
    for m in re.finditer(r"_\{([^}]*)\}|\^\{([^}]*)\}|\*\*([^*]*)\*\*", text):
        parts.append(esc(text[pos:m.start()]))
        if m.group(1) is not None:
            parts.append("{\\sub " + esc(m.group(1)) + "}")
        elif m.group(2) is not None:
            parts.append("{\\super " + esc(m.group(2)) + "}")
        else:
            parts.append("{\\b " + esc(m.group(3)) + "}")
        pos = m.end()
    parts.append(esc(text[pos:]))
    return "".join(parts)


def title(text):
    return "\\pard\\qc\\sb120\\sa120{\\b\\fs32 " + marked(text) + "}\\par\n"


def heading(text):
    return "\\pard\\ql\\sb120\\sa60{\\b\\fs24 " + marked(text) + "}\\par\n"


def para(text, indent=True):
    first = "\\fi420" if indent else ""
    return "\\pard\\qj" + first + "\\sa60 " + marked(text) + "\\par\n"


def formula(text):
    return "\\pard\\qc\\sa60{\\i " + marked(text) + "}\\par\n"


def item(text):
    return "\\pard\\ql\\li420\\sa40 " + marked(text) + "\\par\n"


def write_page(file_name, info_title, body):
    """Writes the page HERE/file_name whole or not at all and names it on standard output."""
    rtf = ("{\\rtf1\\ansi\\ansicpg936\\deff0\\uc1"
           "{\\fonttbl{\\f0\\fnil\\fcharset134 \\u23435?\\u20307?;}{\\f1\\fswiss Arial;}}\n"
           "{\\info{\\title " + info_title + "}}\n"
           "\\viewkind4\\f0\\fs21\n" + "".join(body) + "}\n")
    path = os.path.join(HERE, file_name)
    write_atomic(path, rtf.encode("ascii"))
    print(path)
