// The same curves measured by korva and by ezdxf (lengths by fine integration in
// Python where ezdxf has none): they agree within 1e-9.
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "curve_fixture.h"
#include "db/handle.h"
#include "dxf/reader.h"

namespace {

struct Reference {
  std::string handle, kind;
  std::vector<double> values;
};

}  // namespace

class EzdxfCurves : public CurveDrawing {
 protected:
  void SetUp() override {
    std::string dxf = std::string(WORK_DIR) + "/curves.dxf";
    std::string reference = std::string(WORK_DIR) + "/curves_reference.txt";
    std::string command =
        std::string(KORVA_PYTHON) + " " + REFERENCE_SCRIPT + " " + dxf + " " + reference;
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    korva::dxf::ReadResult read = korva::dxf::readFile(dxf);
    ASSERT_TRUE(read.ok()) << read.error;
    use(std::move(read.database));
    std::ifstream in(reference);
    for (std::string line; std::getline(in, line);) {
      std::istringstream words(line);
      Reference r;
      words >> r.handle >> r.kind;
      for (double v; words >> v;) r.values.push_back(v);
      references_.push_back(r);
    }
    ASSERT_GT(references_.size(), 40u);
  }

  QxDbCurve* openCurve(const std::string& handle) {
    QxDbObject* object = nullptr;
    auto id = QxDbObjectId::fromParts(database().serial(), *korva::db::parseHandle(handle));
    if (qxdbOpenQxDbObject(object, id, QxDb::kForRead) != Qxad::eOk) return nullptr;
    QxDbCurve* curve = QxDbCurve::cast(object);
    if (!curve) object->close();
    return curve;
  }

  std::vector<Reference> references_;
};

TEST_F(EzdxfCurves, LengthsPointsAndExtentsAgree) {
  int checked = 0;
  for (const Reference& r : references_) {
    SCOPED_TRACE(r.handle + " " + r.kind);
    QxDbCurve* curve = openCurve(r.handle);
    ASSERT_TRUE(curve);
    if (r.kind == "length" || r.kind == "half") {
      double end = 0, length = 0;
      ASSERT_EQ(curve->getEndParam(end), Qxad::eOk);
      ASSERT_EQ(curve->getDistAtParam(end, length), Qxad::eOk);
      double expected = r.kind == "length" ? r.values[0] : 2 * r.values[0];
      EXPECT_NEAR(length, expected, 1e-9 * std::fmax(1.0, expected));
      if (r.kind == "half") {
        // Halfway along: the distance there and the point at that distance agree.
        double param = 0, dist = 0;
        ASSERT_EQ(curve->getParamAtDist(r.values[0], param), Qxad::eOk);
        ASSERT_EQ(curve->getDistAtParam(param, dist), Qxad::eOk);
        EXPECT_NEAR(dist, r.values[0], 1e-9 * r.values[0]);
      }
    } else if (r.kind == "point") {
      QxGePoint3d p;
      ASSERT_EQ(curve->getPointAtParam(r.values[0], p), Qxad::eOk);
      EXPECT_POINT_NEAR(p, r.values[1], r.values[2], r.values[3], 1e-9);
      double param = 0;
      ASSERT_EQ(curve->getParamAtPoint(p, param), Qxad::eOk);
      QxGePoint3d back;
      ASSERT_EQ(curve->getPointAtParam(param, back), Qxad::eOk);
      EXPECT_LT(back.distanceTo(p), 1e-9);
    } else if (r.kind == "extents" || r.kind == "extents_approx") {
      // The approximate boxes come from 200000 samples: good to about 1e-9 of their size.
      double tolerance = r.kind == "extents" ? 1e-9 : 1e-8;
      QxDbExtents box;
      ASSERT_EQ(curve->getGeomExtents(box), Qxad::eOk);
      EXPECT_POINT_NEAR(box.minPoint(), r.values[0], r.values[1], r.values[2], tolerance);
      EXPECT_POINT_NEAR(box.maxPoint(), r.values[3], r.values[4], r.values[5], tolerance);
    }
    curve->close();
    ++checked;
  }
  EXPECT_EQ(checked, static_cast<int>(references_.size()));
}
