// The keyword list of qxedInitGet and how typed text is matched against it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korva::input {

// "Yes No _ Yes No": blank-separated local keywords, then after "_" the global forms
// in the same order. The capitals of a keyword are its short form: "LType" takes "LT",
// "LTY" ... "LTYPE"; "eXit" takes "X" or "EXIT"; a keyword without capitals, or in
// capitals only, has to be typed whole. "LTYPE,LT" names the short form after a comma.
class KeywordList {
 public:
  KeywordList() = default;
  explicit KeywordList(std::wstring_view list);

  bool empty() const { return keywords_.empty(); }

  enum class Match { None, Found, Ambiguous };
  // Matches case-insensitively; global gets the global form of the keyword matched.
  // Text starting with "_" is matched against the global forms.
  Match match(std::wstring_view text, std::wstring& global) const;

 private:
  struct Keyword {
    std::wstring local;
    std::wstring global;
  };
  std::vector<Keyword> keywords_;
};

}  // namespace korva::input
