#include "math_expression.h"

#include "builtin_vocabulary.h"
#include "expr_compiler.h"
#include "expr_registrar.h"

MathExpression::MathExpression()
    : registrar_(std::make_unique<ExprRegistrar>(this, &variableFactory_)),
      compiler_(std::make_unique<ExprCompiler>(*registrar_, this)) {
  registrar_->defineSyntax({L'.', L',', L'[', L']'});
  registerBuiltinVocabulary(*registrar_);
  program_ = &compiler_->program();
}

// Members go in reverse order: the compiler before the registrar whose items it points at.
MathExpression::~MathExpression() = default;

void MathExpression::defineConst(const std::wstring& name, double value) {
  registrar_->defineConst(name, value);
}

double* MathExpression::defineVar(const std::wstring& name) {
  return registrar_->defineVar(name)->valuePointer();
}

void MathExpression::defineVar(const std::wstring& name, double* storage) {
  auto* variable = new MemVariableEvaluator(name);
  variable->rebind(storage);
  registrar_->defineVar(variable, true);
}

void MathExpression::compile(const std::wstring& text) {
  program_ = &compiler_->compile(text);
}

double MathExpression::evaluate() {
  return program_->evaluate();
}
