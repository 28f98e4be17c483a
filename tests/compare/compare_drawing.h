// A fresh drawing with a few layers, and entities made in it through the flat layer for
// the comparison tests.
#pragma once

#include <initializer_list>

#include "frame/host_interface.h"
#include "script_fixture.h"

namespace korva::test {

class CompareDrawingTest : public ScriptTest {
 protected:
  void SetUp() override;
  void TearDown() override;
  // Makes the module's resource file the place of resource strings until TearDown.
  void useModuleResources();

  // Makes the entity that the list describes (the list is released) and gives its id.
  static QxDbObjectId make(ResultBuffer* list);
  // A complex entity (an old-style polyline, a reference with attributes): the head, its
  // followers, and the SEQEND that this adds.
  static QxDbObjectId makeSequence(ResultBuffer* head,
                                   std::initializer_list<ResultBuffer*> vertices);
  static QxDbObjectId line(const double start[3], const double end[3], const wchar_t* layer = L"0");
  static QxDbObjectId circle(const double center[3], double radius, double thickness = 0);

 private:
  QxModuleHandle resources_ = nullptr;
};

}  // namespace korva::test
