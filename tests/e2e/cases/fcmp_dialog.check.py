# FCMP through its dialog marked up the same copies as -FCMP and wrote the log: one line
# per difference, in the fixed order (per layout, the sheet before model space: added
# ones in drawing order, deleted ones and then modified pairs by handle), each ended by
# a lone carriage return.
import sys

import fcmp_results

EXPECTED_LOG = [
    'Status,Handle,Type,Lower corner,,Upper corner,,Layout',
    'Modified,"""71""",TEXT,"(20,20,0)",,"(133,27,0)",,Sheet A3',
    'Added,"""7A""",CIRCLE,"(29,14,0)",,"(31,16,0)",,Model',
    'Added,"""7B""",LINE,"(5,14,0)",,"(5,17,0)",,Model',
    'Deleted,"""3D""",LINE,"(5,12,0)",,"(15,12,0)",,Model',
    'Deleted,"""4B""",TEXT,"(7,8,0)",,"(12,9,0)",,Model',
    'Modified,"""44""",CIRCLE,"(19,11,0)",,"(22,14,0)",,Model',
    'Modified,"""47""",CIRCLE,"(34,6,0)",,"(36,10,0)",,Model',
    'Modified,"""4A""",TEXT,"(10,16,0)",,"(18,17,0)",,Model',
    'Modified,"""4C""",MTEXT,"(27,26,0)",,"(37,29,0)",,Model',
    'Modified,"""57""",INSERT,"(9,16,0)",,"(12,19,0)",,Model',
]

work = fcmp_results.work_folder(sys.argv[1])
log = (work / "tmp" / "site-changes.csv").read_bytes()
assert log == "".join(line + "\r" for line in EXPECTED_LOG).encode(), log.split(b"\r")
fcmp_results.assert_inputs_untouched()
fcmp_results.assert_results_only(work / "tmp" / "fcmp")
fcmp_results.check_revisions(work / "tmp" / "fcmp")
fcmp_results.check_current_drawing_untouched(sys.argv[1])
