"""modelhost as these tests use it, and the models that they use it on."""

import json
import os
import subprocess
from pathlib import Path

PROJECT = Path(os.environ.get("PROJECT_DIR") or Path(__file__).resolve().parents[2])
PROGRAM = Path(os.environ.get("BINARY_DIR") or PROJECT / "build/release/bin") / "modelhost"
MADE_MODELS = PROGRAM.parents[1] / "tests/models"
REAL_MODELS = Path(os.environ.get("REAL_MODELS") or PROJECT.parent / "shared/models")
HOUSE = PROJECT / "samples/house.ifc"


def models():
    """The sample, what scripts/make_models.py made of it, and the real models where there are any."""
    made = sorted(MADE_MODELS.glob("*.ifc"))
    assert made, f"no model in {MADE_MODELS}: the build makes them"
    return [HOUSE, *made, *sorted(REAL_MODELS.glob("*.ifc"))]


def modelhost(*arguments, expect=0):
    """Standard output of one run, parsed."""
    done = subprocess.run([PROGRAM, *map(str, arguments), "--format", "json"], capture_output=True)
    errors = done.stderr.decode(errors="replace")
    command = " ".join(map(str, arguments))
    assert done.returncode == expect, f"modelhost {command} ended with {done.returncode}\n{errors}"
    return json.loads(done.stdout)


def elements(model):
    return modelhost("list", model)["elements"]


def lookup(model, guids):
    """GUID -> the rows of its lookup, as (name, value)."""
    found = {}
    for name, value in modelhost("lookup", model, *guids)["rows"]:
        if name == "GUID" and value in guids:
            found[value] = rows = []
        rows.append((name, value))
    return found


def write_updates(path, updates):
    """@param updates  (GUID, item, new value); the old value is nobody's business but the reader's."""
    path.write_bytes("".join(f"{guid}\t{item}\t\t{value}\n" for guid, item, value in updates).encode())


def apply(model, updates, out, expect=0):
    return modelhost("import", model, updates, "--apply", "-o", out, expect=expect)
