// A paragraph text broken into single-line texts, one per laid-out line, each placed
// where the line stands and justified as the paragraph's attachment column.
#include <cmath>

#include "api/utf8.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "paragraph_layout.h"
#include "qx_db_text.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

// A single-line text would read "%%" as the start of a special character.
std::wstring literalText(const std::string& utf8) {
  std::wstring text = korva::api::fromUtf8(utf8);
  std::wstring escaped;
  for (size_t i = 0; i < text.size(); ++i) {
    escaped += text[i];
    if (text[i] == L'%' && i + 1 < text.size() && text[i + 1] == L'%') {
      escaped += L"%%";
      ++i;
    }
  }
  return escaped;
}

}  // namespace

Qxad::ErrorStatus QxDbMText::explode(QxDbVoidPtrArray& pieces) const {
  korva::api::ParagraphSize size = korva::api::paragraphLayoutOf(this);
  double height = textHeight();
  double pitch = korva::api::paragraphLinePitch(height, lineSpacingFactor());
  int column = (attachment() - 1) % 3, row = (attachment() - 1) / 3;
  double top = row == 0 ? 0 : row == 1 ? size.height / 2 : size.height;
  Vec3 normal = m::fromVector(this->normal());
  Vec3 origin = m::fromPoint(location());
  Vec3 along = korva::geom::normalized(m::fromVector(direction()));
  Vec3 up = korva::geom::cross(normal, along);
  Vec3 inPlane = korva::geom::objectToWorld(normal).inverse().vector(along);
  double angle = std::atan2(inPlane.y, inPlane.x);
  std::string style(m::text(this, 7, "AcDbMText").value_or("Standard"));
  const QxDb::TextHorzMode modes[3] = {QxDb::kTextLeft, QxDb::kTextCenter, QxDb::kTextRight};
  for (size_t line = 0; line < size.lines.size(); ++line) {
    if (size.lines[line].empty()) continue;
    Vec3 anchor = origin + up * (top - height - static_cast<double>(line) * pitch);
    auto* text = new QxDbText;
    text->setPropertiesFrom(this);
    text->setNormal(m::toVector(normal));
    text->setHeight(height);
    text->setRotation(angle);
    text->setTextString(literalText(size.lines[line]).c_str());
    m::setText(text, 7, style, "AcDbText");
    text->setHorizontalMode(modes[column]);
    if (column == 0) {
      text->setPosition(m::toPoint(anchor));
    } else {
      text->setAlignmentPoint(m::toPoint(anchor));
    }
    pieces.append(text);
  }
  return Qxad::eOk;
}
