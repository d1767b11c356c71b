#!/usr/bin/python3
"""Checks the demo's DXF saves against ezdxf, a reader of its own.

For a sample of the parts library, each drawing is saved by
`propwidgets-demo --save-as`, once unedited and once with every model-space
entity recoloured (--set-colour). ezdxf reads the file and each save and
compares: the entity counts by type in every layout and block, the handles,
the header variables, the table records, and every group of every record
outside the model space's entities; for the edited save, every entity's
attributes but its colour, and the colour itself.

    check_saves_with_ezdxf.py DEMO [LIBRARY] [EVERY]   (every EVERY-th drawing; default 16)
"""

import os
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.lldxf.tagger import ascii_tags_loader

COLOUR = 3
# header variables ezdxf makes up on reading when a file has none: they differ from one reading to the next
MADE_UP = {"$FINGERPRINTGUID", "$VERSIONGUID", "$TDCREATE", "$TDUCREATE", "$TDUPDATE", "$TDUUPDATE", "$TDINDWG"}


def raw_tags(path):
    """The file's groups, as (code, value) pairs, the model space's entities marked apart."""
    with open(path, "rb") as stream:
        text = stream.read().decode("cp1252", errors="replace").replace("\r\n", "\n")
    outside, entities = [], []
    section = None
    previous = None
    for tag in ascii_tags_loader(__import__("io").StringIO(text)):
        code, value = tag.code, tag.value
        if previous == (0, "SECTION") and code == 2:
            section = value
        (entities if section == "ENTITIES" and (code, value) != (0, "ENDSEC") else outside).append((code, value))
        if (code, value) == (0, "ENDSEC"):
            section = None
        previous = (code, value)
    return outside, entities


def summary(doc):
    """What both files must agree on, by layout and block."""
    layouts = {}
    for layout in doc.layouts:
        layouts[layout.name] = [(e.dxftype(), e.dxf.get("handle")) for e in layout]
    blocks = {}
    for block in doc.blocks:
        blocks[block.name] = sorted(e.dxftype() for e in block)
    header = {name: str(doc.header[name]) for name in doc.header.varnames() if name not in MADE_UP}
    tables = {
        "layers": sorted(t.dxf.name for t in doc.layers),
        "linetypes": sorted(t.dxf.name for t in doc.linetypes),
        "styles": sorted(t.dxf.name for t in doc.styles),
        "dimstyles": sorted(t.dxf.name for t in doc.dimstyles),
    }
    return layouts, blocks, header, tables


def attributes(entity):
    attribs = dict(entity.dxfattribs())
    for key in ("color", "true_color"):
        attribs.pop(key, None)
    return attribs


def check(demo, path, scratch):
    failures = []
    original = ezdxf.readfile(path)
    for edited in (False, True):
        out = os.path.join(scratch, "saved.dxf")
        command = [demo, "--save-as", out, path] + (["--set-colour", str(COLOUR)] if edited else [])
        result = subprocess.run(command, capture_output=True, text=True)
        what = "edited" if edited else "unedited"
        if result.returncode != 0:
            failures.append(f"{what}: save failed: {result.stderr.strip()}")
            continue
        saved = ezdxf.readfile(out)
        for name, a, b in zip(("layouts", "blocks", "header", "tables"), summary(original), summary(saved)):
            if a != b:
                keys = sorted(k for k in set(a) | set(b) if a.get(k) != b.get(k))[:3]
                failures.append(f"{what}: {name} differ ({', '.join(keys)})")
        outside_a, entities_a = raw_tags(path)
        outside_b, entities_b = raw_tags(out)
        if outside_a != outside_b:
            failures.append(f"{what}: the groups outside the model space's entities differ")
        if not edited and entities_a != entities_b:
            failures.append("unedited: the entities' groups differ")
        if edited:
            for a, b in zip(original.modelspace(), saved.modelspace()):
                if attributes(a) != attributes(b):
                    failures.append(f"edited: {a.dxftype()} {a.dxf.get('handle')}: attributes beyond the colour differ")
                    break
                if a.dxftype() != "ATTRIB" and b.dxf.get("color") != COLOUR:
                    failures.append(f"edited: {a.dxftype()} {a.dxf.get('handle')}: colour {b.dxf.get('color')}")
                    break
    return failures


def main():
    demo = sys.argv[1]
    library = sys.argv[2] if len(sys.argv) > 2 else "/usr/share/librecad/library"
    every = int(sys.argv[3]) if len(sys.argv) > 3 else 16
    paths = sorted(
        os.path.join(folder, name)
        for folder, _, names in os.walk(library)
        for name in names
        if name.lower().endswith(".dxf")
    )[::every]
    if not paths:
        print("no drawings to check in", library)
        return 0
    failed = 0
    unreadable = 0
    with tempfile.TemporaryDirectory() as scratch:
        for path in paths:
            try:
                ezdxf.readfile(path)
            except Exception:  # ezdxf refuses some files of the library: nothing to compare with
                unreadable += 1
                continue
            failures = check(demo, path, scratch)
            if failures:
                failed += 1
                print(os.path.basename(path) + ": " + "; ".join(failures[:3]))
    print(f"{len(paths)} drawings, {failed} failed, {unreadable} that ezdxf does not read")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
