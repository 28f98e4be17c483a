#pragma once

#include <memory>
#include <string>

#include "item_interfaces.h"

class ExprRegistrar;
class ExprCompiler;
class CompiledProgram;

// The calculator engine: build, define constants (and variables), compile, evaluate.
// Cheap enough to be built anew for each expression; used by one thread.
class MathExpression {
 public:
  // A variable held in memory. The value lives in the object itself unless rebound to
  // storage outside; a compiled program always reads through the current pointer.
  class MemVariableEvaluator final : public IMathVariable {
   public:
    explicit MemVariableEvaluator(std::wstring name) : name_(std::move(name)) {}
    double evaluate(std::uint32_t, const double*) const override { return *valuePointer_; }
    std::wstring symbol() const override { return name_; }
    double* valuePointer() override { return valuePointer_; }
    void rebind(double* storage) { valuePointer_ = storage; }
    // Where the value pointer itself lives, for readers that must follow a rebinding.
    const double* const* valuePointerAddress() const { return &valuePointer_; }

   private:
    double* valuePointer_ = &value_;
    std::wstring name_;
    double value_ = 0.0;
  };

  class MemVariableFactory final : public IMathVariableFactory {
   public:
    IMathVariable* createVariable(const std::wstring& name) override {
      return new MemVariableEvaluator(name);
    }
  };

  MathExpression();
  ~MathExpression();
  MathExpression(const MathExpression&) = delete;
  MathExpression& operator=(const MathExpression&) = delete;

  void defineConst(const std::wstring& name, double value);
  // Defines a variable held by the engine and returns where its value is kept.
  double* defineVar(const std::wstring& name);
  // Defines a variable that reads the caller's storage.
  void defineVar(const std::wstring& name, double* storage);

  // Throws ExprExceptions<SExprParsingExcepData>; the next compile starts afresh.
  void compile(const std::wstring& text);
  // Runs the last compiled program; 0 before any compile. Never throws, never allocates.
  double evaluate();

  // Off by default: an unknown word is then an error instead of a new variable.
  bool automaticVariableDefinition() const { return automaticVariableDefinition_; }
  void setAutomaticVariableDefinition(bool on) { automaticVariableDefinition_ = on; }

  ExprRegistrar& registrar() { return *registrar_; }
  ExprCompiler& compiler() { return *compiler_; }

 private:
  std::unique_ptr<ExprRegistrar> registrar_;
  std::unique_ptr<ExprCompiler> compiler_;
  bool automaticVariableDefinition_ = false;
  CompiledProgram* program_ = nullptr;
  MemVariableFactory variableFactory_;
};
