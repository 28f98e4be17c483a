#include "compare/file_compare_options.h"

#include "frame/profile_settings.h"

namespace {

constexpr const wchar_t* kToolKey = L"FileCompare";

// How a stored value is taken: as it stands, only as a colour index, or only as a
// combination of the seven compare bits.
enum class Acceptance { Any, Color, CompareBits };

}  // namespace

VnFileCompareOptions::VnFileCompareOptions() {
  SetDefaults();
}

void VnFileCompareOptions::SetDefaults() {
  oldDifferentColor_ = 1;
  oldModifiedColor_ = 6;
  oldSameColor_ = 8;
  oldDifferentVisible_ = 1;
  oldModifiedVisible_ = 1;
  oldSameVisible_ = 1;
  newDifferentColor_ = 3;
  newModifiedColor_ = 2;
  newSameColor_ = 9;
  newDifferentVisible_ = 1;
  newModifiedVisible_ = 1;
  newSameVisible_ = 1;
  compareFlag_ = kCompareAll;
}

void VnFileCompareOptions::Load() {
  // Without a profile there is nothing to read, and the object keeps what it has.
  if (!ProfileSettings::keyPath(kToolKey)) return;
  SetDefaults();
  const struct {
    const wchar_t* name;
    std::int32_t* field;
    Acceptance acceptance;
  } values[] = {
      {L"OldDifferentColor", &oldDifferentColor_, Acceptance::Color},
      {L"OldModifiedColor", &oldModifiedColor_, Acceptance::Color},
      {L"OldSameColor", &oldSameColor_, Acceptance::Color},
      {L"OldDifferentVisible", &oldDifferentVisible_, Acceptance::Any},
      {L"OldModifiedVisible", &oldModifiedVisible_, Acceptance::Any},
      {L"OldSameVisible", &oldSameVisible_, Acceptance::Any},
      {L"NewDifferentColor", &newDifferentColor_, Acceptance::Color},
      {L"NewModifiedColor", &newModifiedColor_, Acceptance::Color},
      {L"NewSameColor", &newSameColor_, Acceptance::Color},
      {L"NewDifferentVisible", &newDifferentVisible_, Acceptance::Any},
      // Checked as a colour, unlike its five siblings: settings written by earlier
      // versions rely on that rule, so it stays.
      {L"NewModifiedVisible", &newModifiedVisible_, Acceptance::Color},
      {L"NewSameVisible", &newSameVisible_, Acceptance::Any},
      {L"CompareFlag", &compareFlag_, Acceptance::CompareBits},
  };
  for (const auto& value : values) {
    std::uint32_t stored = 0;
    if (!ProfileSettings::readNumber(kToolKey, value.name, stored)) continue;
    const auto number = static_cast<std::int32_t>(stored);
    switch (value.acceptance) {
      case Acceptance::Any:
        *value.field = number;
        break;
      case Acceptance::Color:
        if (IsValidColor(number)) *value.field = number;
        break;
      case Acceptance::CompareBits:
        if (stored < 128) *value.field = number;
        break;
    }
  }
}

void VnFileCompareOptions::Save() const {
  // Without a profile there is nowhere to write; stop before the first value.
  if (!ProfileSettings::keyPath(kToolKey)) return;
  const struct {
    const wchar_t* name;
    std::int32_t value;
  } values[] = {
      {L"OldDifferentColor", oldDifferentColor_},
      {L"OldModifiedColor", oldModifiedColor_},
      {L"OldSameColor", oldSameColor_},
      {L"OldDifferentVisible", oldDifferentVisible_},
      {L"OldModifiedVisible", oldModifiedVisible_},
      {L"OldSameVisible", oldSameVisible_},
      {L"NewDifferentColor", newDifferentColor_},
      {L"NewModifiedColor", newModifiedColor_},
      {L"NewSameColor", newSameColor_},
      {L"NewDifferentVisible", newDifferentVisible_},
      {L"NewModifiedVisible", newModifiedVisible_},
      {L"NewSameVisible", newSameVisible_},
      {L"CompareFlag", compareFlag_},
  };
  for (const auto& value : values) {
    if (!ProfileSettings::writeNumber(kToolKey, value.name,
                                      static_cast<std::uint32_t>(value.value))) {
      return;
    }
  }
}

void VnFileCompareOptions::SetOldDifferentColor(std::int32_t color) {
  if (IsValidColor(color)) oldDifferentColor_ = color;
}
void VnFileCompareOptions::SetOldModifiedColor(std::int32_t color) {
  if (IsValidColor(color)) oldModifiedColor_ = color;
}
void VnFileCompareOptions::SetOldSameColor(std::int32_t color) {
  if (IsValidColor(color)) oldSameColor_ = color;
}
void VnFileCompareOptions::SetNewDifferentColor(std::int32_t color) {
  if (IsValidColor(color)) newDifferentColor_ = color;
}
void VnFileCompareOptions::SetNewModifiedColor(std::int32_t color) {
  if (IsValidColor(color)) newModifiedColor_ = color;
}
void VnFileCompareOptions::SetNewSameColor(std::int32_t color) {
  if (IsValidColor(color)) newSameColor_ = color;
}
