#pragma once

class ExprRegistrar;

// Registers the sixteen operators and then the twenty-six functions, in their fixed order,
// each owned by the registrar.
void registerBuiltinVocabulary(ExprRegistrar& registrar);
