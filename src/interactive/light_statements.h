#pragma once

#include <string>

class CRhinoObject;
class ON_Light;

namespace orv {

// The statements of a light of the document, which the renderer knows by its object's runtime
// serial number. `gamma` is the gamma of colours.

// Changes a light, with its place and shape when they are wanted.
std::string LightTweakStatements(const CRhinoObject& object, const ON_Light& light,
                                 bool withTransform, double gamma);
// Makes a light; empty for a kind that can't come into a running session.
std::string NewLightStatement(const CRhinoObject& object, const ON_Light& light, double gamma);
// Switches a light.
std::string LightSwitchStatement(const CRhinoObject& object, bool on);

}  // namespace orv
