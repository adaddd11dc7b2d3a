"""Reads loadable images of macOS, as far as the loader reads them: what is mapped and how, what is exported, what is
looked for and where, what runs by itself. Two processors may share one file."""

import struct
from dataclasses import dataclass, field

FAT_MAGIC, MAGIC = 0xCAFEBABE, 0xFEEDFACF
PROCESSORS = {0x01000007: "x86_64", 0x0100000C: "arm64"}
BUNDLE = 8
READ, WRITE, EXECUTE = 1, 2, 4
ZERO_FILLED, START_FUNCTIONS = 1, 9  # Kinds of sections.
INSTRUCTIONS = 0x80000000 | 0x00000400  # Flags of sections that hold some.
SEGMENT, SYMBOLS, DYNAMIC_LIBRARY, SIGNATURE, LOADER_INFO, BUILD = 0x19, 0x2, 0xC, 0x1D, 0x80000022, 0x32
HOST = "what the host has loaded"


def images(content):
    """The image for each processor, by its name."""
    magic, count = struct.unpack_from(">II", content)
    if magic != FAT_MAGIC:
        return {}
    found = {}
    for index in range(count):
        processor, _, begin, size, _ = struct.unpack_from(">IIIII", content, 8 + 20 * index)
        found[PROCESSORS.get(processor, processor)] = Image(content[begin:begin + size])
    return found


@dataclass
class Section:
    name: str
    address: int
    size: int
    offset: int
    flags: int

    def kind(self):
        return self.flags & 0xFF


@dataclass
class Segment:
    name: str
    address: int
    size: int
    allowed: int
    protection: int
    sections: list = field(default_factory=list)


class Reader:
    """One stream of the loader's: bytes, variable-length numbers, names."""

    def __init__(self, content, at=0):
        self.content, self.at = content, at

    def more(self):
        return self.at < len(self.content)

    def byte(self):
        self.at += 1
        return self.content[self.at - 1]

    def number(self):
        value = shift = 0
        while True:
            byte = self.byte()
            value |= (byte & 0x7F) << shift
            shift += 7
            if byte < 0x80:
                return value

    def name(self):
        end = self.content.index(0, self.at)
        begin, self.at = self.at, end + 1
        return self.content[begin:end].decode()


class Image:
    """segments: in their order. libraries: the paths to load. symbols: (address, name) of what the image defines."""

    def __init__(self, content):
        self.content = content
        magic, self.processor, _, self.kind, count, _, self.flags, _ = struct.unpack_from("<8I", content)
        if magic != MAGIC:
            raise ValueError("no image of 64 bits")
        self.segments, self.libraries, self.symbols, self.commands = [], [], [], set()
        at = 32
        for _ in range(count):
            command, size = struct.unpack_from("<II", content, at)
            self.commands.add(command)
            reading = {SEGMENT: self.read_segment, SYMBOLS: self.read_symbols, DYNAMIC_LIBRARY: self.read_library,
                       LOADER_INFO: self.read_loader_info, BUILD: self.read_build}.get(command)
            if reading:
                reading(at)
            at += size

    def read_segment(self, at):
        name, address, size, _, _, allowed, protection, count, _ = struct.unpack_from("<16s4Q4I", self.content, at + 8)
        segment = Segment(text(name), address, size, allowed, protection)
        for index in range(count):
            name, _, begin, length, offset, _, _, _, flags = struct.unpack_from("<16s16sQQ5I", self.content,
                                                                                at + 72 + 80 * index)
            segment.sections.append(Section(text(name), begin, length, offset, flags))
        self.segments.append(segment)

    def read_symbols(self, at):
        table, count, names, _ = struct.unpack_from("<4I", self.content, at + 8)
        for index in range(count):
            name, kind, section, _, value = struct.unpack_from("<IBBHQ", self.content, table + 16 * index)
            if section and not kind & 0xE0:
                self.symbols.append((value, Reader(self.content, names + name).name()))

    def read_library(self, at):
        name, = struct.unpack_from("<I", self.content, at + 8)
        self.libraries.append(Reader(self.content, at + name).name())

    def read_loader_info(self, at):
        parts = struct.unpack_from("<10I", self.content, at + 8)
        _, bound, weak, lazy, self.trie = (self.content[parts[i]:parts[i] + parts[i + 1]] for i in range(0, 10, 2))
        self.bindings = (bound, weak, lazy)

    def read_build(self, at):
        platform, oldest = struct.unpack_from("<II", self.content, at + 8)
        self.platform, self.oldest = platform, (oldest >> 16, oldest >> 8 & 0xFF)

    def sections(self):
        return [section for segment in self.segments for section in segment.sections]

    def section(self, name):
        return next((section for section in self.sections() if section.name == name), None)

    def bytes_of(self, section):
        return self.content[section.offset:section.offset + section.size]

    def exports(self):
        """The address of each name that others find, the image's begin being 0."""
        found, waiting = {}, [("", 0)]
        while waiting:
            prefix, at = waiting.pop()
            reader = Reader(self.trie, at)
            size = reader.number()
            children = reader.at + size
            if size:
                reader.number()
                found[prefix] = reader.number()
            reader.at = children
            for _ in range(reader.byte()):
                part = reader.name()
                waiting.append((prefix + part, reader.number()))
        return found

    def imports(self):
        """Where the loader looks for each name: a library's path, or HOST."""
        found = {}
        for stream in self.bindings:
            found.update(self.bound_by(Reader(stream)))
        return found

    def bound_by(self, reader):
        found, library, name = {}, None, None
        while reader.more():
            byte = reader.byte()
            operation, small = byte & 0xF0, byte & 0x0F
            if operation in (0x10, 0x20):  # A library by its number.
                library = self.libraries[(small if operation == 0x10 else reader.number()) - 1]
            elif operation == 0x30:  # No library: -2, on four bits, is any image that is loaded.
                library = HOST if small == 0xE else f"special {small}"
            elif operation == 0x40:
                name = reader.name()
            elif operation in (0x60, 0x70, 0x80, 0xA0):  # An addend, a place, or a step: one number.
                reader.number()
                if operation == 0xA0:
                    found[name] = library
            elif operation in (0x90, 0xB0):
                found[name] = library
            elif operation == 0xC0:
                found[name] = library
                reader.number()
                reader.number()
            elif operation not in (0x00, 0x50):
                raise ValueError(f"binding operation {byte:#x}")
        return found

    def start_functions(self):
        """The addresses of what the loader calls when it has mapped the image."""
        return [address for section in self.sections() if section.kind() == START_FUNCTIONS
                for address, in struct.iter_unpack("<Q", self.bytes_of(section))]

    def place_of(self, name):
        """The segment and the section of a symbol, its address, and how far it reaches: to the next symbol, or to its
        section's end."""
        address = next(value for value, symbol in self.symbols if symbol == name)
        segment, section = next((segment, section) for segment in self.segments for section in segment.sections
                                if section.address <= address < section.address + section.size)
        next_one = min((value for value, _ in self.symbols if value > address), default=section.address + section.size)
        return segment, section, address, min(next_one, section.address + section.size) - address

    def handlers(self):
        """(personality functions, functions with handlers): what an exception finds here on its way."""
        table = self.bytes_of(self.section("__unwind_info"))
        _, _, _, _, personalities, index, count = struct.unpack_from("<7I", table)
        begins = [struct.unpack_from("<III", table, index + 12 * entry)[2] for entry in range(count)]
        return personalities, (begins[-1] - begins[0]) // 8


def text(padded):
    return padded.rstrip(b"\0").decode()
