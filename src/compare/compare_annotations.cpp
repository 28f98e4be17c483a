// Comparators of tables, mlines, leaders and tolerance frames.
#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;
using CompareEquality::IsSameDirection;
using CompareEquality::IsSameString;

bool VnFileCompareUtils::CompareTable(const QxDbTable* oldTable, const QxDbTable* newTable) {
  if (!IsGeometryCompared()) return true;
  // The cells' contents are not looked at: only the table's frame decides.
  return IsSameDirection(oldTable->direction(), newTable->direction()) &&
         oldTable->numRows() == newTable->numRows() &&
         oldTable->numColumns() == newTable->numColumns() &&
         IsNearEqual(oldTable->width(), newTable->width()) &&
         IsNearEqual(oldTable->height(), newTable->height());
}

bool VnFileCompareUtils::CompareMline(const QxDbMline* oldMline, const QxDbMline* newMline) {
  if (!IsGeometryCompared()) return true;
  const int count = oldMline->numVertices();
  if (count != newMline->numVertices() || oldMline->justification() != newMline->justification() ||
      !IsNearEqual(oldMline->scale(), newMline->scale())) {
    return false;
  }
  for (int i = 0; i < count; ++i) {
    if (!oldMline->vertexAt(i).isEqualTo(newMline->vertexAt(i))) return false;
  }
  return true;
}

bool VnFileCompareUtils::CompareLeader(const QxDbLeader* oldLeader, const QxDbLeader* newLeader) {
  if (!IsGeometryCompared()) return true;
  const int count = oldLeader->numVertices();
  if (!IsSameDirection(oldLeader->normal(), newLeader->normal()) ||
      count != newLeader->numVertices()) {
    return false;
  }
  for (int i = 0; i < count; ++i) {
    if (!oldLeader->vertexAt(i).isEqualTo(newLeader->vertexAt(i))) return false;
  }
  return IsNearEqual(oldLeader->annoHeight(), newLeader->annoHeight()) &&
         IsNearEqual(oldLeader->annoWidth(), newLeader->annoWidth()) &&
         IsNearEqual(oldLeader->dimasz(), newLeader->dimasz()) &&
         IsNearEqual(oldLeader->dimgap(), newLeader->dimgap()) &&
         IsNearEqual(oldLeader->dimscale(), newLeader->dimscale());
}

bool VnFileCompareUtils::CompareFcf(const QxDbFcf* oldFcf, const QxDbFcf* newFcf) {
  if (!IsGeometryCompared()) return true;
  wchar_t* oldText = oldFcf->text(-1);
  wchar_t* newText = newFcf->text(-1);
  const bool sameText = IsSameString(oldText, newText);
  qxad_free(oldText);
  qxad_free(newText);
  return sameText && oldFcf->location().isEqualTo(newFcf->location()) &&
         IsSameDirection(oldFcf->normal(), newFcf->normal()) &&
         IsSameDirection(oldFcf->direction(), newFcf->direction()) &&
         IsNearEqual(oldFcf->dimgap(), newFcf->dimgap()) &&
         IsNearEqual(oldFcf->dimscale(), newFcf->dimscale()) &&
         IsNearEqual(oldFcf->dimtxt(), newFcf->dimtxt());
}
