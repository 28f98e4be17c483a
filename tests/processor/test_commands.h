// Commands the processor tests run.
#pragma once

namespace korva::test {

// Registers once: host ASKTWO (two prompts), module commands SCRIPTER, LEAVER, TRANS
// (transparent), THROWER, LEAKER in the group "TEST_COMMANDS".
void registerTestCommands();

}  // namespace korva::test
