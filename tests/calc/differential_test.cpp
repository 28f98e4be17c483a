// Random valid expressions, compiled and run by the engine, against a plain recursive
// evaluation of the tree they were printed from. Without random functions the two must
// agree bit for bit, folded or not.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "calc_test_support.h"

namespace {

struct Node {
  enum Kind { kNumber, kVariable, kBinary, kNegate, kNot, kFunction } kind;
  double number = 0;
  int variable = 0;   // 0 x, 1 y, 2 z
  std::wstring name;  // operator symbol or function name
  std::vector<std::unique_ptr<Node>> operands;
};

int rankOf(const std::wstring& symbol) {
  if (symbol == L"+" || symbol == L"-") return 1;
  if (symbol == L"*" || symbol == L"/" || symbol == L"%") return 2;
  if (symbol == L"^") return 3;
  return 0;  // comparisons, & and |
}

class Generator {
 public:
  explicit Generator(std::uint32_t seed) : random_(seed) {}

  std::unique_ptr<Node> make(int depth) {
    auto node = std::make_unique<Node>();
    const int choice = depth <= 0 ? pick(2) : pick(12);
    if (choice == 0) {
      node->kind = Node::kNumber;
      node->number = pick(400) / 8.0;
    } else if (choice == 1) {
      node->kind = Node::kVariable;
      node->variable = pick(3);
    } else if (choice <= 6) {
      static const wchar_t* kBinary[] = {L"+", L"-",  L"*",  L"/",  L"%",  L"^", L">",
                                         L"<", L">=", L"<=", L"==", L"!=", L"&", L"|"};
      node->kind = Node::kBinary;
      node->name = kBinary[pick(std::size(kBinary))];
      node->operands.push_back(make(depth - 1));
      node->operands.push_back(make(depth - 1));
    } else if (choice == 7) {
      node->kind = Node::kNegate;
      node->operands.push_back(make(depth - 1));
    } else if (choice == 8) {
      node->kind = Node::kNot;
      node->operands.push_back(make(depth - 1));
    } else {
      static const std::pair<const wchar_t*, int> kFunctions[] = {
          {L"sin", 1},  {L"cos", 1},  {L"tan", 1}, {L"asin", 1}, {L"atan", 1},  {L"tanh", 1},
          {L"sinh", 1}, {L"sqrt", 1}, {L"abs", 1}, {L"ceil", 1}, {L"floor", 1}, {L"ln", 1},
          {L"log", 1},  {L"fact", 1}, {L"min", 0}, {L"max", 0},  {L"sum", 0},   {L"avg", 0}};
      const auto [name, count] = kFunctions[pick(std::size(kFunctions))];
      node->kind = Node::kFunction;
      node->name = name;
      const int operandCount = count != 0 ? count : 1 + pick(5);
      for (int i = 0; i < operandCount; ++i) node->operands.push_back(make(depth - 1));
    }
    return node;
  }

 private:
  int pick(std::size_t bound) {
    return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_));
  }
  std::mt19937 random_;
};

bool isAtom(const Node& node) {
  return node.kind == Node::kNumber || node.kind == Node::kVariable ||
         node.kind == Node::kFunction || node.kind == Node::kNot;
}

// Prints with as few parentheses as the ranks allow, so that the compiler's ranking and
// associativity are what is tested. "!" is always wrapped: its rank shares 2 with "*".
std::wstring print(const Node& node) {
  switch (node.kind) {
    case Node::kNumber: {
      char text[32];
      std::snprintf(text, sizeof text, "%.17g", node.number);
      return std::wstring(text, text + std::strlen(text));
    }
    case Node::kVariable:
      return std::wstring(1, L"xyz"[node.variable]);
    case Node::kNegate: {
      const Node& operand = *node.operands[0];
      return isAtom(operand) || operand.kind == Node::kNegate ? L"-" + print(operand)
                                                              : L"-(" + print(operand) + L")";
    }
    case Node::kNot:
      return L"(!(" + print(*node.operands[0]) + L"))";
    case Node::kFunction: {
      std::wstring text = node.name + L"(";
      for (std::size_t i = 0; i < node.operands.size(); ++i)
        text += (i ? L"," : L"") + print(*node.operands[i]);
      return text + L")";
    }
    case Node::kBinary: {
      const int rank = rankOf(node.name);
      auto side = [rank](const Node& operand, bool right) {
        const bool bare = operand.kind != Node::kBinary ||
                          (right ? rankOf(operand.name) > rank : rankOf(operand.name) >= rank);
        // A negation binds tighter than everything, but on the left of "^" it applies first,
        // which is what the tree says.
        return bare ? print(operand) : L"(" + print(operand) + L")";
      };
      return side(*node.operands[0], false) + node.name + side(*node.operands[1], true);
    }
  }
  return L"";
}

double factorial(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return 0;
  const long n = static_cast<long>(value);
  double product = n <= 0 ? 0 : 1;
  for (long factor = n; factor >= 2 && !std::isinf(product); --factor) product *= factor;
  return product;
}

double evaluateTree(const Node& node, const double* variables) {
  std::vector<double> values;
  for (const auto& operand : node.operands) values.push_back(evaluateTree(*operand, variables));
  switch (node.kind) {
    case Node::kNumber:
      return node.number;
    case Node::kVariable:
      return variables[node.variable];
    case Node::kNegate:
      return -values[0];
    case Node::kNot:
      return values[0] == 0 ? 1 : 0;
    case Node::kBinary: {
      const double a = values[0], b = values[1];
      const std::wstring& op = node.name;
      if (op == L"+") return a + b;
      if (op == L"-") return a - b;
      if (op == L"*") return a * b;
      if (op == L"/") return a / b;
      if (op == L"%") return std::fmod(a, b);
      if (op == L"^") return std::pow(a, b);
      if (op == L">") return a > b;
      if (op == L"<") return a < b;
      if (op == L">=") return a >= b;
      if (op == L"<=") return a <= b;
      if (op == L"==") return a == b;
      if (op == L"!=") return a != b;
      if (op == L"&") return a != 0 && b != 0;
      return a != 0 || b != 0;
    }
    case Node::kFunction: {
      const std::wstring& f = node.name;
      const double a = values[0];
      if (f == L"sin") return std::sin(a);
      if (f == L"cos") return std::cos(a);
      if (f == L"tan") return std::tan(a);
      if (f == L"asin") return std::asin(a);
      if (f == L"atan") return std::atan(a);
      if (f == L"tanh") return std::tanh(a);
      if (f == L"sinh") return std::sinh(a);
      if (f == L"sqrt") return std::sqrt(a);
      if (f == L"abs") return std::fabs(a);
      if (f == L"ceil") return std::ceil(a);
      if (f == L"floor") return std::floor(a);
      if (f == L"ln") return std::log(a);
      if (f == L"log") return std::log10(a);
      if (f == L"fact") return factorial(a);
      double result = f == L"sum" || f == L"avg" ? 0 : a;
      for (std::size_t i = 0; i < values.size(); ++i) {
        if (f == L"sum" || f == L"avg") result += values[i];
        // Two and three values: "x if y > x, else y"; more: replace when strictly smaller.
        else if (f == L"min" && (values.size() <= 3 ? !(result < values[i]) : values[i] < result))
          result = values[i];
        else if (f == L"max" && values[i] > result)
          result = values[i];
      }
      return f == L"avg" ? result / static_cast<double>(values.size()) : result;
    }
  }
  return 0;
}

TEST(Differential, RandomExpressionsMatchARecursiveEvaluation) {
  Generator generator(20240611);
  std::mt19937 values(99);
  std::uniform_real_distribution<double> variableValue(-3.0, 3.0);
  int compared = 0;
  for (int round = 0; round < 3000; ++round) {
    const auto tree = generator.make(1 + round % 6);
    const std::wstring text = print(*tree);
    TestEngine engine;
    double* z = engine.expression.defineVar(L"z");
    try {
      engine.expression.compile(text);
    } catch (const ParseError& error) {
      ADD_FAILURE() << narrow(text) << " refused with code " << error.errorCode() << " at "
                    << error.data().position;
      continue;
    }
    for (int run = 0; run < 3; ++run) {
      double variables[3] = {variableValue(values), variableValue(values),
                             static_cast<double>(static_cast<int>(variableValue(values) * 2))};
      *engine.x = variables[0];
      *engine.y = variables[1];
      *z = variables[2];
      const double expected = evaluateTree(*tree, variables);
      const double actual = engine.expression.evaluate();
      ASSERT_TRUE(sameValue(actual, expected))
          << narrow(text) << " gave " << actual << ", expected " << expected;
      ++compared;
    }
  }
  EXPECT_EQ(compared, 9000);
}

}  // namespace
