// ZOOM: sets the view's center and height (VIEWCTR, VIEWSIZE) of the active viewport
// from the drawing's extents, its limits, a window, a center or a scale factor. There
// is no screen: the view only matters to what is saved and to commands that ask.
#include <cmath>
#include <cwchar>
#include <map>
#include <string>
#include <vector>

#include "api/coordinate_systems.h"
#include "api/document.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/drawing_extents.h"
#include "cmd/drawing/user_system.h"
#include "qx_db_database.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

struct View {
  Vec2 center;
  double height = 1;
  double aspect = 1;  // width / height
};

QxDbViewportTableRecord* openActiveViewport(int mode) {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  QxDbViewportTable* table = nullptr;
  if (!database || database->getSymbolTable(table, QxDb::kForRead) != Qxad::eOk) return nullptr;
  QxDbViewportTableRecord* record = nullptr;
  if (table->getAt(L"*Active", record, mode) != Qxad::eOk) record = nullptr;
  table->close();
  return record;
}

std::optional<View> currentView() {
  QxDbViewportTableRecord* record = openActiveViewport(QxDb::kForRead);
  if (!record) return std::nullopt;
  View view;
  QxGePoint2d center = record->centerPoint();
  view.center = {center.x, center.y};
  view.height = record->height();
  view.aspect = view.height > 0 ? record->width() / view.height : 1;
  record->close();
  return view;
}

// The views ZOOM replaced, per drawing, for ZOOM Previous.
std::vector<View>& previousViews() {
  static std::map<std::uint64_t, std::vector<View>> kept;
  api::Document* document = api::DocumentList::instance().current();
  return kept[document ? document->serial() : 0];
}

bool writeView(const View& view) {
  QxDbViewportTableRecord* record = openActiveViewport(QxDb::kForWrite);
  if (!record) return false;
  record->setCenterPoint(QxGePoint2d(view.center.x, view.center.y));
  record->setHeight(view.height);
  record->setWidth(view.height * view.aspect);
  record->close();
  return true;
}

void showView(View view) {
  std::optional<View> current = currentView();
  if (!current) {
    qxutPrintf(L"\nThe drawing has no active viewport to zoom.");
    return;
  }
  if (!(view.height > 0) || !std::isfinite(view.height)) return;
  view.aspect = current->aspect;
  std::vector<View>& previous = previousViews();
  previous.push_back(*current);
  if (previous.size() > 10) previous.erase(previous.begin());
  writeView(view);
}

// The view that shows the whole box.
void fit(const geom::Box2& box) {
  std::optional<View> current = currentView();
  if (!current || box.empty()) return;
  View view;
  view.center = (box.min + box.max) * 0.5;
  double width = box.max.x - box.min.x, height = box.max.y - box.min.y;
  view.height = std::fmax(height, width / current->aspect);
  if (view.height <= 0) view.height = current->height;
  showView(view);
}

geom::Box2 limits() {
  geom::Box2 box;
  const db::Database* database = api::currentDatabase();
  if (!database) return box;
  bool paper = api::inPaperSpace(*database);
  Vec3 low = api::headerPoint(*database, paper ? "$PLIMMIN" : "$LIMMIN", {0, 0, 0});
  Vec3 high = api::headerPoint(*database, paper ? "$PLIMMAX" : "$LIMMAX", {420, 297, 0});
  box.add(toDisplay(low));
  box.add(toDisplay(high));
  return box;
}

void zoomWindow(Vec3 first, Vec3 second) {
  api::CoordinateSystem user = currentUserSystem();
  geom::Box2 box;
  box.add(toDisplay(user.toWorld(first)));
  box.add(toDisplay(user.toWorld(second)));
  if (box.max.x - box.min.x <= 0 && box.max.y - box.min.y <= 0) return;
  fit(box);
}

// "2x" or "2X" scales the current view, "2xp" likewise (no paper space scaling
// here), a plain "2" scales the view of the limits. False for other text.
bool zoomByFactor(std::wstring text) {
  text = upperText(text);
  bool relative = false;
  if (text.size() > 2 && text.ends_with(L"XP")) {
    text.resize(text.size() - 2);
    relative = true;
  } else if (text.size() > 1 && text.ends_with(L"X")) {
    text.pop_back();
    relative = true;
  }
  wchar_t* end = nullptr;
  double factor = std::wcstod(text.c_str(), &end);
  if (text.empty() || *end != 0 || !(factor > 0)) return false;
  std::optional<View> current = currentView();
  if (!current) return true;
  View view = *current;
  if (relative) {
    view.height = current->height / factor;
  } else {
    geom::Box2 box = limits();
    double height = std::fmax(box.max.y - box.min.y, (box.max.x - box.min.x) / current->aspect);
    view.height = height / factor;
  }
  showView(view);
  return true;
}

void zoomCenter() {
  Vec3 center;
  if (!askPoint(L"\nSpecify center point: ", std::nullopt, center, {QXED_NO_NULL}).value()) {
    return;
  }
  std::optional<View> current = currentView();
  if (!current) return;
  for (;;) {
    std::wstring text;
    std::wstring prompt =
        L"\nEnter magnification or height <" + distanceText(current->height) + L">: ";
    if (!askString(prompt.c_str(), false, text).value()) return;
    View view = *current;
    view.center = toDisplay(currentUserSystem().toWorld(center));
    if (text.empty()) {
      showView(view);
      return;
    }
    std::wstring upper = upperText(text);
    wchar_t* end = nullptr;
    double value = std::wcstod(upper.c_str(), &end);
    if (value > 0 && (*end == 0 || std::wstring(end) == L"X")) {
      view.height = *end == 0 ? value : current->height / value;
      showView(view);
      return;
    }
    qxutPrintf(L"\nRequires a height or a magnification (nX).");
  }
}

}  // namespace

void zoomCommand() {
  for (;;) {
    Vec3 first;
    Answer answer = askPoint(
        L"\nSpecify corner of window, enter a scale factor (nX or nXP), or\n"
        L"[All/Center/Extents/Previous/Window] <real time>: ",
        std::nullopt, first,
        {QXED_ARBITRARY,
         L"All Center Extents Previous Window _ All Center Extents Previous Window"});
    if (answer.stop() || answer.enter()) return;
    if (answer.value()) {
      Vec3 second;
      if (askCorner(L"\nSpecify opposite corner: ", first, second, {QXED_NO_NULL}).value()) {
        zoomWindow(first, second);
      }
      return;
    }
    if (answer.is(L"All")) {
      geom::Box2 box = limits();
      box.add(currentSpaceExtents());
      fit(box);
    } else if (answer.is(L"Extents")) {
      geom::Box2 box = currentSpaceExtents();
      fit(box.empty() ? limits() : box);
    } else if (answer.is(L"Window")) {
      Vec3 second;
      if (askPoint(L"\nSpecify first corner: ", std::nullopt, first, {QXED_NO_NULL}).value() &&
          askCorner(L"\nSpecify opposite corner: ", first, second, {QXED_NO_NULL}).value()) {
        zoomWindow(first, second);
      }
    } else if (answer.is(L"Center")) {
      zoomCenter();
    } else if (answer.is(L"Previous")) {
      std::vector<View>& previous = previousViews();
      if (previous.empty()) {
        qxutPrintf(L"\nNo previous view saved.");
      } else {
        writeView(previous.back());
        previous.pop_back();
      }
    } else if (!zoomByFactor(answer.keyword)) {
      qxutPrintf(L"\nRequires a point, a scale factor (nX or nXP) or an option keyword.");
      continue;
    }
    return;
  }
}

}  // namespace korva::cmd::drawing
