// Makes the sample drawing of the ezdxf comparison through qxdbEntMake and saves it.
#include <cstdio>

#include "api/document.h"
#include "dxf/new_drawing.h"
#include "dxf/writer.h"
#include "qx_entities.h"
#include "qx_memory.h"

namespace {

bool make(ResultBuffer* list) {
  int status = list ? qxdbEntMake(list) : RTERROR;
  qxutRelRb(list);
  return status == RTNORM;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s OUTPUT.dxf\n", argv[0]);
    return 2;
  }
  auto& document =
      korva::api::DocumentList::instance().add(korva::dxf::createNewDrawing(), argv[1]);
  double origin[3] = {0, 0, 0}, p1[3] = {10, 0, 0}, p2[3] = {10, 5, 0}, p3[3] = {0, 5, 2};
  double center[3] = {3, 4, 0}, major[3] = {4, 0, 0};
  bool ok = make(qxutBuildList(RTDXF0, L"LAYER", 2, L"Walls", 62, 1, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"LINE", 8, L"Walls", 10, origin, 11, p1, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"CIRCLE", 8, L"Walls", 10, center, 40, 2.5, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"ARC", 8, L"Arcs", 10, center, 40, 1.5, 50, 0.0, 51, 90.0,
                               RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"TEXT", 8, L"Notes", 10, p2, 40, 2.5, 1, L"Straße", 72, 1,
                               11, p2, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"ELLIPSE", 10, center, 11, major, 40, 0.5, 41, 0.0, 42,
                               6.283185307179586, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"POINT", 10, p3, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"LWPOLYLINE", 8, L"Walls", 70, 1, 10, origin, 10, p1, 10,
                               p2, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"POLYLINE", 70, 8, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"VERTEX", 10, origin, 70, 32, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"VERTEX", 10, p3, 70, 32, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"SEQEND", RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"BLOCK", 2, L"Door", 70, 2, 10, origin, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"LINE", 10, origin, 11, p2, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"ATTDEF", 10, origin, 40, 1.0, 1, L"", 2, L"TAG", 3,
                               L"Tag?", 70, 0, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"ENDBLK", RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"INSERT", 2, L"Door", 66, 1, 10, p1, 41, 2.0, 42, 2.0, 43,
                               2.0, 50, 30.0, RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"ATTRIB", 10, p1, 40, 1.0, 1, L"D-01", 2, L"TAG", 70, 0,
                               RTNONE)) &&
            make(qxutBuildList(RTDXF0, L"SEQEND", RTNONE));
  if (!ok) {
    std::fprintf(stderr, "qxdbEntMake failed\n");
    return 1;
  }
  korva::dxf::WriteResult written = korva::dxf::writeFile(document.database(), argv[1]);
  if (!written.ok) {
    std::fprintf(stderr, "save failed: %s\n", written.error.c_str());
    return 1;
  }
  return 0;
}
