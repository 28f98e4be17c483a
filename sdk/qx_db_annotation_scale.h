// Annotation scales: a named scale of the drawing's scale list (a SCALE object under
// ACAD_SCALELIST) as the scale a viewport shows annotations at.
//
// A QxDbAnnotationScale is a value the caller owns and deletes. Its implementation
// object, reached through QxDbSystemInternals, sets what it names.
#pragma once

#include <string>

#include "qx_db_core.h"

class QxDbImpAnnotationScale {
 public:
  Qxad::ErrorStatus setName(const wchar_t* name);   // not empty
  Qxad::ErrorStatus setPaperUnits(double units);    // > 0
  Qxad::ErrorStatus setDrawingUnits(double units);  // > 0
  // Names the SCALE object; its name and units are taken over when it can be read
  // (eInvalidInput for an id that names something else).
  Qxad::ErrorStatus setScaleId(QxDbObjectId id);

 private:
  friend class QxDbAnnotationScale;
  QxDbImpAnnotationScale() = default;
  std::wstring name_ = L"1:1";
  double paperUnits_ = 1;
  double drawingUnits_ = 1;
  QxDbObjectId scaleId_;
};

class QxDbAnnotationScale {
 public:
  QxDbAnnotationScale() = default;  // "1:1", naming no SCALE object

  // The name, the caller's to free with qxad_free.
  Qxad::ErrorStatus getName(wchar_t*& name) const;
  // Paper units per drawing unit.
  Qxad::ErrorStatus getScale(double& scale) const;
  Qxad::ErrorStatus getPaperUnits(double& units) const;
  Qxad::ErrorStatus getDrawingUnits(double& units) const;
  // The SCALE object this stands for; null when it names none.
  QxDbObjectId scaleId() const { return imp_.scaleId_; }
  Qxad::ErrorStatus copyFrom(const QxDbAnnotationScale* other);

 private:
  friend class QxDbSystemInternals;
  QxDbImpAnnotationScale imp_;
};

class QxDbSystemInternals {
 public:
  // The implementation object of an annotation scale; null for null.
  static QxDbImpAnnotationScale* getImpAnnotationScale(QxDbAnnotationScale* scale);
};
