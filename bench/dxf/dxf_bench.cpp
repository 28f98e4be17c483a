// DXF read and write speed and memory: korva against ezdxf and dxflib on one large drawing.
//
//   dxf_bench [--entities N] [--repeat N] [--dir DIR] [--keep] [--no-ezdxf] [--no-dxflib]
//             [--tracemalloc] [--python PATH] [--ezdxf-script PATH] [--dxflib-reader PATH]
//
// Makes the drawing with the database API, saves it, then reads and saves it with korva
// (median of --repeat runs), with ezdxf (once) and reads it with dxflib. The targets are
// printed beside the measured ratios; missing one never fails the run.
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "drawing_maker.h"
#include "dxf/reader.h"
#include "dxf/writer.h"

#ifndef KORVA_BENCH_PYTHON
#define KORVA_BENCH_PYTHON "/usr/bin/python3"
#endif
#ifndef KORVA_BENCH_EZDXF_SCRIPT
#define KORVA_BENCH_EZDXF_SCRIPT "ezdxf_bench.py"
#endif

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr double kReadVsEzdxf = 40.0;
constexpr double kWriteVsEzdxf = 30.0;
constexpr double kReadVsDxflib = 5.0;
constexpr double kHeldPerFileByte = 2.5;

struct Options {
  size_t entities = 100000;
  int repeat = 5;
  std::string dir;
  bool keep = false;
  bool ezdxf = true;
  bool dxflib = true;
  bool tracemalloc = false;
  std::string python = KORVA_BENCH_PYTHON;
  std::string ezdxfScript = KORVA_BENCH_EZDXF_SCRIPT;
  std::string dxflibReader;
};

double seconds(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  size_t n = values.size();
  return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Bytes the allocator has handed out: small blocks plus mmapped ones.
size_t heapInUse() {
  struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

long peakRssKb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

std::string shellQuoted(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
}

// Runs a helper and collects its "key value" lines; nothing when it failed.
std::optional<std::map<std::string, double>> runHelper(const std::string& command) {
  std::FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return std::nullopt;
  std::map<std::string, double> values;
  char line[512];
  while (std::fgets(line, sizeof line, pipe)) {
    char key[128];
    double value = 0;
    if (std::sscanf(line, "%127s %lf", key, &value) == 2) values[key] = value;
  }
  int status = pclose(pipe);
  if (status != 0) return std::nullopt;
  return values;
}

// Walks the group pairs and nothing more: the floor for any text reader.
size_t scanPairs(const std::string& text) {
  const char* pos = text.data();
  const char* end = pos + text.size();
  size_t records = 0;
  while (pos < end) {
    const char* codeEnd = static_cast<const char*>(std::memchr(pos, '\n', end - pos));
    if (!codeEnd) break;
    while (pos < codeEnd && *pos == ' ') ++pos;
    bool zero = codeEnd - pos >= 1 && pos[0] == '0' && (codeEnd - pos == 1 || pos[1] == '\r');
    pos = codeEnd + 1;
    const char* valueEnd = static_cast<const char*>(std::memchr(pos, '\n', end - pos));
    pos = valueEnd ? valueEnd + 1 : end;
    records += zero;
  }
  return records;
}

std::string readWhole(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string selfDirectory() {
  std::error_code error;
  fs::path self = fs::read_symlink("/proc/self/exe", error);
  return error ? std::string(".") : self.parent_path().string();
}

// Child mode: one read, for a clean peak resident size.
int measureRead(const std::string& path) {
  long before = peakRssKb();
  size_t heapBefore = heapInUse();
  korva::dxf::ReadResult result = korva::dxf::readFile(path);
  if (!result.ok()) {
    std::fprintf(stderr, "%s\n", result.error.c_str());
    return 1;
  }
  std::printf("base_rss_kb %ld\n", before);
  std::printf("peak_rss_kb %ld\n", peakRssKb());
  std::printf("held_bytes %zu\n", heapInUse() - heapBefore);
  return 0;
}

bool parse(int argc, char** argv, Options& options) {
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    auto value = [&]() -> std::string {
      if (i + 1 >= argc) {
        std::fprintf(stderr, "dxf_bench: %s needs a value\n", arg.c_str());
        std::exit(2);
      }
      return argv[++i];
    };
    if (arg == "--entities") {
      options.entities = std::stoull(value());
    } else if (arg == "--repeat") {
      options.repeat = std::max(1, std::stoi(value()));
    } else if (arg == "--dir") {
      options.dir = value();
    } else if (arg == "--keep") {
      options.keep = true;
    } else if (arg == "--no-ezdxf") {
      options.ezdxf = false;
    } else if (arg == "--no-dxflib") {
      options.dxflib = false;
    } else if (arg == "--tracemalloc") {
      options.tracemalloc = true;
    } else if (arg == "--python") {
      options.python = value();
    } else if (arg == "--ezdxf-script") {
      options.ezdxfScript = value();
    } else if (arg == "--dxflib-reader") {
      options.dxflibReader = value();
    } else {
      std::fprintf(stderr,
                   "usage: dxf_bench [--entities N] [--repeat N] [--dir DIR] [--keep] "
                   "[--no-ezdxf] [--no-dxflib] [--tracemalloc] [--python PATH] "
                   "[--ezdxf-script PATH] [--dxflib-reader PATH]\n");
      return false;
    }
  }
  return true;
}

struct Row {
  std::string what;
  double seconds = 0;
  std::string memory;
};

double megabytes(double bytes) {
  return bytes / 1e6;
}

std::string kbText(double kb) {
  char text[64];
  std::snprintf(text, sizeof text, "%.1f MB", kb * 1024 / 1e6);
  return text;
}

void printRatio(const char* what, double ratio, const char* relation, double target, bool atLeast) {
  bool pass = atLeast ? ratio >= target : ratio <= target;
  std::printf("  %-34s %8.1fx   target %s %4.1fx   %s\n", what, ratio, relation, target,
              pass ? "PASS" : "MISS");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string(argv[1]) == "--measure-read") return measureRead(argv[2]);
  Options options;
  if (!parse(argc, argv, options)) return 2;
  if (options.dxflibReader.empty()) options.dxflibReader = selfDirectory() + "/dxflib_read";

  bool ownDir = options.dir.empty();
  if (ownDir) {
    std::string pattern = (fs::temp_directory_path() / "korva-dxf-bench-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
      std::perror("dxf_bench: mkdtemp");
      return 1;
    }
    options.dir = pattern;
  } else {
    fs::create_directories(options.dir);
  }
  const std::string drawing = options.dir + "/drawing.dxf";
  const std::string korvaOut = options.dir + "/korva-out.dxf";
  const std::string ezdxfOut = options.dir + "/ezdxf-out.dxf";

  // ---- The drawing, made and saved by korva
  auto start = Clock::now();
  korva::bench::MadeDrawing made = korva::bench::makeDrawing(options.entities);
  if (!made.database) {
    std::fprintf(stderr, "dxf_bench: no new drawing\n");
    return 1;
  }
  double buildSeconds = seconds(start);
  const korva::bench::DrawingCounts counts = made.counts;
  std::vector<double> builtWrites;
  std::vector<double> builtWritesToMemory;
  for (int i = 0; i < options.repeat; ++i) {
    start = Clock::now();
    std::string text = korva::dxf::writeToString(*made.database);
    builtWritesToMemory.push_back(seconds(start));
    text = std::string();
    start = Clock::now();
    korva::dxf::WriteResult written = korva::dxf::writeFile(*made.database, drawing);
    builtWrites.push_back(seconds(start));
    if (!written.ok) {
      std::fprintf(stderr, "dxf_bench: %s\n", written.error.c_str());
      return 1;
    }
  }
  made.database.reset();
  const double fileBytes = static_cast<double>(fs::file_size(drawing));
  const double entities = static_cast<double>(counts.entities);

  std::printf(
      "DXF benchmark: %zu entities (%zu LINE, %zu CIRCLE, %zu ARC, %zu LWPOLYLINE, "
      "%zu TEXT, %zu MTEXT, %zu INSERT with %zu ATTRIB), %zu records in ENTITIES,\n"
      "50 layers; file %.1f MB (%.0f bytes an entity); built in %.2f s; in %s\n\n",
      counts.entities, counts.lines, counts.circles, counts.arcs, counts.polylines, counts.texts,
      counts.mtexts, counts.inserts, counts.attributes, counts.records, megabytes(fileBytes),
      fileBytes / entities, buildSeconds, options.dir.c_str());

  // ---- korva: read, then save the untouched drawing
  std::vector<double> reads;
  std::vector<double> writes;
  std::vector<double> writesToMemory;
  size_t heldBytes = 0;
  size_t readRecords = 0;
  bool sameBytes = false;
  for (int i = 0; i < options.repeat; ++i) {
    size_t heapBefore = heapInUse();
    start = Clock::now();
    korva::dxf::ReadResult result = korva::dxf::readFile(drawing);
    reads.push_back(seconds(start));
    if (!result.ok()) {
      std::fprintf(stderr, "dxf_bench: korva could not read: %s\n", result.error.c_str());
      return 1;
    }
    size_t held = heapInUse() - heapBefore;
    heldBytes = i == 0 ? held : std::min(heldBytes, held);
    readRecords = result.database->entities()->size();
    start = Clock::now();
    std::string text = korva::dxf::writeToString(*result.database);
    writesToMemory.push_back(seconds(start));
    if (i == 0) sameBytes = text == readWhole(drawing);
    start = Clock::now();
    korva::dxf::WriteResult written = korva::dxf::writeFile(*result.database, korvaOut);
    writes.push_back(seconds(start));
    if (!written.ok) {
      std::fprintf(stderr, "dxf_bench: korva could not write: %s\n", written.error.c_str());
      return 1;
    }
  }
  const double korvaRead = median(reads);
  const double korvaWrite = median(writes);
  const double korvaWriteMemory = median(writesToMemory);
  const double korvaBuiltWrite = median(builtWrites);

  std::string korvaPeak = "-";
  std::string self = selfDirectory() + "/" + fs::path(argv[0]).filename().string();
  if (auto child = runHelper(shellQuoted(self) + " --measure-read " + shellQuoted(drawing))) {
    korvaPeak = kbText((*child)["peak_rss_kb"]) + " (+" +
                kbText((*child)["peak_rss_kb"] - (*child)["base_rss_kb"]) + ")";
  }

  // ---- A bare walk over the pairs, for scale
  std::vector<double> scans;
  {
    std::string text = readWhole(drawing);
    for (int i = 0; i < options.repeat; ++i) {
      start = Clock::now();
      size_t records = scanPairs(text);
      scans.push_back(seconds(start));
      if (records == 0) std::printf("(the scan found no records)\n");
    }
  }

  // ---- ezdxf and dxflib, each in its own process
  std::optional<std::map<std::string, double>> ezdxf;
  if (options.ezdxf) {
    std::string command = shellQuoted(options.python) + " " + shellQuoted(options.ezdxfScript) +
                          " " + shellQuoted(drawing) + " " + shellQuoted(ezdxfOut);
    if (options.tracemalloc) command += " --tracemalloc";
    ezdxf = runHelper(command);
    if (!ezdxf) std::printf("ezdxf did not run: %s\n", command.c_str());
  }
  std::optional<std::map<std::string, double>> dxflib;
  if (options.dxflib) {
    if (fs::exists(options.dxflibReader)) {
      dxflib = runHelper(shellQuoted(options.dxflibReader) + " " + shellQuoted(drawing) + " " +
                         std::to_string(std::min(options.repeat, 3)));
      if (!dxflib) std::printf("the dxflib reader failed\n");
    } else {
      std::printf("no dxflib reader at %s\n", options.dxflibReader.c_str());
    }
  }

  // ---- Report
  std::vector<Row> rows;
  rows.push_back({"korva read (median)", korvaRead, korvaPeak});
  rows.push_back({"korva write read drawing (median)", korvaWrite, "-"});
  rows.push_back({"  of which the text, in memory", korvaWriteMemory, "-"});
  rows.push_back({"korva write built drawing (median)", korvaBuiltWrite, "-"});
  rows.push_back({"  of which the text, in memory", median(builtWritesToMemory), "-"});
  if (ezdxf) {
    auto& e = *ezdxf;
    std::string memory = kbText(e["read_peak_rss_kb"]) + " (+" +
                         kbText(e["read_peak_rss_kb"] - e["base_rss_kb"]) + ")";
    rows.push_back({"ezdxf read", e["read_s"], memory});
    rows.push_back({"ezdxf write", e["write_s"], kbText(e["peak_rss_kb"])});
  }
  if (dxflib)
    rows.push_back({"dxflib read (median)", (*dxflib)["read_s"], kbText((*dxflib)["peak_rss_kb"])});
  rows.push_back({"bare scan of the pairs (median)", median(scans), "-"});

  std::printf("%-36s %9s %9s %13s   %s\n", "(wall clock; writes include fsync)", "seconds", "MB/s",
              "entities/s", "peak RSS of the process (+ over its start)");
  for (const Row& row : rows) {
    std::printf("%-36s %9.4f %9.1f %13.0f   %s\n", row.what.c_str(), row.seconds,
                megabytes(fileBytes) / row.seconds, entities / row.seconds, row.memory.c_str());
  }
  if (ezdxf && ezdxf->count("tracemalloc_peak_bytes")) {
    double peak = (*ezdxf)["tracemalloc_peak_bytes"];
    std::printf("ezdxf Python heap peak while reading (tracemalloc): %.1f MB = %.1fx the file\n",
                megabytes(peak), peak / fileBytes);
  }

  std::printf("\nChecks: korva read %zu records in ENTITIES (made %zu)", readRecords,
              counts.records);
  if (ezdxf)
    std::printf("; ezdxf model space holds %.0f (made %zu)", (*ezdxf)["entities"], counts.entities);
  if (dxflib)
    std::printf("; dxflib reported %.0f entities and %.0f ATTRIB", (*dxflib)["entities"],
                (*dxflib)["attributes"]);
  std::printf("\n        korva's save of the untouched drawing %s the file it read\n",
              sameBytes ? "is byte for byte" : "DIFFERS from");

  std::printf(
      "\nkorva holds the drawing in %.1f MB = %.2fx the file size\n"
      "  (heap in use, mallinfo2 uordblks + hblkhd, after readFile minus before; the\n"
      "  file's text is part of it)\n",
      megabytes(static_cast<double>(heldBytes)), static_cast<double>(heldBytes) / fileBytes);

  std::printf("\nTargets (reported, never enforced):\n");
  if (ezdxf) {
    printRatio("read speed korva/ezdxf", (*ezdxf)["read_s"] / korvaRead, ">=", kReadVsEzdxf, true);
    printRatio("write speed korva/ezdxf", (*ezdxf)["write_s"] / korvaWrite, ">=", kWriteVsEzdxf,
               true);
    printRatio("  built drawing's write korva/ezdxf", (*ezdxf)["write_s"] / korvaBuiltWrite,
               ">=", kWriteVsEzdxf, true);
  } else {
    std::printf("  korva/ezdxf: not measured\n");
  }
  if (dxflib) {
    printRatio("read speed korva/dxflib", (*dxflib)["read_s"] / korvaRead, ">=", kReadVsDxflib,
               true);
  } else {
    std::printf("  korva/dxflib: not measured\n");
  }
  printRatio("memory held / file size", static_cast<double>(heldBytes) / fileBytes,
             "<=", kHeldPerFileByte, false);

  if (!options.keep && ownDir) {
    std::error_code ignored;
    fs::remove_all(options.dir, ignored);
  }
  return 0;
}
