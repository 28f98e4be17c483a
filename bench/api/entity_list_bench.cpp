// qxdbEntGet followed by qxdbEntMod of a line, as a command changing entities does.
// The target is under 2 microseconds per pair on a drawing with many entities.
#include <benchmark/benchmark.h>

#include "api/document.h"
#include "dxf/new_drawing.h"
#include "qx_entities.h"
#include "qx_memory.h"

namespace {

korva::api::Document& drawingWithLines(int count) {
  auto& document =
      korva::api::DocumentList::instance().add(korva::dxf::createNewDrawing(), "bench.dxf");
  for (int i = 0; i < count; ++i) {
    double a[3] = {static_cast<double>(i), 0, 0}, b[3] = {static_cast<double>(i), 10, 0};
    ResultBuffer* list = qxutBuildList(RTDXF0, L"LINE", 8, L"0", 10, a, 11, b, RTNONE);
    qxdbEntMake(list);
    qxutRelRb(list);
  }
  return document;
}

void GetAndModifyLine(benchmark::State& state) {
  drawingWithLines(static_cast<int>(state.range(0)));
  EntityName line;
  qxdbEntLast(line);
  double y = 0;
  for (auto _ : state) {
    ResultBuffer* list = qxdbEntGet(line);
    for (ResultBuffer* node = list; node; node = node->next) {
      if (node->type == 11) node->value.rpoint[1] = ++y;  // a real change every time
    }
    if (qxdbEntMod(list) != RTNORM) state.SkipWithError("qxdbEntMod failed");
    qxutRelRb(list);
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(GetAndModifyLine)->Arg(1)->Arg(10000);

void GetLine(benchmark::State& state) {
  drawingWithLines(1);
  EntityName line;
  qxdbEntLast(line);
  for (auto _ : state) {
    ResultBuffer* list = qxdbEntGet(line);
    benchmark::DoNotOptimize(list);
    qxutRelRb(list);
  }
}
BENCHMARK(GetLine);

}  // namespace

BENCHMARK_MAIN();
