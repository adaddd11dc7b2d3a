"""One file's text in the layouts that other programs write. What it says stays the same."""

import re

# A string, a comment, or what stands between them.
PIECE = re.compile(r"'(?:[^']|'')*'|/\*.*?\*/|[^'/]+|/", re.DOTALL)
UTF16_RUN = re.compile(r"\\X2\\((?:[0-9A-F]{4})+)\\X0\\")


def is_string(piece):
    return piece.startswith("'")


def is_comment(piece):
    return piece.startswith("/*")


def outside_strings(text, change):
    """The text with everything but its strings and comments changed."""
    return "".join(piece if is_string(piece) or is_comment(piece) else change(piece) for piece in PIECE.findall(text))


def spaced(text):
    """Blanks around each token, comments in odd places, lines ended as on Windows."""
    text = outside_strings(text, lambda code: re.sub(r"^(#\d+)=(\w+)\(", r"\1 = \2 ( ", code, flags=re.MULTILINE)
                           .replace(",", " , "))
    text = re.sub(r"^(#\d+0 =)", r"/* #7=IFCWALL('; */ \1 /* here */", text, flags=re.MULTILINE)
    return text.replace("\n", "\r\n")


def wrapped(text):
    """Lists and arguments over several lines with TABs, a lone CR between lines."""
    return outside_strings(text, lambda code: code.replace(",", ",\n\t").replace("(#", "(\n\t\t#")).replace("\n", "\r")


def packed(text):
    """Everything on a few lines, keywords in small letters, no comment."""
    text = "".join(piece for piece in PIECE.findall(text) if not is_comment(piece))
    head, data = text.split("DATA;\n")
    body, tail = data.split("ENDSEC;\n")
    return f"{head}DATA;\n" + outside_strings(body.replace("\n", ""), str.lower) + f"\nENDSEC;\n{tail}"


def latin(text):
    r"""Letters of ISO 8859-1 as \X\hh, one byte each; all others as they were."""
    def directives(match):
        units = re.findall("....", match[1])
        if all(unit.startswith("00") for unit in units):
            return "".join(f"\\X\\{unit[2:]}" for unit in units)
        return match[0]
    return UTF16_RUN.sub(directives, text)


def shifted(text):
    r"""Letters of the upper half of ISO 8859-1 as \S\ and the letter 128 below; all others as they were."""
    def directives(match):
        units = [int(unit, 16) for unit in re.findall("....", match[1])]
        if all(0xA0 <= unit < 0x100 for unit in units):
            return "".join("\\S\\" + chr(unit - 128).replace("'", "''") for unit in units)
        return match[0]
    return UTF16_RUN.sub(directives, text)
