#include "summary.h"

#include <map>
#include <ostream>

namespace korva::app {

namespace {

using Counts = std::map<std::string, size_t>;

std::string_view versionName(std::string_view version) {
  static const std::pair<std::string_view, std::string_view> kNames[] = {
      {"AC1006", "R10"},   {"AC1009", "R12"},   {"AC1012", "R13"},   {"AC1014", "R14"},
      {"AC1015", "R2000"}, {"AC1018", "R2004"}, {"AC1021", "R2007"}, {"AC1024", "R2010"},
      {"AC1027", "R2013"}, {"AC1032", "R2018"}};
  for (const auto& [code, name] : kNames) {
    if (code == version) return name;
  }
  return "unknown release";
}

// Attributes, vertices and sequence ends are parts of their owner, not entities of their own.
bool isSubentity(std::string_view type) {
  return type == "ATTRIB" || type == "VERTEX" || type == "SEQEND";
}

// Counts one entity; true when it is an entity of its own.
bool count(const db::Record* record, Counts& byType, Counts& byLayer) {
  if (record->isErased()) return false;
  ++byType[std::string(record->type())];
  if (isSubentity(record->type())) return false;
  ++byLayer[std::string(record->find(8).value_or("0"))];
  return true;
}

void printCounts(std::ostream& out, const char* title, const Counts& counts) {
  out << title << '\n';
  for (const auto& [name, number] : counts) out << "  " << name << ": " << number << '\n';
}

bool isPaperSpaceBlock(std::string_view name) {
  return name.size() >= 12 && db::sameName(name.substr(0, 12), "*Paper_Space");
}

}  // namespace

void printSummary(const db::Database& database, const std::string& name, std::ostream& out) {
  std::string version = database.version();
  out << "Drawing: " << name << '\n';
  out << "Version: " << version << " (" << versionName(version) << "), "
      << (database.format().binary ? "binary" : "text") << " DXF";
  if (!database.hasUtf8Text()) out << ", code page " << database.codePage();
  out << '\n';
  out << "Handles: " << database.recordCount() << " records, next handle "
      << db::formatHandle(database.handleSeed()) << '\n';

  Counts modelTypes, paperTypes, layers;
  size_t modelCount = 0, paperCount = 0;
  if (const db::Section* entities = database.section(db::SectionKind::Entities)) {
    for (const db::Record* record : entities->records) {
      bool paper = record->find(67).value_or("0").find('1') != std::string_view::npos;
      (paper ? paperCount : modelCount) += count(record, paper ? paperTypes : modelTypes, layers);
    }
  }
  const db::Section* blocks = database.section(db::SectionKind::Blocks);
  if (blocks) {
    for (const db::BlockDefinition& block : blocks->blocks) {
      if (!isPaperSpaceBlock(block.name())) continue;
      for (const db::Record* record : block.entities) {
        paperCount += count(record, paperTypes, layers);
      }
    }
  }
  out << "Model space: " << modelCount << " entities\n";
  if (!modelTypes.empty()) printCounts(out, "Model space by type:", modelTypes);
  out << "Paper space: " << paperCount << " entities\n";
  if (!paperTypes.empty()) printCounts(out, "Paper space by type:", paperTypes);
  if (!layers.empty()) printCounts(out, "Entities by layer:", layers);

  if (const db::Section* tables = database.section(db::SectionKind::Tables)) {
    out << "Tables:\n";
    for (const db::Table& table : tables->tables) {
      size_t live = 0;
      std::string names;
      for (const db::Record* entry : table.entries) {
        if (entry->isErased()) continue;
        ++live;
        if (names.size() < 200) {
          names += names.empty() ? "" : ", ";
          names += entry->find(2).value_or("");
        }
      }
      out << "  " << table.name << ": " << live;
      if (live) out << " (" << names << (names.size() >= 200 ? ", ..." : "") << ")";
      out << '\n';
    }
  }
  if (blocks) {
    out << "Blocks:\n";
    for (const db::BlockDefinition& block : blocks->blocks) {
      if (block.begin->isErased()) continue;
      size_t live = 0;
      for (const db::Record* record : block.entities) {
        live += !record->isErased() && !isSubentity(record->type());
      }
      out << "  " << block.name() << ": " << live << " entities\n";
    }
  }
  if (const db::Section* objects = database.section(db::SectionKind::Objects)) {
    Counts kinds;
    for (const db::Record* record : objects->records) {
      if (!record->isErased()) ++kinds[std::string(record->type())];
    }
    printCounts(out, "Objects:", kinds);
  }
}

}  // namespace korva::app
