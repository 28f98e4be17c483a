#!/usr/bin/python3
"""Drawings through korva and back: made by ezdxf at test time, or written by hand.

Each drawing is opened and saved by korva without edits. The saved file must equal the
input byte for byte, must not fail ezdxf's audit where the input passes it, and must hold
the same tags as the input; the binary save must hold the same tags too.
"""
import argparse
import io
import math
import os
import subprocess
import sys
from collections import Counter

try:
    import ezdxf
    import ezdxf.render.mleader
    from ezdxf.lldxf.tagger import ascii_tags_loader, binary_tags_loader, tag_compiler
    from ezdxf.lldxf.types import DXFVertex
    from ezdxf.math import Vec2
    from ezdxf.render import forms
except ImportError as error:  # the test is skipped, not failed, without ezdxf
    print(f"ezdxf is not importable: {error}")
    sys.exit(77)

VERSIONS = ["R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"]
# The 22 bytes every binary DXF file starts with.
BINARY_SENTINEL = bytes.fromhex("4175746f4341442042696e617279204458460d0a1a00")

DUMMY_ACIS = ["400 26 1 0", "16korva test model 19 ASM 223.0.1.1930 NT 24 Mon Jan 01 00:00:00 2024",
              "1 9.9999999999999995e-07 1e-10", "body $-1 -1 $-1 $1 $-1 $-1 #", "End-of-ACIS-data"]


class Failure(Exception):
    pass


def add_everything(doc, made):
    """Every kind of entity and object ezdxf can make in this version."""
    msp = doc.modelspace()

    def attempt(kind, build):
        try:
            build()
            made.append(kind)
        except ezdxf.DXFVersionError:
            pass  # not in this version

    attempt("LINE", lambda: msp.add_line((0, 0), (10, 5), dxfattribs={"layer": "Walls", "color": 1}))
    attempt("POINT", lambda: msp.add_point((1, 2, 3)))
    attempt("CIRCLE", lambda: msp.add_circle((5, 5), 2.5))
    attempt("ARC", lambda: msp.add_arc((5, 5), 3, 10, 170))
    attempt("ELLIPSE", lambda: msp.add_ellipse((0, 0), (4, 1), 0.5, 0, math.pi))
    attempt("SPLINE", lambda: msp.add_spline([(0, 0), (2, 3), (5, 1), (8, 4)]))
    attempt("LWPOLYLINE", lambda: msp.add_lwpolyline(
        [(0, 0, 0, 0, 0.5), (5, 0, 0, 0, -0.3), (5, 5, 0.2, 0.4, 0)], format="xyseb", close=True))
    attempt("POLYLINE2D", lambda: msp.add_polyline2d([(0, 0), (3, 1), (6, 0)]))
    attempt("POLYLINE3D", lambda: msp.add_polyline3d([(0, 0, 0), (3, 1, 2), (6, 0, 4)]))

    def mesh_polyline():
        mesh = msp.add_polymesh((3, 3))
        for m in range(3):
            for n in range(3):
                mesh.set_mesh_vertex((m, n), (m, n, (m * n) % 2))
    attempt("POLYMESH", mesh_polyline)

    def polyface():
        face = msp.add_polyface()
        cube = forms.cube()
        face.append_faces([[cube.vertices[i] for i in f] for f in cube.faces])
    attempt("POLYFACE", polyface)
    attempt("TEXT", lambda: msp.add_text("Plan 1:100", dxfattribs={"height": 2.5}).set_pos((1, 1)))
    attempt("MTEXT", lambda: msp.add_mtext("first line\\Psecond {\\C1;red}", dxfattribs={"char_height": 1}))

    def block_with_attributes():
        block = doc.blocks.new("DOOR")
        block.add_line((0, 0), (1, 0))
        block.add_arc((0, 0), 1, 0, 90)
        block.add_attdef("NUMBER", (0, -1), dxfattribs={"height": 0.5})
        ref = msp.add_blockref("DOOR", (20, 20))
        ref.add_auto_attribs({"NUMBER": "D-01"})
    attempt("INSERT+ATTRIB+ATTDEF", block_with_attributes)

    def hatch():
        pattern = msp.add_hatch(color=2)
        pattern.paths.add_polyline_path([(0, 0), (4, 0), (4, 4), (0, 4)], is_closed=True)
        pattern.set_pattern_fill("ANSI31", scale=0.5)
    attempt("HATCH", hatch)

    def gradient():
        filled = msp.add_hatch()
        filled.paths.add_polyline_path([(10, 0), (14, 0), (12, 3)], is_closed=True)
        filled.set_gradient((255, 0, 0), (0, 0, 255), rotation=45)
    attempt("HATCH gradient", gradient)
    attempt("SOLID", lambda: msp.add_solid([(0, 0), (1, 0), (0, 1), (1, 1)]))
    attempt("TRACE", lambda: msp.add_trace([(0, 0), (1, 0), (0, 1), (1, 1)]))
    attempt("3DFACE", lambda: msp.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 1)]))

    def dimensions():
        msp.add_linear_dim(base=(0, 5), p1=(0, 0), p2=(10, 0)).render()
        msp.add_aligned_dim(p1=(0, 0), p2=(6, 8), distance=2).render()
        msp.add_angular_dim_2l(base=(5, 5), line1=((0, 0), (10, 0)), line2=((0, 0), (10, 10))).render()
        msp.add_radius_dim(center=(30, 0), radius=5, angle=45).render()
        msp.add_diameter_dim(center=(40, 0), radius=5, angle=30).render()
        msp.add_ordinate_x_dim(feature_location=(3, 4), offset=(1, 3)).render()
    attempt("DIMENSION", dimensions)
    attempt("LEADER", lambda: msp.add_leader([(0, 0), (3, 3), (6, 3)]))

    def multileader():
        builder = msp.add_multileader_mtext("Standard")
        builder.set_content("note")
        builder.add_leader_line(ezdxf.render.mleader.ConnectionSide.left, [Vec2(-5, -5)])
        builder.build(insert=Vec2(0, 0))
    attempt("MLEADER", multileader)
    attempt("RAY", lambda: msp.add_ray((0, 0), (1, 1)))
    attempt("XLINE", lambda: msp.add_xline((0, 0), (1, -1)))

    def image():
        image_def = doc.add_image_def("plan.png", size_in_pixel=(640, 480))
        msp.add_image(image_def, insert=(0, 0), size_in_units=(6.4, 4.8))
    attempt("IMAGE+IMAGEDEF", image)
    attempt("WIPEOUT", lambda: msp.add_wipeout([(0, 0), (4, 0), (4, 3)]))
    attempt("MLINE", lambda: msp.add_mline([(0, 0), (10, 0), (10, 10)]))

    def acis(factory):
        factory().sat = DUMMY_ACIS
    attempt("3DSOLID", lambda: acis(msp.add_3dsolid))
    attempt("REGION", lambda: acis(msp.add_region))
    attempt("BODY", lambda: acis(msp.add_body))
    attempt("HELIX", lambda: msp.add_helix(5, 2, 3))

    def mesh():
        with msp.add_mesh().edit_data() as data:
            data.vertices = [(0, 0, 0), (1, 0, 0), (0, 1, 0), (0, 0, 1)]
            data.faces = [[0, 1, 2], [0, 1, 3]]
    attempt("MESH", mesh)

    def shape():
        doc.styles.add_shx("shapes.shx")
        msp.add_shape("ARROW", (2, 2), size=1)
    attempt("SHAPE", shape)
    attempt("TOLERANCE", lambda: msp.new_entity("TOLERANCE", {"dimstyle": "Standard", "content": "{\\Fgdt;j}%%v0.1"}))

    def underlay():
        pdf = doc.add_underlay_def("plan.pdf", fmt="pdf", name="1")
        msp.add_underlay(pdf, insert=(0, 0), scale=1)
    attempt("UNDERLAY", underlay)

    def viewport():
        layout = doc.layouts.new("Sheet 2")
        layout.add_viewport(center=(100, 100), size=(150, 100), view_center_point=(5, 5), view_height=40)
        layout.add_line((0, 0), (10, 0))
    attempt("VIEWPORT", viewport)

    def group_and_data():
        line = msp.add_line((0, 10), (5, 10))
        doc.appids.new("KORVA_TEST")
        line.set_xdata("KORVA_TEST", [(1000, "extended"), (1040, 2.5), (1070, 3), (1010, (1, 2, 3))])
        if doc.dxfversion > "AC1009":
            group = doc.groups.new("WALL_SET")
            group.extend([line])
            xdict = line.new_extension_dict()
            record = xdict.add_xrecord("KORVA_DATA")
            record.reset([(1, "xrecord text"), (40, 3.25), (70, 7), (10, (1, 2, 3))])
            doc.rootdict.add_new_dict("KORVA_DICT").add_xrecord("SETTINGS").reset([(1, "x")])
    attempt("XDATA/GROUP/XRECORD/XDICT", group_and_data)


def save_with_unknown_records(doc, path):
    """Saves with an entity and an object of kinds nobody knows written into the file."""
    # Their handles are taken before the save, so that $HANDSEED stays above them.
    entity_handle = doc.entitydb.next_handle()
    object_handle = doc.entitydb.next_handle()
    doc.saveas(path)
    if doc.dxfversion <= "AC1009":
        return
    root = doc.rootdict.dxf.handle
    msp = doc.modelspace().block_record_handle
    with open(path, "rb") as stream:
        data = stream.read()
    unknown_entity = ("  0\nKORVA_THING\n  5\n%s\n330\n%s\n100\nAcDbEntity\n  8\n0\n100\nAcDbKorvaThing\n"
                      " 10\n1.0\n 20\n2.0\n 30\n0.0\n  1\nnot known to anyone\n" % (entity_handle, msp))
    unknown_object = ("  0\nKORVA_SETTINGS\n  5\n%s\n330\n%s\n100\nAcDbKorvaSettings\n 90\n42\n"
                      "  1\nkept as is\n" % (object_handle, root))
    entities_end = data.index(b"\n  0\nENDSEC", data.index(b"ENTITIES"))
    data = data[:entities_end + 1] + unknown_entity.encode() + data[entities_end + 1:]
    objects_end = data.rindex(b"  0\nENDSEC")
    data = data[:objects_end] + unknown_object.encode() + data[objects_end:]
    with open(path, "wb") as stream:
        stream.write(data)


def make_drawings(version, work):
    """One drawing with everything in this version, as text and as binary."""
    doc = ezdxf.new(version, setup=True)
    made = []
    add_everything(doc, made)
    if version != "R12":
        missing = {"LINE", "SPLINE", "HATCH", "DIMENSION", "MTEXT", "IMAGE+IMAGEDEF", "MLINE", "VIEWPORT",
                   "3DSOLID", "XDATA/GROUP/XRECORD/XDICT", "INSERT+ATTRIB+ATTDEF"} - set(made)
        if missing:
            raise Failure(f"{version}: ezdxf did not make {sorted(missing)}")
    print(f"{version}: made {', '.join(made)}")
    text = os.path.join(work, f"all_{version}.dxf")
    save_with_unknown_records(doc, text)
    # Read back so that the binary file holds the unknown records too.
    with_unknown = ezdxf.readfile(text)
    binary = os.path.join(work, f"all_{version}_binary.dxf")
    with_unknown.saveas(binary, fmt="bin")
    return [text, binary]


def make_text_drawings(work):
    paths = []
    latin = ezdxf.new("R2000")
    latin.header["$DWGCODEPAGE"] = "ANSI_1252"
    latin.modelspace().add_text("caf\u00e9 cr\u00e8me", dxfattribs={"height": 1})
    latin.modelspace().add_mtext("\u00e9t\u00e9 \u4e2d")  # the Chinese needs an escape
    paths.append(os.path.join(work, "latin_R2000.dxf"))
    latin.saveas(paths[-1])
    chinese = ezdxf.new("R2018")
    chinese.modelspace().add_text("\u5efa\u7b51\u5e73\u9762\u56fe", dxfattribs={"height": 1})
    chinese.layers.new("\u5899\u4f53")
    paths.append(os.path.join(work, "chinese_R2018.dxf"))
    chinese.saveas(paths[-1])
    paths.append(os.path.join(work, "chinese_R2018_binary.dxf"))
    chinese.saveas(paths[-1], fmt="bin")
    with open(paths[0], "rb") as stream:
        if b"caf\xe9" not in stream.read():
            raise Failure("the R2000 drawing does not hold 1252 text")
    return paths


def run_korva(korva, *arguments):
    result = subprocess.run([korva, *arguments], capture_output=True, timeout=60)
    if result.returncode != 0:
        raise Failure(f"korva {' '.join(arguments)} failed ({result.returncode}): "
                      f"{result.stderr.decode(errors='replace')}")
    return result


def is_binary(data):
    return data[:22] == BINARY_SENTINEL


def encoding_of(tags):
    version, codepage = "AC1009", "ANSI_1252"
    for index, tag in enumerate(tags[:400]):
        if tag.code == 9 and tag.value == "$ACADVER":
            version = tags[index + 1].value
        if tag.code == 9 and tag.value == "$DWGCODEPAGE":
            codepage = tags[index + 1].value
    if version >= "AC1021":
        return "utf-8"
    return ezdxf.tools.codepage.toencoding(codepage)


def tags_of(path):
    """The file's tags as ezdxf reads them: typed values, points as vertices, no comments."""
    with open(path, "rb") as stream:
        data = stream.read()
    if is_binary(data):
        return list(tag_compiler(iter(binary_tags_loader(data))))
    # Names and versions are ASCII: read them first to learn the encoding of the rest.
    raw = list(ascii_tags_loader(io.StringIO(data.decode("latin-1"), newline=None)))
    text = data.decode(encoding_of(raw), errors="surrogateescape")
    return list(tag_compiler(ascii_tags_loader(io.StringIO(text, newline=None))))


def plain(tag):
    value = tuple(tag.value) if isinstance(tag, DXFVertex) else tag.value
    if isinstance(value, str):
        value = value.rstrip()  # binary values have no trailing blanks to keep
    return tag.code, value


def compare_tags(input_path, output_path):
    expected = [plain(tag) for tag in tags_of(input_path)]
    actual = [plain(tag) for tag in tags_of(output_path)]
    for index, (left, right) in enumerate(zip(expected, actual)):
        if left != right:
            raise Failure(f"{output_path}: tag {index} is {right!r}, {input_path} has {left!r}")
    if len(expected) != len(actual):
        raise Failure(f"{output_path}: {len(actual)} tags, {input_path} has {len(expected)}")


def audit_errors(path):
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    return Counter((error.code, error.message) for error in auditor.errors), doc


def check_audit(input_path, output_path):
    before, input_doc = audit_errors(input_path)
    after, output_doc = audit_errors(output_path)
    new = after - before
    if new:
        raise Failure(f"{output_path}: ezdxf audit errors the input lacks: {sorted(new)}")
    left = {entity.dxf.handle: entity.dxftype() for entity in input_doc.entitydb.values()}
    right = {entity.dxf.handle: entity.dxftype() for entity in output_doc.entitydb.values()}
    if left != right:
        raise Failure(f"{output_path}: ezdxf sees other records than in {input_path}")


def check_drawing(korva, input_path, work):
    stem = os.path.splitext(os.path.basename(input_path))[0]
    output = os.path.join(work, f"{stem}.korva.dxf")
    run_korva(korva, input_path, "-o", output, "-q")
    with open(input_path, "rb") as left, open(output, "rb") as right:
        if left.read() != right.read():
            raise Failure(f"{output} differs from {input_path}, which was not edited")
    check_audit(input_path, output)
    compare_tags(input_path, output)
    binary = os.path.join(work, f"{stem}.korva-binary.dxf")
    run_korva(korva, input_path, "-o", binary, "--binary", "-q")
    with open(binary, "rb") as stream:
        if not is_binary(stream.read(32)):
            raise Failure(f"{binary} is not a binary DXF file")
    compare_tags(input_path, binary)
    check_audit(input_path, binary)
    print(f"ok {os.path.basename(input_path)}")


def check_new_drawing(korva, work):
    output = os.path.join(work, "new.dxf")
    if os.path.exists(output):
        os.remove(output)
    run_korva(korva, "-o", output, "-q")
    doc = ezdxf.readfile(output)
    auditor = doc.audit()
    if auditor.has_errors:
        raise Failure(f"{output}: ezdxf audit errors: {[e.message for e in auditor.errors]}")
    for name in ("ACAD_GROUP", "ACAD_LAYOUT", "ACAD_MLINESTYLE", "ACAD_PLOTSTYLENAME"):
        if name not in doc.rootdict:
            raise Failure(f"{output}: no {name} in the named objects dictionary")
    if "0" not in doc.layers or "Standard" not in doc.styles or "Continuous" not in doc.linetypes:
        raise Failure(f"{output}: layer 0, style Standard or linetype Continuous missing")
    if len(doc.layouts) < 2:
        raise Failure(f"{output}: no paper-space layout")
    # The new drawing is usable: ezdxf can add to it and korva can read the result.
    doc.modelspace().add_line((0, 0), (1, 1))
    doc.saveas(os.path.join(work, "new_edited.dxf"))
    run_korva(korva, os.path.join(work, "new_edited.dxf"), "-q")
    print("ok new drawing")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--korva", required=True)
    parser.add_argument("--work", required=True)
    parser.add_argument("--handwritten", required=True)
    parser.add_argument("--case", required=True)
    options = parser.parse_args()
    work = os.path.join(options.work, options.case)
    os.makedirs(work, exist_ok=True)
    if options.case in VERSIONS:
        inputs = make_drawings(options.case, work)
    elif options.case == "text":
        inputs = make_text_drawings(work)
    elif options.case == "handwritten":
        inputs = sorted(os.path.join(options.handwritten, name)
                        for name in os.listdir(options.handwritten) if name.endswith(".dxf"))
        if len(inputs) < 10:
            raise Failure("hand-written drawings are missing")
    elif options.case == "new":
        check_new_drawing(options.korva, work)
        return 0
    else:
        parser.error(f"unknown case {options.case}")
    failures = 0
    for path in inputs:
        try:
            check_drawing(options.korva, path, work)
        except Failure as failure:
            print(f"FAIL {failure}")
            failures += 1
    return 1 if failures else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as failure:
        print(f"FAIL {failure}")
        sys.exit(1)
