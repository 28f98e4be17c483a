// Loaded modules as the korva program and the command processor see them.
#pragma once

#include <string>
#include <vector>

namespace korva::rt {

// Loads a module by path or bare name (looked up beside the program, then on the support
// path, then as given), sends it message 1 and message 3 for the current drawing. false
// with error set to the reason ("refused to load", the loader's message) when it isn't
// loaded; a module already loaded is not loaded again and counts as success.
bool loadModule(const std::string& path, std::string& error);
// Sends message 2 and unloads. false with error set when the module isn't loaded or is
// locked.
bool unloadModule(const std::string& name, std::string& error);

// A drawing became the current document: every module gets message 3 for it.
void drawingOpened();
// The current drawing is about to close: every module gets message 4.
void drawingClosing();
// The program ends: every module gets message 8 and then message 2, newest first, and is
// unloaded. Also drains the application context queue first.
void shutdown();

// The paths of the loaded modules, in load order.
std::vector<std::string> loadedModules();

// Runs what modules handed to executeInApplicationContext while a command ran. The
// command processor calls it after each top-level command.
void runApplicationContextQueue();

// What the crash recorder was given, oldest first (the messages; "" when none).
std::vector<std::wstring> recordedCrashes();
void clearRecordedCrashes();

}  // namespace korva::rt
