// The "?" answer of BLOCK and INSERT: the blocks of the drawing, by a name pattern.
#pragma once

namespace korva::cmd::blocks {

// Asks for the pattern (Enter lists all) and prints the matching block names with the
// count of user blocks, external references, dependent and unnamed blocks.
void listBlocks();

}  // namespace korva::cmd::blocks
