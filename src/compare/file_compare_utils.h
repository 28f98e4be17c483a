// Decides whether two entities of the same handle are the same, modified or different,
// and puts entities on the result layers so that they show in the layer's colour.
//
// Every comparator takes the open old and new entity, already known to be of the same
// class, and is true when nothing differs. It stops at the first failed check.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "compare/file_compare_options.h"
#include "frame/host_interface.h"

enum VnCompareVerdict : int { kVerdictSame = 0, kVerdictDifferent = 1, kVerdictModified = 2 };

class VnFileCompareUtils {
 public:
  virtual ~VnFileCompareUtils() = default;

  void SetOptions(const VnFileCompareOptions& options) { options_ = options; }
  const VnFileCompareOptions& GetOptions() const { return options_; }

  // kVerdictSame, kVerdictDifferent (a failed open or another class) or
  // kVerdictModified.
  int CompareEntities(QxDbObjectId oldId, QxDbObjectId newId);

  // The layer of that name, made when missing; off, locked, frozen and colour are set
  // even when it existed. Null when the database or the name is missing.
  QxDbObjectId GetOrCreateResultLayer(QxDbDatabase* database, const wchar_t* layerName, bool frozen,
                                      std::int16_t colorIndex);
  // The follow-ups of MoveToResultLayer, by kind.
  virtual void StripMTextColors(QxDbMText* mtext);
  virtual void SetLeaderColor(QxDbLeader* leader, std::int16_t colorIndex);
  virtual void SetFcfColor(QxDbFcf* fcf, std::int16_t colorIndex);
  virtual void SetDimensionBlockLayer(QxDbDimension* dimension, QxDbObjectId layerId,
                                      std::int16_t colorIndex);
  virtual void SetBlockReferenceLayer(QxDbBlockReference* reference, QxDbObjectId layerId);
  virtual Qxad::ErrorStatus MoveToResultLayer(QxDbObjectId entityId, QxDbObjectId layerId,
                                              std::int16_t colorIndex);

  virtual bool CompareXline(const QxDbXline* oldXline, const QxDbXline* newXline);
  virtual bool CompareTrace(const QxDbTrace* oldTrace, const QxDbTrace* newTrace);
  virtual bool CompareFcf(const QxDbFcf* oldFcf, const QxDbFcf* newFcf);
  virtual bool CompareText(const QxDbText* oldText, const QxDbText* newText);
  virtual bool CompareTable(const QxDbTable* oldTable, const QxDbTable* newTable);
  virtual bool CompareSpline(const QxDbSpline* oldSpline, const QxDbSpline* newSpline);
  virtual bool CompareSolid(const QxDbSolid* oldSolid, const QxDbSolid* newSolid);
  virtual bool CompareShape(const QxDbShape* oldShape, const QxDbShape* newShape);
  virtual bool CompareRegion(const QxDbRegion* oldRegion, const QxDbRegion* newRegion);
  virtual bool CompareRotatedDimension(const QxDbRotatedDimension* oldDimension,
                                       const QxDbRotatedDimension* newDimension);
  virtual bool CompareRay(const QxDbRay* oldRay, const QxDbRay* newRay);
  virtual bool CompareRadialDimensionLarge(const QxDbRadialDimensionLarge* oldDimension,
                                           const QxDbRadialDimensionLarge* newDimension);
  virtual bool CompareRadialDimension(const QxDbRadialDimension* oldDimension,
                                      const QxDbRadialDimension* newDimension);
  virtual bool ComparePolyline(const QxDbPolyline* oldPolyline, const QxDbPolyline* newPolyline);
  virtual bool ComparePolygonMesh(const QxDbPolygonMesh* oldMesh, const QxDbPolygonMesh* newMesh);
  virtual bool ComparePolyFaceMesh(const QxDbPolyFaceMesh* oldMesh,
                                   const QxDbPolyFaceMesh* newMesh);
  virtual bool ComparePoint(const QxDbPoint* oldPoint, const QxDbPoint* newPoint);
  virtual bool CompareOle2Frame(const QxDbOle2Frame* oldFrame, const QxDbOle2Frame* newFrame);
  virtual bool CompareOrdinateDimension(const QxDbOrdinateDimension* oldDimension,
                                        const QxDbOrdinateDimension* newDimension);
  virtual bool CompareMline(const QxDbMline* oldMline, const QxDbMline* newMline);
  virtual bool CompareMInsertBlock(const QxDbMInsertBlock* oldReference,
                                   const QxDbMInsertBlock* newReference);
  virtual bool CompareMText(const QxDbMText* oldMText, const QxDbMText* newMText);
  virtual bool CompareLine(const QxDbLine* oldLine, const QxDbLine* newLine);
  virtual bool CompareLeader(const QxDbLeader* oldLeader, const QxDbLeader* newLeader);
  virtual bool CompareRasterImage(const QxDbRasterImage* oldImage, const QxDbRasterImage* newImage);
  virtual bool CompareHatch(const QxDbHatch* oldHatch, const QxDbHatch* newHatch);
  virtual bool CompareFace(const QxDbFace* oldFace, const QxDbFace* newFace);
  virtual bool CompareEllipse(const QxDbEllipse* oldEllipse, const QxDbEllipse* newEllipse);
  // The part every dimension shares; reached only through the dimension classes.
  virtual bool CompareDimension(const QxDbDimension* oldDimension,
                                const QxDbDimension* newDimension);
  virtual bool CompareDiametricDimension(const QxDbDiametricDimension* oldDimension,
                                         const QxDbDiametricDimension* newDimension);
  virtual bool CompareCircle(const QxDbCircle* oldCircle, const QxDbCircle* newCircle);
  virtual bool CompareBody(const QxDbBody* oldBody, const QxDbBody* newBody);
  virtual bool CompareBlockReference(const QxDbBlockReference* oldReference,
                                     const QxDbBlockReference* newReference);
  // Reached only through CompareBlockReference.
  virtual bool CompareBlockTableRecord(const QxDbBlockTableRecord* oldBlock,
                                       const QxDbBlockTableRecord* newBlock);
  virtual bool CompareAttribute(const QxDbAttribute* oldAttribute,
                                const QxDbAttribute* newAttribute);
  virtual bool CompareAttributeDefinition(const QxDbAttributeDefinition* oldDefinition,
                                          const QxDbAttributeDefinition* newDefinition);
  virtual bool CompareArcDimension(const QxDbArcDimension* oldDimension,
                                   const QxDbArcDimension* newDimension);
  virtual bool CompareArc(const QxDbArc* oldArc, const QxDbArc* newArc);
  virtual bool CompareAlignedDimension(const QxDbAlignedDimension* oldDimension,
                                       const QxDbAlignedDimension* newDimension);
  virtual bool Compare3PointAngularDimension(const QxDb3PointAngularDimension* oldDimension,
                                             const QxDb3PointAngularDimension* newDimension);
  virtual bool Compare3dPolyline(const QxDb3dPolyline* oldPolyline,
                                 const QxDb3dPolyline* newPolyline);
  virtual bool Compare2LineAngularDimension(const QxDb2LineAngularDimension* oldDimension,
                                            const QxDb2LineAngularDimension* newDimension);
  virtual bool Compare2dPolyline(const QxDb2dPolyline* oldPolyline,
                                 const QxDb2dPolyline* newPolyline);

  // The text without the in-line colour codes that start with code ("\\c" or "\\C").
  static std::wstring WithoutColorCodes(std::wstring text, const wchar_t* code);

 protected:
  bool IsCompared(int bit) const { return (options_.GetCompareFlag() & bit) != 0; }
  // The first check of the kinds with a thickness, when the flag asks for it.
  bool HasDifferentThickness(double oldThickness, double newThickness) const;
  // Without this bit no comparator looks at geometry or data.
  bool IsGeometryCompared() const { return IsCompared(kCompareGeometry); }

 private:
  // The layer, linetype, scale, colour and weight tests the compare flag asks for.
  bool HaveSameCommonProperties(const QxDbEntity* oldEntity, const QxDbEntity* newEntity) const;
  // The comparator of the old entity's class; true for classes without one.
  bool CompareByClass(const QxDbEntity* oldEntity, const QxDbEntity* newEntity);

  // The layer's name, looked up once per layer.
  const std::wstring& CachedLayerName(QxDbObjectId layerId);

  VnFileCompareOptions options_;
  std::map<QxDbObjectId, std::wstring> layerNames_;
};
