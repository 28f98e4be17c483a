// Compile and run times of the calculator engine against muparser on the same expressions,
// with the variables changing at every run so that nothing can be folded away.
#include <muParser.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "math_expression.h"

namespace {

using Clock = std::chrono::steady_clock;

struct BenchCase {
  const wchar_t* engineText;
  const char* muparserText;  // the same expression in muparser's spelling
};

const BenchCase kCases[] = {
    {L"x+y*z", "x+y*z"},
    {L"(x+y)*(z-x)/2.5", "(x+y)*(z-x)/2.5"},
    {L"sin(x)*cos(y)+sqrt(abs(z))", "sin(x)*cos(y)+sqrt(abs(z))"},
    {L"x*(2+3*4)-y/(8-2*2)+z", "x*(2+3*4)-y/(8-2*2)+z"},
    {L"max(x,y,z)+min(x,y)", "max(x,y,z)+min(x,y)"},
    {L"(x>y)&(y<z)|(x==z)", "(x>y)&&(y<z)||(x==z)"},
    {L"sum(x,y,z,x,y,z)/avg(x,y)", "sum(x,y,z,x,y,z)/avg(x,y)"},
    {L"x^y+z^0.5", "x^y+z^0.5"},
    {L"atan(y/x)*180/3.14159265359-ln(z)", "atan(y/x)*180/3.14159265359-ln(z)"},
    {L"x*1.5+y*2.5+z*3.5-x*y*z+sin(x+y)*cos(y-z)-sqrt(x*x+y*y+z*z)/(1+abs(x))",
     "x*1.5+y*2.5+z*3.5-x*y*z+sin(x+y)*cos(y-z)-sqrt(x*x+y*y+z*z)/(1+abs(x))"},
    {L"-x+-(y*z)-(-(x-y))", "-x+-(y*z)-(-(x-y))"},
    {L"((x+1)*(y+2)*(z+3)+(x-1)*(y-2)*(z-3))/((x+y+z)*(x+y+z)+1)",
     "((x+1)*(y+2)*(z+3)+(x-1)*(y-2)*(z-3))/((x+y+z)*(x+y+z)+1)"},
};

constexpr int kCompileRepeats = 20000;
constexpr int kRunRepeats = 500000;
constexpr int kTrials = 5;  // the best of several trials, to damp noise on a busy machine

struct Variables {
  double x = 0, y = 0, z = 0;
  void set(int run) {
    x = 0.5 + (run & 1023) * 1e-3;
    y = 1.25 - (run & 511) * 1e-3;
    z = 2.0 + (run & 255) * 1e-3;
  }
};

template <class Body>
double bestNanosecondsPerRepeat(int repeats, Body body) {
  double best = 1e300;
  for (int trial = 0; trial < kTrials; ++trial) {
    const auto start = Clock::now();
    body(repeats);
    const std::chrono::duration<double, std::nano> elapsed = Clock::now() - start;
    best = std::min(best, elapsed.count() / repeats);
  }
  return best;
}

struct Measurement {
  double engineCompile, muparserCompile, engineRun, muparserRun, largestDifference;
};

Measurement measure(const BenchCase& benchCase) {
  Variables variables;
  MathExpression engine;
  engine.defineVar(L"x", &variables.x);
  engine.defineVar(L"y", &variables.y);
  engine.defineVar(L"z", &variables.z);
  mu::Parser muparser;
  muparser.DefineVar("x", &variables.x);
  muparser.DefineVar("y", &variables.y);
  muparser.DefineVar("z", &variables.z);

  Measurement result{};
  const std::wstring engineText = benchCase.engineText;
  result.engineCompile = bestNanosecondsPerRepeat(kCompileRepeats, [&](int repeats) {
    for (int i = 0; i < repeats; ++i) engine.compile(engineText);
  });
  // muparser parses lazily on its first Eval, so that call is part of its compile.
  const std::string muparserText = benchCase.muparserText;
  double sink = 0;
  result.muparserCompile = bestNanosecondsPerRepeat(kCompileRepeats, [&](int repeats) {
    for (int i = 0; i < repeats; ++i) {
      muparser.SetExpr(muparserText);
      sink += muparser.Eval();
    }
  });

  result.engineRun = bestNanosecondsPerRepeat(kRunRepeats, [&](int repeats) {
    for (int run = 0; run < repeats; ++run) {
      variables.set(run);
      sink += engine.evaluate();
    }
  });
  result.muparserRun = bestNanosecondsPerRepeat(kRunRepeats, [&](int repeats) {
    for (int run = 0; run < repeats; ++run) {
      variables.set(run);
      sink += muparser.Eval();
    }
  });

  // Both must compute the same thing, or the comparison means nothing.
  for (int run = 0; run < 4096; run += 7) {
    variables.set(run);
    const double difference = std::fabs(engine.evaluate() - muparser.Eval());
    result.largestDifference = std::max(result.largestDifference, difference);
  }
  if (sink == 0.123456789) std::puts("");  // keeps the sums alive
  return result;
}

}  // namespace

int main() {
  std::printf("%-44s %10s %10s %6s %9s %9s %6s %9s\n", "expression", "compile", "muparser", "ratio",
              "run", "muparser", "ratio", "max diff");
  std::printf("%-44s %10s %10s %6s %9s %9s %6s %9s\n", "", "ns", "ns", "", "ns", "ns", "", "");
  double compileRatioLog = 0, runRatioLog = 0, worstCompileRatio = 0, worstRunRatio = 0;
  for (const BenchCase& benchCase : kCases) {
    const Measurement m = measure(benchCase);
    const double compileRatio = m.engineCompile / m.muparserCompile;
    const double runRatio = m.engineRun / m.muparserRun;
    compileRatioLog += std::log(compileRatio);
    runRatioLog += std::log(runRatio);
    worstCompileRatio = std::max(worstCompileRatio, compileRatio);
    worstRunRatio = std::max(worstRunRatio, runRatio);
    std::string shown = benchCase.muparserText;
    if (shown.size() > 44) shown = shown.substr(0, 41) + "...";
    std::printf("%-44s %10.0f %10.0f %6.2f %9.2f %9.2f %6.2f %9.1e\n", shown.c_str(),
                m.engineCompile, m.muparserCompile, compileRatio, m.engineRun, m.muparserRun,
                runRatio, m.largestDifference);
  }
  const double count = static_cast<double>(std::size(kCases));
  std::printf("\nratios are engine / muparser; below 1 means the engine is faster\n");
  std::printf("compile: geometric mean %.2f, worst %.2f (target: at most 2)\n",
              std::exp(compileRatioLog / count), worstCompileRatio);
  std::printf("run:     geometric mean %.2f, worst %.2f (target: at most 1)\n",
              std::exp(runRatioLog / count), worstRunRatio);
  return 0;
}
