"""Loads a DXF with ezdxf and checks that every name an entity, a layer or a header
variable gives is the name of a record; prints what is missing, exit status 1 then."""
import sys

import ezdxf


def main() -> int:
    try:
        doc = ezdxf.readfile(sys.argv[1])
    except Exception as error:  # any load failure is a finding
        print(f"load failed: {error}")
        return 1
    problems = []

    def check(table, kind, name, where):
        if name and name.upper() not in ("BYLAYER", "BYBLOCK") and name not in table:
            problems.append(f"{where} names the missing {kind} {name}")

    for block in doc.blocks:
        for entity in block:
            where = f"{entity.dxftype()} {entity.dxf.handle} in {block.name}"
            check(doc.layers, "layer", entity.dxf.get("layer"), where)
            check(doc.linetypes, "linetype", entity.dxf.get("linetype"), where)
            if entity.dxftype() in ("TEXT", "MTEXT", "ATTRIB", "ATTDEF"):
                check(doc.styles, "text style", entity.dxf.get("style"), where)
            if entity.dxftype() in ("DIMENSION", "LEADER", "TOLERANCE"):
                check(doc.dimstyles, "dimension style", entity.dxf.get("dimstyle"), where)
            if entity.dxftype() == "INSERT" and entity.dxf.name not in doc.blocks:
                problems.append(f"{where} names the missing block {entity.dxf.name}")
    for layer in doc.layers:
        check(doc.linetypes, "linetype", layer.dxf.get("linetype"), f"layer {layer.dxf.name}")
    for variable, table, kind in (("$CLAYER", doc.layers, "layer"),
                                  ("$CELTYPE", doc.linetypes, "linetype"),
                                  ("$TEXTSTYLE", doc.styles, "text style"),
                                  ("$DIMSTYLE", doc.dimstyles, "dimension style")):
        if variable in doc.header:
            check(table, kind, doc.header[variable], variable)
    problems += [error.message for error in doc.audit().errors]
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
