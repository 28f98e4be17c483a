// korva: opens a drawing, tells what it holds, saves it.
#include <CLI/CLI.hpp>

#include <iostream>

#include "dxf/new_drawing.h"
#include "dxf/reader.h"
#include "dxf/writer.h"
#include "summary.h"

namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"korva: a CAD host for DXF drawings"};
  std::string drawingPath;
  std::string outputPath;
  bool recover = false;
  bool backup = false;
  bool binary = false;
  bool quiet = false;
  app.add_option("drawing", drawingPath, "DXF drawing to open (a new drawing when omitted)");
  app.add_option("-o,--output", outputPath, "save the drawing to this DXF file");
  app.add_flag("--recover", recover, "read what can be read and list what was left out");
  app.add_flag("--backup", backup, "keep the file being replaced as NAME.bak");
  app.add_flag("--binary", binary, "save as binary DXF");
  app.add_flag("-q,--quiet", quiet, "do not print the summary");
  app.set_version_flag("--version", "korva 0.1.0");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    int status = app.exit(error);
    return status == 0 ? 0 : kExitUsage;
  }

  std::unique_ptr<korva::db::Database> database;
  if (drawingPath.empty()) {
    database = korva::dxf::createNewDrawing();
    drawingPath = "(new drawing)";
  } else {
    korva::dxf::ReadOptions options;
    options.recover = recover;
    korva::dxf::ReadResult result = korva::dxf::readFile(drawingPath, options);
    if (!result.ok()) {
      std::cerr << "korva: " << result.error << '\n';
      return kExitFailure;
    }
    for (const auto& warning : result.warnings) {
      std::cerr << "korva: " << drawingPath << ": " << korva::dxf::describe(warning) << '\n';
    }
    for (const auto& dropped : result.dropped) {
      std::cerr << "korva: " << drawingPath << ": dropped: " << korva::dxf::describe(dropped)
                << '\n';
    }
    database = std::move(result.database);
  }
  if (!quiet) korva::app::printSummary(*database, drawingPath, std::cout);
  if (!outputPath.empty()) {
    korva::dxf::WriteOptions options;
    options.keepBackup = backup;
    if (binary) options.binary = true;
    korva::dxf::WriteResult result = korva::dxf::writeFile(*database, outputPath, options);
    if (!result.ok) {
      std::cerr << "korva: " << result.error << '\n';
      return kExitFailure;
    }
    if (!quiet) std::cout << "Saved " << outputPath << '\n';
  }
  return 0;
}
