#include "builtin_vocabulary.h"

#include "aggregate_functions.h"
#include "elementary_functions.h"
#include "expr_registrar.h"
#include "operators.h"
#include "random_functions.h"

void registerBuiltinVocabulary(ExprRegistrar& registrar) {
  constexpr bool kOwned = true;
  registrar.defineOp(new AddOp, kOwned);
  registrar.defineOp(new MinusOp, kOwned);
  registrar.defineOp(new MultOp, kOwned);
  registrar.defineOp(new DivOp, kOwned);
  registrar.defineOp(new ExpOp, kOwned);
  registrar.defineOp(new UnaryMinusOp, kOwned);
  registrar.defineOp(new ModuloOp, kOwned);
  registrar.defineOp(new GreaterThanOp, kOwned);
  registrar.defineOp(new LesserThanOp, kOwned);
  registrar.defineOp(new GreaterEqualThanOp, kOwned);
  registrar.defineOp(new LesserEqualThanOp, kOwned);
  registrar.defineOp(new NotEqualOp, kOwned);
  registrar.defineOp(new EqualOp, kOwned);
  registrar.defineOp(new AndOp, kOwned);
  registrar.defineOp(new OrOp, kOwned);
  registrar.defineOp(new NotOp, kOwned);

  registrar.defineFunc(new SinFct, kOwned);
  registrar.defineFunc(new ArcSinFct, kOwned);
  registrar.defineFunc(new SinhFct, kOwned);
  registrar.defineFunc(new CosFct, kOwned);
  registrar.defineFunc(new ArcCosFct, kOwned);
  registrar.defineFunc(new CoshFct, kOwned);
  registrar.defineFunc(new TanFct, kOwned);
  registrar.defineFunc(new ArcTanFct, kOwned);
  registrar.defineFunc(new TanhFct, kOwned);
  registrar.defineFunc(new SqrtFct, kOwned);
  registrar.defineFunc(new MinFct, kOwned);
  registrar.defineFunc(new Min3Fct, kOwned);
  registrar.defineFunc(new MinUndefFct, kOwned);
  registrar.defineFunc(new MaxFct, kOwned);
  registrar.defineFunc(new Max3Fct, kOwned);
  registrar.defineFunc(new MaxUndefFct, kOwned);
  registrar.defineFunc(new AbsFct, kOwned);
  registrar.defineFunc(new RandFct, kOwned);
  registrar.defineFunc(new RandMinMaxFct, kOwned);
  registrar.defineFunc(new CeilFct, kOwned);
  registrar.defineFunc(new FloorFct, kOwned);
  registrar.defineFunc(new LogFct, kOwned);
  registrar.defineFunc(new Log10Fct, kOwned);
  registrar.defineFunc(new AvgFct, kOwned);
  registrar.defineFunc(new SumFct, kOwned);
  registrar.defineFunc(new FactorialFct, kOwned);
}
