"""Writes instances of an exchange file (ISO 10303-21) in the layout that a careful person would type."""

import uuid

# Every GlobalId of the sample is a version 5 UUID of what it is for: the file comes out the same on every machine, and
# an element keeps its GUID when another is added before it.
NAMESPACE = uuid.UUID("6f1d1ac7-0c4e-5d0a-9c5b-3f1e5b7a2d10")
BASE64 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$"


def guid_of(key):
    """The GUID of what `key` names; a key that is a GUID itself stands for that one."""
    try:
        return uuid.UUID(key)
    except ValueError:
        return uuid.uuid5(NAMESPACE, key)


def global_id(key):
    """IFC's 22 characters for 128 bits: the first holds 2 bits, the others 6 each."""
    number = guid_of(key).int
    return "".join(BASE64[number >> shift & 63] for shift in range(126, -1, -6))


def encode(text):
    """Printable ASCII as it stands, apostrophe and backslash doubled, all else as runs of UTF-16 (\\X2\\) or UTF-32
    (\\X4\\) code units."""
    out, run, directive = [], "", None

    def close():
        nonlocal run, directive
        if directive:
            out.append(f"\\{directive}\\{run}\\X0\\")
        run, directive = "", None

    for character in text:
        if " " <= character <= "~":
            close()
            out.append(character * 2 if character in "'\\" else character)
            continue
        wanted = "X2" if ord(character) <= 0xFFFF else "X4"
        if directive != wanted:
            close()
            directive = wanted
        run += f"{ord(character):04X}" if wanted == "X2" else f"{ord(character):08X}"
    close()
    return "".join(out)


class Ref(int):
    """The id of an instance."""


class Enum(str):
    """An enumeration item, a boolean or a logical, without its dots."""


class Typed:
    """A value inside a select: IFCLABEL('x')."""

    def __init__(self, ifc_type, value):
        self.ifc_type, self.value = ifc_type, value


DERIVED = Enum("*")
TRUE, FALSE, UNKNOWN = Enum("T"), Enum("F"), Enum("U")


def real(value):
    """A real has a point, and its exponent a capital E."""
    mantissa, _, exponent = repr(value).partition("e")
    if "." not in mantissa:
        mantissa += "."
    mantissa = mantissa.removesuffix("0") if mantissa.endswith(".0") else mantissa
    return f"{mantissa}E{exponent}" if exponent else mantissa


def token(value):
    if value is None:
        return "$"
    if value is DERIVED:
        return "*"
    if isinstance(value, Ref):
        return f"#{int(value)}"
    if isinstance(value, Enum):
        return f".{value}."
    if isinstance(value, Typed):
        return f"{value.ifc_type.upper()}({token(value.value)})"
    if isinstance(value, str):
        return f"'{encode(value)}'"
    if isinstance(value, float):
        return real(value)
    if isinstance(value, int):
        return str(value)
    return f"({','.join(token(item) for item in value)})"


class Writer:
    """Collects the lines of the data section."""

    def __init__(self):
        self.lines = []
        self.last = 0

    def section(self, title):
        """A heading; its instances begin at the next hundred, so that what stands together is numbered together."""
        if self.lines:
            self.lines.append("")
            self.last = (self.last // 100 + 1) * 100 - 1
        self.lines.append(f"/* {title} */")

    def note(self, text):
        self.lines.append(f"/* {text} */")

    def add(self, ifc_class, *values):
        self.last += 1
        self.lines.append(f"#{self.last}={ifc_class.upper()}({','.join(token(value) for value in values)});")
        return Ref(self.last)

    def root(self, ifc_class, key, owner, *values):
        """An instance with a GlobalId."""
        return self.add(ifc_class, global_id(key), owner, *values)
