"""A folder that is the root of a Debian with nothing in it but some packages and what they depend on: made from the
packages installed on this machine, so that it takes seconds and no network."""

import os
import re
import shutil
import subprocess
from pathlib import Path

STANZA_FIELDS = ("Package", "Status", "Version", "Architecture", "Multi-Arch", "Depends", "Pre-Depends", "Provides",
                 "Maintainer", "Description")


def installed():
    """The stanzas of dpkg's own list of what is installed, by name, each a dict of its fields."""
    packages = {}
    for stanza in Path("/var/lib/dpkg/status").read_text(encoding="utf-8").split("\n\n"):
        fields = dict(re.findall(r"^([\w-]+): *((?:.*)(?:\n[ \t].*)*)", stanza, re.MULTILINE))
        if fields.get("Status") == "install ok installed":
            packages[fields["Package"]] = fields
    return packages


def wanted_by(fields):
    """The alternatives of each thing that a package depends on."""
    for name in ("Pre-Depends", "Depends"):
        for group in filter(None, (part.strip() for part in fields.get(name, "").split(","))):
            yield [re.split(r"[ (:]", choice.strip())[0] for choice in group.split("|")]


def closure(fields, packages):
    """The names of the installed packages that somebody with these fields needs.
    @raise LookupError where one is missing."""
    providers = {}
    for name, stanza in packages.items():
        for provided in filter(None, (part.strip() for part in stanza.get("Provides", "").split(","))):
            providers.setdefault(re.split(r"[ (]", provided)[0], name)
    found, waiting = set(), [fields]
    while waiting:
        for choices in wanted_by(waiting.pop()):
            there = (choice if choice in packages else providers.get(choice) for choice in choices)
            name = next(filter(None, there), None)
            if name is None:
                raise LookupError(" or ".join(choices) + " is not installed on this machine")
            if name not in found:
                found.add(name)
                waiting.append(packages[name])
    return found


class BareRoot:
    """@param needing  the fields of the packages that are to be installed there, by name."""

    def __init__(self, folder, needing):
        self.folder = Path(folder)
        self.packages = installed()
        own = set(needing)
        self.names = sorted(set().union(*(closure(self.without(fields, own), self.packages)
                                          for fields in needing.values())))
        self.make()

    @staticmethod
    def without(fields, names):
        """The packages under test need each other, too; those come from the test."""
        kept = [part for part in fields.get("Depends", "").split(",")
                if re.split(r"[ (]", part.strip())[0] not in names]
        return dict(fields, Depends=",".join(kept))

    def make(self):
        for name in ("bin", "sbin", "lib", "lib64", "lib32", "libx32"):
            host = Path("/") / name
            if host.is_symlink():
                (self.folder / host.readlink()).mkdir(parents=True, exist_ok=True)
                (self.folder / name).symlink_to(host.readlink())
        for name in ("proc", "tmp", "dev", "var/lib/dpkg/info", "var/lib/dpkg/updates", "var/lib/dpkg/triggers"):
            (self.folder / name).mkdir(parents=True, exist_ok=True)
        for name in self.names:
            self.copy(name)
        stanzas = ("\n".join(f"{field}: {self.packages[name][field]}" for field in STANZA_FIELDS
                             if field in self.packages[name]) for name in self.names)
        (self.folder / "var/lib/dpkg/status").write_text("\n\n".join(stanzas) + "\n\n", encoding="utf-8")

    def copy(self, name):
        listed = subprocess.run(["dpkg-query", "-L", name], capture_output=True, text=True, check=True).stdout
        for line in listed.splitlines():
            source, target = Path(line), self.folder / line.lstrip("/")
            if source.is_symlink() or source.is_file():
                target.parent.mkdir(parents=True, exist_ok=True)
                if not os.path.lexists(target):
                    shutil.copy2(source, target, follow_symlinks=False)
        info = self.folder / "var/lib/dpkg/info"
        for suffix in ("", ":" + self.packages[name]["Architecture"]):
            own = Path(f"/var/lib/dpkg/info/{name}{suffix}.list")
            if own.exists():
                shutil.copy2(own, info / own.name)

    def files(self):
        """Everything in it but dpkg's own notes."""
        return {path for path in map(str, self.folder.rglob("*")) if "/var/lib/dpkg/" not in path}

    def dpkg(self, *arguments):
        command = ["dpkg", f"--root={self.folder}", "--log=/dev/null", "--no-triggers", *map(str, arguments)]
        return subprocess.run(command, capture_output=True, text=True)

    def run(self, *command, **options):
        """Runs a command there, with the processes' folder that the programs find themselves by."""
        return subprocess.run(self.inside('exec chroot "$0" "$@"', *command), capture_output=True, text=True, **options)

    def inside(self, script, *command):
        return ["unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-c",
                'mount -t proc proc "$0/proc" && ' + script, str(self.folder), *command]


def obstacle():
    """Why there can be no such root here; empty where there can."""
    if not shutil.which("dpkg-query") or not shutil.which("dpkg-shlibdeps"):
        return "this is no Debian, or it has no dpkg-dev: packages cannot be made and installed"
    if os.geteuid() != 0:
        return "only root may enter another root folder"
    probe = subprocess.run(["unshare", "--mount", "--pid", "--fork", "true"], capture_output=True)
    return "" if probe.returncode == 0 else "this machine lets nobody make namespaces, so no root folder can be entered"
