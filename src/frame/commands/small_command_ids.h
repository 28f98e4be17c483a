// Resource ids of the small commands' strings (the resource source's "Small commands"
// block).
#pragma once

namespace small_commands {

constexpr unsigned kArcSelectPrompt = 2607;
constexpr unsigned kArcLengthLabel = 2608;  // the sum follows it
constexpr unsigned kLeaderPrompt = 2624;
constexpr unsigned kAnnotationPrompt = 2625;
constexpr unsigned kAreaSumFormat = 2629;  // %d selected, %d with an area, %s the sum
constexpr unsigned kHatchSelectPrompt = 2630;
constexpr unsigned kHatchesDeletedFormat = 2631;  // %d
constexpr unsigned kLineSelectPrompt = 2632;
constexpr unsigned kLineLengthFormat = 2633;  // %s
constexpr unsigned kFlattenSelectHint = 2634;
constexpr unsigned kFlattenedFormat = 2635;      // %d
constexpr unsigned kAddressPromptFormat = 3523;  // %s: the address offered
constexpr unsigned kAddressFailed = 3524;        // the address follows it
constexpr unsigned kAddressNotFound = 3525;
constexpr unsigned kLinetypeScaleSelectHint = 3526;
constexpr unsigned kLinetypeScalePromptFormat = 3527;  // %g: the default
constexpr unsigned kNoGroupFound = 6194;

// The browser's address when INETLOCATION is empty: korva's own web site.
constexpr const wchar_t* kDefaultWebAddress = L"https://korva.example.org/";

}  // namespace small_commands
