// QxDbPolyFaceMesh and QxDbPolygonMesh over POLYLINE records flagged 64 and 16, and the
// VERTEX records that follow them: mesh vertices (flags 64 with 128 for polyface
// vertices) and polyface faces (128 alone).
#include "entity_members.h"
#include "planar_box.h"
#include "polyline_vertices.h"
#include "qx_db_meshes.h"

namespace m = korva::api::members;

namespace {

constexpr std::string_view kPolyFaceMesh = "AcDbPolyFaceMesh";
constexpr std::string_view kPolygonMesh = "AcDbPolygonMesh";
constexpr long long kPolygonMeshFlag = 16;
constexpr long long kPolyFaceMeshFlag = 64;
constexpr long long kFaceRecordFlag = 128;

QxDbObject* chooseMeshClass(const korva::db::Record& record) {
  long long flags = korva::api::groupInteger(record, 70, 0);
  if (flags & kPolyFaceMeshFlag) return new QxDbPolyFaceMesh;
  if (flags & kPolygonMeshFlag) return new QxDbPolygonMesh;
  return nullptr;
}

std::vector<korva::db::Record*> vertexRecords(const QxDbObject* mesh) {
  korva::db::Database* database = korva::api::databaseOf(*mesh);
  if (!database) return {};
  return korva::api::vertexRecordsOf(*database, m::record(mesh));
}

bool isFaceRecord(const korva::db::Record& vertex) {
  return (korva::api::groupInteger(vertex, 70, 0) & (kFaceRecordFlag | kPolyFaceMeshFlag)) ==
         kFaceRecordFlag;
}

// The box of the vertex positions (world points), face records left out.
Qxad::ErrorStatus meshExtents(const QxDbObject* mesh, QxDbExtents& extents) {
  korva::geom::SpaceBox box;
  for (const korva::db::Record* vertex : vertexRecords(mesh)) {
    if (isFaceRecord(*vertex)) continue;
    double p[3];
    korva::api::groupPoint(*vertex, 10, p);
    box.add(korva::geom::Vec3{p[0], p[1], p[2]});
  }
  return korva::api::extentsOfBox(box, extents);
}

}  // namespace

static korva::api::ObjectChooserRegistration meshKinds("POLYLINE", chooseMeshClass);

// ---- Polyface mesh

const QxRxClass* QxDbPolyFaceMesh::desc() {
  static const QxRxClass record(L"QxDbPolyFaceMesh", QxDbEntity::desc(), "POLYLINE");
  return &record;
}

QxDbPolyFaceMesh::QxDbPolyFaceMesh() : QxDbEntity("POLYLINE") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupInteger(record, 66, 1, kPolyFaceMesh);
  korva::api::setGroupPoint(record, 10, origin, kPolyFaceMesh);
  korva::api::setGroupInteger(record, 70, kPolyFaceMeshFlag, kPolyFaceMesh);
  korva::api::setGroupInteger(record, 71, 0, kPolyFaceMesh);
  korva::api::setGroupInteger(record, 72, 0, kPolyFaceMesh);
}

int QxDbPolyFaceMesh::numVertices() const {
  int count = 0;
  for (const korva::db::Record* vertex : vertexRecords(this)) count += !isFaceRecord(*vertex);
  return count;
}

int QxDbPolyFaceMesh::numFaces() const {
  int count = 0;
  for (const korva::db::Record* vertex : vertexRecords(this)) count += isFaceRecord(*vertex);
  return count;
}

Qxad::ErrorStatus QxDbPolyFaceMesh::getGeomExtents(QxDbExtents& extents) const {
  return meshExtents(this, extents);
}

// ---- Polygon mesh

const QxRxClass* QxDbPolygonMesh::desc() {
  static const QxRxClass record(L"QxDbPolygonMesh", QxDbEntity::desc(), "POLYLINE");
  return &record;
}

QxDbPolygonMesh::QxDbPolygonMesh() : QxDbEntity("POLYLINE") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupInteger(record, 66, 1, kPolygonMesh);
  korva::api::setGroupPoint(record, 10, origin, kPolygonMesh);
  korva::api::setGroupInteger(record, 70, kPolygonMeshFlag, kPolygonMesh);
  korva::api::setGroupInteger(record, 71, 0, kPolygonMesh);
  korva::api::setGroupInteger(record, 72, 0, kPolygonMesh);
}

QxDbPolygonMesh::PolyMeshType QxDbPolygonMesh::polyMeshType() const {
  return static_cast<PolyMeshType>(m::integer(this, 75, kSimpleMesh, kPolygonMesh));
}

int QxDbPolygonMesh::mSize() const {
  return static_cast<int>(m::integer(this, 71, 0, kPolygonMesh));
}

int QxDbPolygonMesh::nSize() const {
  return static_cast<int>(m::integer(this, 72, 0, kPolygonMesh));
}

bool QxDbPolygonMesh::isMClosed() const {
  return (m::integer(this, 70, 0, kPolygonMesh) & 1) != 0;
}

bool QxDbPolygonMesh::isNClosed() const {
  return (m::integer(this, 70, 0, kPolygonMesh) & 32) != 0;
}

int QxDbPolygonMesh::numVertices() const {
  return static_cast<int>(vertexRecords(this).size());
}

Qxad::ErrorStatus QxDbPolygonMesh::getGeomExtents(QxDbExtents& extents) const {
  return meshExtents(this, extents);
}
