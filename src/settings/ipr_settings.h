#pragma once

#include <string>

namespace orv {

// The settings of the interactive render. Loaded and stored beside RenderSettings, with its own
// keys in the document's list.
struct IprSettings {
  // In pixels; 0 means the viewport's.
  int IprImageWidth = 400;
  int IprImageHeight = 300;
  int IprMaxShadowRays = 1;
  int IprMaxReflectionRays = 1;
  // The user's value, not the document's.
  int IprThreads = 1;
  // 0 diffuse, 1 fast relighting, 2 full shading.
  int IprShadeMode = 1;
  bool IprAutoReflect = true;
  bool IprSmoothEdges = false;
  bool IprLowPriority = false;
  bool IprForceMesh = true;
  std::string IprViewName = "Current";
};

}  // namespace orv
