"""What the two comparison cases check of their results: the two revisions of
examples/compare are untouched, and each marked-up copy is a sound drawing whose
entities all stand on the result layers, coloured by layer as the default options say.
"""
import collections
import hashlib
import pathlib

import ezdxf

EXAMPLES = pathlib.Path(__file__).resolve().parent / "../../../examples/compare"
RESULT_LAYERS = ("VN_FILECOMPARE_DIF", "VN_FILECOMPARE_MOD", "VN_FILECOMPARE_SAM")
# Colours of different, modified and same, as the options have them by default.
OLD_COLOURS = (1, 6, 8)
NEW_COLOURS = (3, 2, 9)


def work_folder(saved_drawing):
    # The runner saves WORK/out.dxf and gives korva WORK/tmp as its temporary folder.
    return pathlib.Path(saved_drawing).resolve().parent


def assert_inputs_untouched():
    for line in (EXAMPLES / "SHA256SUMS").read_text().splitlines():
        digest, name = line.split()
        actual = hashlib.sha256((EXAMPLES / name).read_bytes()).hexdigest()
        assert actual == digest, f"{name} changed"


def assert_results_only(folder):
    names = sorted(path.name for path in folder.iterdir())
    assert names == ["New - site-rev2.dxf", "Old - site-rev1.dxf"], names


def top_level(doc):
    # Model space and the sheet: the entities that the comparison pairs by handle.
    return list(doc.modelspace()) + list(doc.layouts.get("Sheet A3"))


def nested(doc, entities):
    """What the comparison moves along with the given entities: the attributes and the
    block entities of references, nested references too, and the entities of each
    dimension's own block (the arrow blocks that those reference keep their layer and
    show in the colour of the reference).
    """
    seen, found = set(), []
    pending = list(entities)
    while pending:
        entity = pending.pop()
        if entity.dxftype() == "INSERT":
            found.extend(entity.attribs)
            if entity.dxf.name not in seen:
                seen.add(entity.dxf.name)
                block = list(doc.blocks.get(entity.dxf.name))
                found.extend(block)
                pending.extend(block)
        elif entity.dxftype() == "DIMENSION":
            found.extend(doc.blocks.get(entity.dxf.geometry))
    return found


def check_result(path, colours):
    """Audits one marked-up copy and counts its top-level entities per result layer."""
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    assert not auditor.has_errors, [str(error) for error in auditor.errors]
    for name, colour in zip(RESULT_LAYERS, colours):
        layer = doc.layers.get(name)
        assert layer.color == colour and not layer.is_frozen(), (name, layer.color)
    entities = top_level(doc)
    for entity in entities + nested(doc, entities):
        assert entity.dxf.layer in RESULT_LAYERS, (path.name, entity, entity.dxf.layer)
    for entity in entities:
        # The entity shows in its layer's colour.
        assert entity.dxf.get("color", 256) == 256, (path.name, entity)
    return doc, collections.Counter(entity.dxf.layer for entity in entities)


def kinds_on(doc, layer):
    return sorted(entity.dxftype() for entity in top_level(doc) if entity.dxf.layer == layer)


def check_revisions(folder):
    """The layers tell what make_revisions.py changed from revision 1 to revision 2."""
    old, old_counts = check_result(folder / "Old - site-rev1.dxf", OLD_COLOURS)
    new, new_counts = check_result(folder / "New - site-rev2.dxf", NEW_COLOURS)
    different, modified, same = RESULT_LAYERS
    # Deleted: a wall and a label. Added: a tree and a window.
    assert kinds_on(old, different) == ["LINE", "TEXT"]
    assert kinds_on(new, different) == ["CIRCLE", "LINE"]
    # Moved table, recoloured tree, two labels, the note, the bedroom's tag, the title.
    changed = ["CIRCLE", "CIRCLE", "INSERT", "MTEXT", "TEXT", "TEXT"]
    assert kinds_on(old, modified) == changed
    assert kinds_on(new, modified) == changed
    originals = len(top_level(ezdxf.readfile(EXAMPLES / "site-rev1.dxf")))
    assert old_counts[same] == new_counts[same] == originals - 2 - len(changed)
    kitchen = [e for e in old.modelspace().query("TEXT") if e.dxf.text == "KITCHEN"]
    assert kitchen and kitchen[0].dxf.layer == different
    table = [e for e in new.modelspace().query("CIRCLE") if e.dxf.center.isclose((21, 13))]
    assert table and table[0].dxf.layer == modified


def check_current_drawing_untouched(saved_drawing):
    # The drawing the command ran from stays current: it is the one saved, unmarked.
    doc = ezdxf.readfile(saved_drawing)
    assert not any(name in doc.layers for name in RESULT_LAYERS)
