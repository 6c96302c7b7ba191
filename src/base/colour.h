// The colours that the program draws with.
#pragma once

#include <cstdint>

namespace corvane {

/// 0x00BBGGRR, or with the top bit set one of the system's colours.
using Colour = std::uint32_t;

inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kBlue = 0xFF0000;
inline constexpr Colour kGreen = 0x00FF00;
inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kNormalColour = 0xFF8080;
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kCloneColour = 0x8080FF;
inline constexpr Colour kInactiveAxisColour = 0x808080;

/// System colours, which follow the user's theme.
inline constexpr Colour kForeground = 0x80000008;    ///< a picture's foreground
inline constexpr Colour kActiveBorder = 0x8000000A;  ///< edges of faces
inline constexpr Colour kButtonFace = 0x8000000F;    ///< buttons

}  // namespace corvane
