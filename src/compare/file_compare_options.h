// What a drawing comparison looks at and how its six result layers look, remembered
// per user under the current profile ("FileCompare").
#pragma once

#include <cstdint>

// Bits of the compare flag, in the order the dialog lists them.
enum VnCompareFlagBit : int {
  kCompareLayer = 1,
  kCompareLinetype = 2,
  kCompareLinetypeScale = 4,
  kCompareThickness = 8,
  kCompareColor = 16,
  kCompareLineWeight = 32,
  kCompareGeometry = 64,
  kCompareAll = 127,
};

class VnFileCompareOptions {
 public:
  VnFileCompareOptions();
  virtual ~VnFileCompareOptions() = default;
  VnFileCompareOptions(const VnFileCompareOptions&) = default;
  VnFileCompareOptions& operator=(const VnFileCompareOptions&) = default;

  // Defaults first, then whatever valid values the profile holds.
  virtual void Load();
  // All thirteen values; the key is made when missing. Without a profile nothing is
  // written and nothing is said.
  virtual void Save() const;

  void SetDefaults();

  // A colour index the result layers can take: 0 to 256.
  static bool IsValidColor(std::int32_t color) { return static_cast<std::uint32_t>(color) <= 256; }

  std::int32_t GetOldDifferentColor() const { return oldDifferentColor_; }
  std::int32_t GetOldModifiedColor() const { return oldModifiedColor_; }
  std::int32_t GetOldSameColor() const { return oldSameColor_; }
  std::int32_t GetOldDifferentVisible() const { return oldDifferentVisible_; }
  std::int32_t GetOldModifiedVisible() const { return oldModifiedVisible_; }
  std::int32_t GetOldSameVisible() const { return oldSameVisible_; }
  std::int32_t GetNewDifferentColor() const { return newDifferentColor_; }
  std::int32_t GetNewModifiedColor() const { return newModifiedColor_; }
  std::int32_t GetNewSameColor() const { return newSameColor_; }
  std::int32_t GetNewDifferentVisible() const { return newDifferentVisible_; }
  std::int32_t GetNewModifiedVisible() const { return newModifiedVisible_; }
  std::int32_t GetNewSameVisible() const { return newSameVisible_; }
  std::int32_t GetCompareFlag() const { return compareFlag_; }

  // The colour setters ignore an index that IsValidColor refuses.
  void SetOldDifferentColor(std::int32_t color);
  void SetOldModifiedColor(std::int32_t color);
  void SetOldSameColor(std::int32_t color);
  void SetNewDifferentColor(std::int32_t color);
  void SetNewModifiedColor(std::int32_t color);
  void SetNewSameColor(std::int32_t color);
  void SetOldDifferentVisible(std::int32_t visible) { oldDifferentVisible_ = visible; }
  void SetOldModifiedVisible(std::int32_t visible) { oldModifiedVisible_ = visible; }
  void SetOldSameVisible(std::int32_t visible) { oldSameVisible_ = visible; }
  void SetNewDifferentVisible(std::int32_t visible) { newDifferentVisible_ = visible; }
  void SetNewModifiedVisible(std::int32_t visible) { newModifiedVisible_ = visible; }
  void SetNewSameVisible(std::int32_t visible) { newSameVisible_ = visible; }
  void SetCompareFlag(std::int32_t flag) { compareFlag_ = flag; }

 private:
  std::int32_t oldDifferentColor_;
  std::int32_t oldModifiedColor_;
  std::int32_t oldSameColor_;
  std::int32_t oldDifferentVisible_;
  std::int32_t oldModifiedVisible_;
  std::int32_t oldSameVisible_;
  std::int32_t newDifferentColor_;
  std::int32_t newModifiedColor_;
  std::int32_t newSameColor_;
  std::int32_t newDifferentVisible_;
  std::int32_t newModifiedVisible_;
  std::int32_t newSameVisible_;
  std::int32_t compareFlag_;
};
