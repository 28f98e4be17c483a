# -FCMP left two marked-up copies in the temporary folder, and nothing else there; the
# revisions it read are untouched.
import sys

import fcmp_results

work = fcmp_results.work_folder(sys.argv[1])
fcmp_results.assert_inputs_untouched()
fcmp_results.assert_results_only(work / "tmp" / "fcmp")
fcmp_results.check_revisions(work / "tmp" / "fcmp")
fcmp_results.check_current_drawing_untouched(sys.argv[1])
