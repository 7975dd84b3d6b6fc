#pragma once

#include <string>

#include "host/geometry/on_color.h"

namespace orv {

// The light of the surroundings: a colour or, when there is a map, that.
struct AmbientUpdate {
  // The GI mode for which it is meant.
  int Mode = 0;
  double Intensity = 1;
  ON_Color Color{};
  double MapIntensity = 1;
  double MapBlur = 0;
  std::string MapName{};
};

// What reflections show behind the scene: nothing (mode 0), a colour (1), a map (2).
struct ReflectionUpdate {
  int Mode = 0;
  double ColorIntensity = 1;
  ON_Color Color{};
  double MapIntensity = 1;
  double MapBlur = 0;
  // About the z axis, in degrees.
  double Rotation = 0;
  std::string MapName{};
};

// What the image shows behind the scene: nothing (mode 0), a colour (1), a gradient (2), a
// wallpaper (3), an environment (4).
struct ImagerUpdate {
  int Mode = 0;
  ON_Color Color{};
  ON_Color Bottom{};
  double MapIntensity = 1;
  double MapBlur = 0;
  // About the z axis, in degrees.
  double Rotation = 0;
  std::string MapName{};
};

// The statements of an update; empty for a mode that has none. `gamma` is the gamma of colours.
std::string AmbientStatement(const AmbientUpdate& update, double gamma);
std::string ReflectionStatements(const ReflectionUpdate& update, double gamma);
std::string ImagerStatements(const ImagerUpdate& update, double gamma);

}  // namespace orv
