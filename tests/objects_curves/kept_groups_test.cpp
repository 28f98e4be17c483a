// A transform rewrites an entity's geometry only: its handle, reactors, owner and
// extended data stay as they were, even where the kind changes (a circle turning into
// an ellipse under a non-uniform scale).
#include <cmath>
#include <string>
#include <vector>

#include "../../host/api/objects/entity_transform.h"
#include "curve_fixture.h"
#include "qx_db_spline.h"

namespace {

using Groups = std::vector<korva::db::OwnedGroup>;

const Groups kReactors = {{102, "{ACAD_REACTORS"}, {330, "7F"}, {102, "}"}};
const Groups kExtendedData = groups("1001 KORVA_TEST|1000 kept|1040 2.5|1070 7");

// Reactors, the kind's own groups, then an application's extended data.
Groups withLinks(const Groups& own) {
  Groups all = kReactors;
  all.insert(all.end(), {{100, "AcDbEntity"}, {8, "0"}});
  all.insert(all.end(), own.begin(), own.end());
  all.insert(all.end(), kExtendedData.begin(), kExtendedData.end());
  return all;
}

Groups groupsOf(const korva::db::Record* record) {
  Groups out;
  for (const korva::db::Group& group : record->groups())
    out.push_back({group.code, std::string(group.value)});
  return out;
}

// The run of groups from the first with `code` on, as long as `count`.
Groups runFrom(const Groups& groups, int code, size_t count) {
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code == code)
      return Groups(groups.begin() + i, groups.begin() + std::min(groups.size(), i + count));
  }
  return {};
}

void expectLinksKept(const Groups& groups) {
  Groups reactors = runFrom(groups, 102, kReactors.size());
  Groups extended = runFrom(groups, 1001, kExtendedData.size() + 1);
  ASSERT_EQ(reactors.size(), kReactors.size());
  ASSERT_EQ(extended.size(), kExtendedData.size()) << "the extended data must end the record";
  for (size_t i = 0; i < reactors.size(); ++i) {
    EXPECT_EQ(reactors[i].code, kReactors[i].code);
    EXPECT_EQ(reactors[i].value, kReactors[i].value);
  }
  for (size_t i = 0; i < extended.size(); ++i) {
    EXPECT_EQ(extended[i].code, kExtendedData[i].code);
    EXPECT_EQ(extended[i].value, kExtendedData[i].value);
  }
}

int countOf(const Groups& groups, int code) {
  int count = 0;
  for (const korva::db::OwnedGroup& group : groups) count += group.code == code;
  return count;
}

}  // namespace

TEST_F(CurveDrawing, EllipseKeepsHandleAndLinksUnderAStretch) {
  auto* record = database().addEntity(
      withLinks(groups("100 AcDbEllipse|10 1|20 2|30 0|11 4|21 0|31 0|40 0.5|41 0|"
                       "42 6.283185307179586")),
      "ELLIPSE");
  std::string handle = value(record, 5);
  ASSERT_FALSE(handle.empty());
  QxDbEllipse* ellipse = open<QxDbEllipse>(record, QxDb::kForWrite);
  ASSERT_TRUE(ellipse);
  // Stretching across the major axis: the minor axis (2) becomes 6, the major stays 4.
  ASSERT_EQ(ellipse->transformBy(QxGeMatrix3d::scaling(QxGeScale3d(1, 3, 1))), Qxad::eOk);
  EXPECT_NEAR(ellipse->majorAxis().length(), 6, 1e-9);
  EXPECT_NEAR(std::fabs(ellipse->majorAxis().y), 6, 1e-9);
  EXPECT_NEAR(ellipse->radiusRatio(), 4.0 / 6, 1e-12);
  EXPECT_POINT_NEAR(ellipse->center(), 1, 6, 0, 1e-9);
  ellipse->close();
  EXPECT_EQ(value(record, 5), handle);
  EXPECT_EQ(record->type(), "ELLIPSE");
  Groups after = groupsOf(record);
  expectLinksKept(after);
  EXPECT_EQ(countOf(after, 100), 2) << "one entity part and one ellipse part";
}

TEST_F(CurveDrawing, SplineKeepsHandleAndLinksUnderShear) {
  auto* record = database().addEntity(
      withLinks(groups("100 AcDbSpline|70 8|71 1|72 4|73 2|74 0|40 0|40 0|40 1|40 1|10 0|"
                       "20 0|30 0|10 2|20 2|30 0")),
      "SPLINE");
  std::string handle = value(record, 5);
  QxDbSpline* spline = open<QxDbSpline>(record, QxDb::kForWrite);
  ASSERT_TRUE(spline);
  QxGeMatrix3d shear;
  shear.entry[0][1] = 1;  // x += y
  ASSERT_EQ(spline->transformBy(shear), Qxad::eOk);
  QxGePoint3d last;
  ASSERT_EQ(spline->getControlPointAt(1, last), Qxad::eOk);
  EXPECT_POINT_NEAR(last, 4, 2, 0, 1e-12);
  spline->close();
  EXPECT_EQ(value(record, 5), handle);
  expectLinksKept(groupsOf(record));
}

// The rewrite that explode and the selection-set transform share: a circle stretched
// along one axis comes back an ellipse with everything else of its record.
TEST_F(CurveDrawing, CircleTurnedEllipseKeepsWhatItDoesNotChange) {
  Groups circle = withLinks(groups("100 AcDbCircle|39 0|10 1|20 1|30 0|40 2"));
  circle.insert(circle.begin(), {5, "2A"});
  korva::api::TransformedEntity moved;
  korva::geom::Affine3 stretch = korva::geom::Affine3::scaling(3, 1, 1);
  ASSERT_TRUE(korva::api::transformEntity("CIRCLE", circle, stretch, moved));
  EXPECT_EQ(moved.type, "ELLIPSE");
  EXPECT_EQ(runFrom(moved.groups, 5, 1)[0].value, "2A");
  EXPECT_EQ(runFrom(moved.groups, 8, 1)[0].value, "0");
  expectLinksKept(moved.groups);
  EXPECT_EQ(countOf(moved.groups, 39), 0) << "the circle's own part is gone";
  EXPECT_EQ(runFrom(moved.groups, 100, 3)[2].value, "AcDbEllipse");
  EXPECT_EQ(std::stod(runFrom(moved.groups, 10, 1)[0].value), 3);
  EXPECT_EQ(runFrom(moved.groups, 40, 1)[0].value.substr(0, 8), "0.333333");

  // Records without subclass markers keep their layer and extended data the same way.
  Groups plain = groups("5 2B|8 WALLS|10 0|20 0|30 0|40 1");
  plain.insert(plain.end(), kExtendedData.begin(), kExtendedData.end());
  ASSERT_TRUE(korva::api::transformEntity("CIRCLE", plain, stretch, moved));
  EXPECT_EQ(countOf(moved.groups, 100), 0);
  EXPECT_EQ(runFrom(moved.groups, 8, 1)[0].value, "WALLS");
  EXPECT_EQ(runFrom(moved.groups, 1001, 2)[1].value, "kept");
  EXPECT_EQ(countOf(moved.groups, 10), 1);
}
