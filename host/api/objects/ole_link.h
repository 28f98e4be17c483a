// The source a linked OLE object names. A frame's data holds a compound file whose
// "\1Ole" stream carries the link's monikers: the file, and the items inside it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva::api {

struct OleLinkSource {
  std::wstring displayName;  // the whole source: the file, then each item behind its delimiter
  std::wstring path;         // the linked file alone
};

// The link's source from a frame's stored data (raw bytes); nothing when the data holds
// no compound file, no "\1Ole" stream, or the object isn't linked.
std::optional<OleLinkSource> oleLinkSourceOf(std::string_view data);

}  // namespace korva::api
