// The break key: the console signals it, qxedUsrBrk takes it.
#pragma once

namespace korva::input {

void signalUserBreak();
// Whether a break was signalled since the last call; clears it.
bool takeUserBreak();

}  // namespace korva::input
