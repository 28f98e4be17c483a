// The modifying host commands: offset copies, trimming at cutting edges, and rounded
// or sharp corners.
#pragma once

namespace korva::cmd::modify {

void offsetCommand();
void trimCommand();
void filletCommand();

}  // namespace korva::cmd::modify
