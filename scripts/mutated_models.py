#!/usr/bin/env python3
"""The runs behind scripts/mutated-models.

usage: mutated_models.py BUILD MINUTES SEED
"""

import random
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PROJECT = Path(__file__).resolve().parent.parent
TIME_LIMIT = 60     # Seconds; the sanitizers make everything slower.
LARGEST = 200_000   # Bytes of a model that is worth damaging: a run is to be short.
TOKEN = re.compile(rb"'(?:[^']|'')*'|#\d+|\.\w+\.|[-+]?\d+\.?\d*(?:E[-+]?\d+)?|\w+|\s+|.", re.DOTALL)
NASTY = (b"'", b"(", b")", b";", b"$", b"*", b"/*", b"*/", b"()", b",,", b"\\X2\\", b"\\X0\\", b"\\S\\", b".T.",
         b"1E400", b"-9223372036854775808", b"#1", b"#99999999999999999999", b"\0", b"\xff\xfe", b"IFCLABEL(",
         b"ENDSEC;", b"DATA;")
UPDATES = ("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tFireRating[WallCommon]\t\tF 120\n"
           "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tName\t\tnew 'name' \\ \u4e2d\n"
           "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tInspectedOn[House_Survey]\t\t2024-05-17\n"
           "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tUniFormat Classification\t\tB2010.10{Veneer}\n"
           "A32931C7-B3B2-4117-8D6A-3038DD4E9A78\tSmokeStop[DoorCommon]\t\ttrue\n"
           "A32931C7-B3B2-4117-8D6A-3038DD4E9A78\tUniFormat Classification\t\tB2050.10{Doors}\n")
STEPS = ('{"menu":1}\n{"file":"updates.txt"}\n{"click":3}\n{"click":1}\n{"dump":true}\n{"click":2}\n{"undo":true}\n'
         '{"redo":true}\n{"menu":2}\n{"text":"4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9","item":3}\n'
         '{"click":1}\n{"click":2}\n{"save":"saved.ifc"}\n')
TABLE = ("GUID,Name,FireRating[WallCommon],UniFormat Classification\n"
         "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9,new,\"F 90, as built\",B2010.10{Veneer}\n"
         "A32931C7-B3B2-4117-8D6A-3038DD4E9A78,,F 30,\n")
SELECTION = ("IfcWall, Pset_WallCommon.FireRating!=F60 + IfcDoor, classification=/B2.*/ + "
             "IfcElement, material=/.*/, location=/.*/, type!=x")
RUNS = (("list", "model.ifc", "--format", "json"),
        ("list", "model.ifc", "--where", SELECTION),
        ("items", "model.ifc", "--format", "json"),
        ("export", "model.ifc", "--items", "Name,FireRating[WallCommon]", "--layout", "grid", "-o", "values.xlsx"),
        ("import", "model.ifc", "table.csv", "--apply", "--exact", "-o", "saved.ifc", "--report", "page.html"),
        ("import", "sound.ifc", "model.ifc", "updates.txt", "--apply", "--share-sets", "--out-dir", "out", "-j2"),
        ("diff", "sound.ifc", "model.ifc", "--format", "json", "--report", "changes.html"),
        ("diff", "model.ifc", "sound.ifc", "--format", "updates", "-o", "changes.txt"),
        ("lookup", "model.ifc", "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9"),
        ("export", "model.ifc", "--items", "Name,FireRating,UniFormat Classification", "-o", "values.txt"),
        ("import", "model.ifc", "updates.txt", "--apply", "-o", "saved.ifc"),
        ("import", "model.ifc", "updates.txt", "--apply", "-o", "saved.ifczip"),
        ("script", "model.ifc", "steps.jsonl"))


def damaged(model, dice):
    """A few tokens changed, moved, doubled or lost, a few bytes hit."""
    tokens = TOKEN.findall(model)
    for _ in range(dice.choice((1, 1, 2, 3, 8, 40))):
        at, other = dice.randrange(len(tokens)), dice.randrange(len(tokens))
        kind = dice.randrange(7)
        if kind == 0:
            tokens[at] = dice.choice(NASTY)
        elif kind == 1:
            tokens[at] = b""
        elif kind == 2:
            tokens[at] = tokens[other]
        elif kind == 3:
            tokens[at], tokens[other] = tokens[other], tokens[at]
        elif kind == 4:
            tokens[at] += tokens[at] * dice.randrange(1, 4)
        elif kind == 5:
            references = [i for i in range(max(0, at - 200), min(len(tokens), at + 200)) if tokens[i].startswith(b"#")]
            if references:
                tokens[dice.choice(references)] = b"#%d" % dice.randrange(1, 2300)
        elif tokens[at]:
            piece = bytearray(tokens[at])
            piece[dice.randrange(len(piece))] = dice.randrange(256)
            tokens[at] = bytes(piece)
    text = b"".join(tokens)
    return text[:dice.randrange(len(text))] if dice.randrange(30) == 0 else text


def run(program, folder, arguments):
    """What is wrong with one run, or nothing, and its exit status."""
    try:
        done = subprocess.run([program, *arguments], cwd=folder, capture_output=True, timeout=TIME_LIMIT,
                              stdin=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        return f"still running after {TIME_LIMIT} s", None
    errors = done.stderr.decode(errors="replace")
    if done.returncode not in (0, 1, 2) or "Sanitizer" in errors or "runtime error" in errors:
        return f"status {done.returncode}\n{errors[-3000:]}", done.returncode
    if "internal error" in errors or "crashed" in errors:
        return errors[-3000:], done.returncode
    if done.returncode == 1 and "modelhost: " not in errors:
        return "failed without a word", 1
    return None, done.returncode


def attack(program, model, dice, folder):
    """One damaged model through every command. @return (count of runs, complaints)"""
    for name, content in (("sound.ifc", model), ("model.ifc", damaged(model, dice)), ("table.csv", TABLE.encode()),
                          ("updates.txt", UPDATES.encode()), ("steps.jsonl", STEPS.encode())):
        (folder / name).write_bytes(content)
    complaints, count = [], 0
    for arguments in RUNS:
        complaint, status = run(program, folder, arguments)
        count += 1
        for saved in ("saved.ifc", "saved.ifczip"):
            if not complaint and (folder / saved).exists():
                complaint, status = run(program, folder, ("list", saved))
                complaint = complaint or (f"{saved} cannot be opened again" if status != 0 else None)
                count += 1
                (folder / saved).unlink()
        if complaint:
            complaints.append(f"modelhost {' '.join(arguments)}\n{complaint}")
    return count, complaints


def main(build, minutes, seed):
    program = build / "bin/modelhost"
    paths = [PROJECT / "samples/house.ifc", *sorted((build / "tests/models").glob("*.ifc"))]
    models = [path.read_bytes() for path in paths if path.stat().st_size <= LARGEST]
    kept = PROJECT / "build/mutated"
    dice, end = random.Random(seed), time.monotonic() + minutes * 60
    inputs = runs = broken = 0
    while time.monotonic() < end:
        with tempfile.TemporaryDirectory(dir="/dev/shm" if Path("/dev/shm").is_dir() else None) as name:
            count, complaints = attack(program, dice.choice(models), dice, Path(name))
            inputs, runs = inputs + 1, runs + count
            if complaints:
                broken += 1
                target = kept / f"{seed}-{inputs}"
                target.mkdir(parents=True, exist_ok=True)
                shutil.copy(Path(name) / "model.ifc", target)
                (target / "complaints.txt").write_text("\n\n".join(complaints), encoding="utf-8")
                print(f"{target}: {complaints[0][:1000]}", flush=True)
    print(f"seed {seed}: {inputs} damaged models, {runs} runs, {broken} of the models broke something")
    return 1 if broken or not inputs else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).resolve(), float(sys.argv[2]), int(sys.argv[3])))
