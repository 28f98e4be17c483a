// korva: opens a drawing, runs scripts, command lines and the terminal through the
// command processor, and saves.
#include <unistd.h>
#include <CLI/CLI.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>

#include "api/document.h"
#include "api/system_variables.h"
#include "api/utf8.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "dxf/reader.h"
#include "dxf/writer.h"
#include "input/console.h"
#include "input/support_path.h"
#include "profile_folder.h"
#include "qx_variables.h"
#include "rt/modules.h"
#include "summary.h"

namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;
constexpr char kModuleName[] = "VnExtend.qrx";

struct Options {
  std::string drawingPath;
  std::string outputPath;
  std::vector<std::string> scripts;
  std::vector<std::string> lines;
  std::vector<std::string> modules;
  std::vector<std::string> supportFolders;
  std::string profileFolder;
  bool interactive = false;
  bool recover = false;
  bool backup = false;
  bool binary = false;
  bool quiet = false;
  bool summary = false;
};

std::unique_ptr<korva::db::Database> openDrawing(const Options& options) {
  if (options.drawingPath.empty()) return korva::dxf::createNewDrawing();
  korva::dxf::ReadOptions readOptions;
  readOptions.recover = options.recover;
  korva::dxf::ReadResult result = korva::dxf::readFile(options.drawingPath, readOptions);
  if (!result.ok()) {
    std::cerr << "korva: " << result.error << '\n';
    return nullptr;
  }
  for (const auto& warning : result.warnings) {
    std::cerr << "korva: " << options.drawingPath << ": " << korva::dxf::describe(warning) << '\n';
  }
  for (const auto& dropped : result.dropped) {
    std::cerr << "korva: " << options.drawingPath << ": dropped: " << korva::dxf::describe(dropped)
              << '\n';
  }
  return std::move(result.database);
}

// The module beside the program; a build without it runs host commands only.
void loadModules(const Options& options) {
  std::error_code ignored;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  const std::filesystem::path beside = program.parent_path() / kModuleName;
  std::string error;
  if (std::filesystem::exists(beside, ignored) && !korva::rt::loadModule(beside.string(), error)) {
    std::cerr << "korva: " << beside.string() << ": " << error << '\n';
  }
  for (const std::string& module : options.modules) {
    if (!korva::rt::loadModule(module, error)) {
      std::cerr << "korva: " << module << ": " << error << '\n';
    }
  }
}

// The scripts and command lines in the order given; the first given is read first, so
// it goes on top of the stack.
bool pushInputs(const CLI::App& app, const CLI::Option* scriptOption, const CLI::Option* lineOption,
                const Options& options) {
  std::vector<std::unique_ptr<korva::input::InputSource>> sources;
  size_t nextScript = 0;
  size_t nextLine = 0;
  for (const CLI::Option* given : app.parse_order()) {
    if (given == scriptOption && nextScript < options.scripts.size()) {
      std::string error;
      const std::string& path = options.scripts[nextScript++];
      auto source = korva::input::openScriptFile(path, error);
      if (!source) {
        std::cerr << "korva: " << path << ": " << error << '\n';
        return false;
      }
      sources.push_back(std::move(source));
    } else if (given == lineOption && nextLine < options.lines.size()) {
      sources.push_back(korva::input::makeScriptSource(options.lines[nextLine++] + "\n", "-c"));
    }
  }
  korva::input::Console& console = korva::input::Console::instance();
  if (options.interactive) console.pushSource(korva::input::makeTerminalSource());
  for (auto it = sources.rbegin(); it != sources.rend(); ++it) console.pushSource(std::move(*it));
  return true;
}

bool echoScriptedCommands() {
  ResultBuffer value{};
  return qxedGetVar(L"CMDECHO", &value) != RTNORM || value.value.rint != 0;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"korva: a CAD host for DXF drawings"};
  Options options;
  app.add_option("drawing", options.drawingPath,
                 "DXF drawing to open (a new drawing when omitted)");
  CLI::Option* scriptOption =
      app.add_option("-s,--script", options.scripts, "run a script (.scr); may be repeated");
  CLI::Option* lineOption =
      app.add_option("-c,--command", options.lines, "run a command line; may be repeated");
  app.add_option("-o,--output", options.outputPath, "save the drawing to this DXF file at the end");
  app.add_flag("-i,--interactive", options.interactive, "read commands from the terminal");
  app.add_option("--module", options.modules, "load a further module (.qrx); may be repeated");
  app.add_option("--support", options.supportFolders, "add a folder to the support path");
  app.add_option("--profile-dir", options.profileFolder, "where per-user settings are kept");
  app.add_flag("--recover", options.recover, "read what can be read and list what was left out");
  app.add_flag("--backup", options.backup, "keep the file being replaced as NAME.bak");
  app.add_flag("--binary", options.binary, "save as binary DXF");
  app.add_flag("--summary", options.summary, "tell what the drawing holds after opening it");
  app.add_flag("-q,--quiet", options.quiet, "print nothing but errors");
  app.set_version_flag("--version", "korva 0.1.0");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    int status = app.exit(error);
    return status == 0 ? 0 : kExitUsage;
  }

  std::unique_ptr<korva::db::Database> database = openDrawing(options);
  if (!database) return kExitFailure;
  const bool askedSomething = !options.scripts.empty() || !options.lines.empty() ||
                              !options.outputPath.empty() || options.summary || options.quiet;
  if (!askedSomething && ::isatty(STDIN_FILENO)) options.interactive = true;

  std::ofstream discard;
  korva::input::Console& console = korva::input::Console::instance();
  if (options.quiet) console.setOutput(&discard);
  if (options.summary) {
    korva::app::printSummary(
        *database, options.drawingPath.empty() ? "(new drawing)" : options.drawingPath, std::cout);
  }

  korva::app::setProfileFolder(options.profileFolder);
  for (const std::string& folder : options.supportFolders) korva::input::addSupportFolder(folder);
  korva::api::installDrawingVariableSource();
  auto& documents = korva::api::DocumentList::instance();
  documents.add(std::move(database), options.drawingPath);
  korva::cmd::registerHostCommands();
  console.setEchoScripted(echoScriptedCommands);
  if (!pushInputs(app, scriptOption, lineOption, options)) return kExitFailure;
  loadModules(options);

  korva::cmd::Processor::instance().run();
  console.finish();

  int status = 0;
  if (!options.outputPath.empty() && !documents.current()) {
    std::cerr << "korva: no drawing is open to save to " << options.outputPath << '\n';
    status = kExitFailure;
  } else if (!options.outputPath.empty()) {
    korva::dxf::WriteOptions writeOptions;
    writeOptions.keepBackup = options.backup;
    if (options.binary) writeOptions.binary = true;
    korva::dxf::WriteResult result =
        korva::dxf::writeFile(documents.current()->database(), options.outputPath, writeOptions);
    if (!result.ok) {
      std::cerr << "korva: " << result.error << '\n';
      status = kExitFailure;
    } else if (!options.quiet) {
      console.print(korva::api::fromUtf8("Saved " + options.outputPath + "\n"));
    }
  }
  korva::rt::shutdown();
  console.finish();
  return status;
}
