"""Loads a DXF with ezdxf and audits it; exit status 1 with the errors when any."""
import sys

import ezdxf


def main() -> int:
    try:
        doc = ezdxf.readfile(sys.argv[1])
    except Exception as error:  # any load failure is a finding
        print(f"load failed: {error}")
        return 1
    auditor = doc.audit()
    if auditor.has_errors:
        for error in auditor.errors:
            print(error.message)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
