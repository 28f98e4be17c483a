// Starting other programs for the platform layer: detached ones the user works with,
// and short queries whose output korva reads.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korva::ui {

// Splits a command line at blanks; double quotes keep blanks in a word and are removed.
std::vector<std::string> splitCommandLine(const std::string& commandLine);

// The full path of a program found as given (with a "/") or along PATH; empty when
// there is none.
std::string findProgram(const std::string& name);

// Starts the program with its arguments in a session of its own and doesn't wait for
// it. False when it can't be started.
bool startDetached(const std::vector<std::string>& arguments);

// Runs the program, waits for it and returns what it wrote on standard output; nothing
// when it can't be started or exits with a failure.
std::optional<std::string> runForOutput(const std::vector<std::string>& arguments);

}  // namespace korva::ui
