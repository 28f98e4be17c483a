// Reads a DXF file with dxflib into an adapter that keeps nothing: the reference point
// for how fast a plain reader can go. Prints "key value" lines for dxf_bench.
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// Counts what it is given, so that the work can't be skipped and the count can be checked.
class Counter : public DL_CreationAdapter {
 public:
  void addLine(const DL_LineData&) override { ++entities; }
  void addArc(const DL_ArcData&) override { ++entities; }
  void addCircle(const DL_CircleData&) override { ++entities; }
  void addPolyline(const DL_PolylineData&) override { ++entities; }
  void addText(const DL_TextData&) override { ++entities; }
  void addMText(const DL_MTextData&) override { ++entities; }
  void addInsert(const DL_InsertData&) override { ++entities; }
  void addAttribute(const DL_AttributeData&) override { ++attributes; }
  size_t entities = 0;  // in blocks as well as in model space
  size_t attributes = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s FILE [REPEAT]\n", argv[0]);
    return 2;
  }
  std::string path = argv[1];
  int repeat = argc > 2 ? std::max(1, std::atoi(argv[2])) : 3;
  std::vector<double> seconds;
  size_t entities = 0;
  size_t attributes = 0;
  for (int i = 0; i < repeat; ++i) {
    Counter counter;
    DL_Dxf dxf;
    auto start = std::chrono::steady_clock::now();
    bool ok = dxf.in(path, &counter);
    auto stop = std::chrono::steady_clock::now();
    if (!ok) {
      std::fprintf(stderr, "dxflib could not read %s\n", path.c_str());
      return 1;
    }
    seconds.push_back(std::chrono::duration<double>(stop - start).count());
    entities = counter.entities;  // the adapter owns raw pointers: no copies of it
    attributes = counter.attributes;
  }
  std::sort(seconds.begin(), seconds.end());
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("read_s %.6f\n", seconds[seconds.size() / 2]);
  std::printf("entities %zu\n", entities);
  std::printf("attributes %zu\n", attributes);
  std::printf("peak_rss_kb %ld\n", usage.ru_maxrss);
  return 0;
}
