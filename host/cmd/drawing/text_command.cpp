// -TEXT: single-line texts, one TEXT entity per line typed, placed by a start point or
// a justification point in the X-Y plane of the user system, in the current style.
#include <cmath>
#include <numbers>
#include <string>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/drawing/planar_entities.h"
#include "cmd/drawing/user_system.h"
#include "qx_db_text.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_memory.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

struct Justification {
  const wchar_t* keyword;
  QxDb::TextHorzMode horizontal;
  QxDb::TextVertMode vertical;
  const wchar_t* prompt;  // of the anchor point; two-point kinds ask two
};

constexpr Justification kJustifications[] = {
    {L"Left", QxDb::kTextLeft, QxDb::kTextBase, L"\nSpecify start point of text: "},
    {L"Center", QxDb::kTextCenter, QxDb::kTextBase, L"\nSpecify center point of text: "},
    {L"Right", QxDb::kTextRight, QxDb::kTextBase, L"\nSpecify right endpoint of text baseline: "},
    {L"Align", QxDb::kTextAlign, QxDb::kTextBase, L"\nSpecify first endpoint of text baseline: "},
    {L"Middle", QxDb::kTextMid, QxDb::kTextBase, L"\nSpecify middle point of text: "},
    {L"Fit", QxDb::kTextFit, QxDb::kTextBase, L"\nSpecify first endpoint of text baseline: "},
    {L"TL", QxDb::kTextLeft, QxDb::kTextTop, L"\nSpecify top-left point of text: "},
    {L"TC", QxDb::kTextCenter, QxDb::kTextTop, L"\nSpecify top-center point of text: "},
    {L"TR", QxDb::kTextRight, QxDb::kTextTop, L"\nSpecify top-right point of text: "},
    {L"ML", QxDb::kTextLeft, QxDb::kTextVertMid, L"\nSpecify middle-left point of text: "},
    {L"MC", QxDb::kTextCenter, QxDb::kTextVertMid, L"\nSpecify middle point of text: "},
    {L"MR", QxDb::kTextRight, QxDb::kTextVertMid, L"\nSpecify middle-right point of text: "},
    {L"BL", QxDb::kTextLeft, QxDb::kTextBottom, L"\nSpecify bottom-left point of text: "},
    {L"BC", QxDb::kTextCenter, QxDb::kTextBottom, L"\nSpecify bottom-center point of text: "},
    {L"BR", QxDb::kTextRight, QxDb::kTextBottom, L"\nSpecify bottom-right point of text: "},
};
constexpr const wchar_t* kJustifyKeywords =
    L"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR _ "
    L"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR";

// Lines typed one after another stand this many text heights apart.
constexpr double kLineSpacing = 5.0 / 3.0;

// What the text style gives every text made in it.
struct StyleFacts {
  bool found = false;
  double fixedHeight = 0;
  double widthFactor = 1;
  double oblique = 0;  // radians
  int generation = 0;  // 2 backwards, 4 upside down
};

StyleFacts styleFacts(const std::wstring& name) {
  StyleFacts facts;
  ResultBuffer* list = qxdbTblSearch(L"STYLE", name.c_str(), 0);
  if (!list) return facts;
  facts.found = true;
  for (const ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 40) facts.fixedHeight = node->value.rreal;
    if (node->type == 41) facts.widthFactor = node->value.rreal;
    if (node->type == 50) facts.oblique = node->value.rreal * std::numbers::pi / 180;
    if (node->type == 71) facts.generation = node->value.rint;
  }
  qxutRelRb(list);
  return facts;
}

const Justification& justificationNamed(const std::wstring& keyword) {
  for (const Justification& each : kJustifications) {
    if (sameText(keyword, each.keyword)) return each;
  }
  return kJustifications[0];
}

bool twoPoint(const Justification& justification) {
  return justification.horizontal == QxDb::kTextAlign || justification.horizontal == QxDb::kTextFit;
}

// The session's choices, offered again by the next -TEXT.
struct Remembered {
  const Justification* justification = &kJustifications[0];
  double rotation = 0;
};
Remembered& remembered() {
  static Remembered values;
  return values;
}

// Where one line goes and how it looks, in the user system.
struct Placement {
  const Justification* justification = &kJustifications[0];
  Vec3 anchor;  // start point, justification point, or first baseline end
  Vec3 second;  // second baseline end of aligned and fitted texts
  double height = 0;
  double rotation = 0;  // from the user system's X axis
};

class TextSession {
 public:
  TextSession() : user_(currentUserSystem()) {}

  void run() {
    std::wstring style = stringVariable(L"TEXTSTYLE");
    qxutPrintf(L"\nCurrent text style:  \"%s\"  Text height:  %s  Justify:  %s", style.c_str(),
               distanceText(realVariable(L"TEXTSIZE", 2.5)).c_str(),
               remembered().justification->keyword);
    if (!askPlacement()) return;
    writeLines();
  }

 private:
  bool askPlacement() {
    for (;;) {
      Vec3 point;
      const Justification& current = *remembered().justification;
      bool startPrompt = &current == &kJustifications[0];
      std::wstring prompt = startPrompt ? L"\nSpecify start point of text or [Justify/Style]: "
                                        : std::wstring(current.prompt);
      if (!startPrompt) prompt.insert(prompt.size() - 2, L" or [Justify/Style]");
      Answer answer = askPoint(prompt.c_str(), std::nullopt, point,
                               {QXED_NO_NULL, L"Justify Style _ Justify Style"});
      if (answer.stop()) return false;
      if (answer.is(L"Style")) {
        if (!askStyle()) return false;
        continue;
      }
      if (answer.is(L"Justify")) {
        Answer chosen = askKeyword(
            L"\nEnter an option [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR]: ",
            {QXED_NO_NULL, kJustifyKeywords});
        if (chosen.stop()) return false;
        remembered().justification = &justificationNamed(chosen.keyword);
        place_.justification = remembered().justification;
        if (!askPoint(place_.justification->prompt, std::nullopt, point, {QXED_NO_NULL}).value()) {
          return false;
        }
      }
      place_.justification = remembered().justification;
      place_.anchor = point;
      return askShape();
    }
  }

  bool askStyle() {
    std::wstring current = stringVariable(L"TEXTSTYLE");
    for (;;) {
      std::wstring name;
      Answer answer =
          askString((L"\nEnter style name or [?] <" + current + L">: ").c_str(), false, name);
      if (answer.stop()) return false;
      if (name.empty()) return true;
      if (name == L"?") {
        listStyles();
        continue;
      }
      if (!styleFacts(name).found || !setStringVariable(L"TEXTSTYLE", name)) {
        qxutPrintf(L"\nCannot find text style \"%s\".", name.c_str());
        continue;
      }
      return true;
    }
  }

  static void listStyles() {
    qxutPrintf(L"\nText styles:");
    for (ResultBuffer* list = qxdbTblNext(L"STYLE", 1); list; list = qxdbTblNext(L"STYLE", 0)) {
      for (const ResultBuffer* node = list; node; node = node->next) {
        if (node->type == 2 && node->value.rstring && *node->value.rstring) {
          qxutPrintf(L"\n  \"%s\"", node->value.rstring);
        }
      }
      qxutRelRb(list);
    }
  }

  bool askShape() {
    StyleFacts style = styleFacts(stringVariable(L"TEXTSTYLE"));
    style_ = style;
    const Justification& kind = *place_.justification;
    if (twoPoint(kind)) {
      if (!askPoint(L"\nSpecify second endpoint of text baseline: ", place_.anchor, place_.second,
                    {QXED_NO_NULL})
               .value()) {
        return false;
      }
      place_.rotation =
          std::atan2(place_.second.y - place_.anchor.y, place_.second.x - place_.anchor.x);
    }
    place_.height = style.fixedHeight > 0 ? style.fixedHeight : realVariable(L"TEXTSIZE", 2.5);
    if (style.fixedHeight <= 0 && kind.horizontal != QxDb::kTextAlign) {
      double height = place_.height;
      std::wstring prompt = L"\nSpecify height <" + distanceText(height) + L">: ";
      if (askDistance(prompt.c_str(), place_.anchor, height, {QXED_NO_ZERO | QXED_NO_NEGATIVE})
              .stop()) {
        return false;
      }
      place_.height = height;
      setRealVariable(L"TEXTSIZE", height);
    }
    if (!twoPoint(kind)) {
      double rotation = remembered().rotation;
      std::wstring prompt = L"\nSpecify rotation angle of text <" + angleText(rotation) + L">: ";
      if (askOrientation(prompt.c_str(), place_.anchor, rotation).stop()) return false;
      place_.rotation = remembered().rotation = rotation;
    }
    return true;
  }

  void writeLines() {
    Vec3 down{std::sin(place_.rotation), -std::cos(place_.rotation), 0};
    Vec3 step = down * (kLineSpacing * place_.height);
    for (int line = 0;; ++line) {
      std::wstring text;
      Answer answer = askString(L"\nEnter text: ", true, text);
      if (!answer.value() || text.empty()) return;
      Vec3 shift = step * line;
      if (!addText(text, place_.anchor + shift, place_.second + shift)) {
        qxutPrintf(L"\nThe text could not be added to the drawing.");
        return;
      }
    }
  }

  bool addText(const std::wstring& content, Vec3 anchor, Vec3 second) {
    const Justification& kind = *place_.justification;
    auto* text = new QxDbText();
    if (!isWorldZ(user_.zAxis)) text->setNormal(toGeVector(user_.zAxis));
    text->setTextString(content.c_str());
    text->setHeight(place_.height);
    text->setRotation(tidyAngle(objectAngle(user_, place_.rotation)));
    if (style_.widthFactor != 1) text->setWidthFactor(style_.widthFactor);
    if (style_.oblique != 0) text->setOblique(style_.oblique);
    if (style_.generation & 2) text->mirrorInX(true);
    if (style_.generation & 4) text->mirrorInY(true);
    text->setHorizontalMode(kind.horizontal);
    text->setVerticalMode(kind.vertical);
    QxGePoint3d world = toGePoint(user_.toWorld(anchor));
    text->setPosition(world);
    if (twoPoint(kind)) {
      text->setAlignmentPoint(toGePoint(user_.toWorld(second)));
    } else if (&kind != &kJustifications[0]) {
      text->setAlignmentPoint(world);
    }
    EntityName name;
    if (!appendToCurrentSpace(text, name)) return false;
    return placeInStyle(name);
  }

  // The style's font measures the text: only a text in the drawing can be placed.
  bool placeInStyle(const EntityName name) {
    EntityName styleName;
    QxDbObjectId styleId, textId;
    if (qxdbTblObjName(L"STYLE", stringVariable(L"TEXTSTYLE").c_str(), styleName) != RTNORM ||
        qxdbGetObjectId(styleId, styleName) != Qxad::eOk ||
        qxdbGetObjectId(textId, name) != Qxad::eOk) {
      return true;
    }
    QxDbObject* object = nullptr;
    if (qxdbOpenQxDbObject(object, textId, QxDb::kForWrite) != Qxad::eOk) return false;
    if (QxDbText* text = QxDbText::cast(object)) {
      text->setTextStyle(styleId);
      text->adjustAlignment();
    }
    object->close();
    return true;
  }

  api::CoordinateSystem user_;
  Placement place_;
  StyleFacts style_;
};

}  // namespace

void textCommand() {
  TextSession().run();
}

}  // namespace korva::cmd::drawing
