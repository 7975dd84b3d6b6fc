#pragma once

namespace orv {

// The light that gathers the photons of caustics. No other light has its number.
inline constexpr int kCausticLight = 999;
// The slot of the __lights array that it shares with the lights of the last channel.
inline constexpr int kCausticChannel = 9;

}  // namespace orv
