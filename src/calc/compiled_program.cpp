#include "compiled_program.h"

void CompiledProgram::reset() {
  plan_.clear();
  items_.clear();
  ProgramItem zero;
  zero.isValue = true;
  items_.push_back(std::move(zero));
  items_.back().resultTarget = &items_.back().value;
}
