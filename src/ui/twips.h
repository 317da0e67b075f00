#pragma once

// Sizes and positions of the windows are kept in twips, a twentieth of a point; the
// screen counts fifteen of them to a pixel.
inline constexpr int TwipsPerPixel = 15;
