#pragma once

#include "export/rib_writer.h"
#include "host/geometry/on_color.h"
#include "settings/render_settings.h"
#include "shading/object_attributes.h"

class CRhinoDoc;
class CRhinoObject;

// How what has no surface looks: curves, points, annotations.
namespace orv {

// True for an object whose own line width is 0: nothing is written of it at all.
bool SkipsLines(const ObjectAttributes& attributes);

// The width of lines and points, in model units.
double LineWidth(const ObjectAttributes& attributes, const RenderSettings& settings);

// The colour of lines and points, adjusted to the host's gamma: the object's own line colour, or
// what ColorMode says.
ON_Color LineColor(const CRhinoObject& object, const ObjectAttributes& attributes,
                   const CRhinoDoc& doc, const RenderSettings& settings);

// Writes a colour as it is.
void WriteColor(RibWriter& writer, ON_Color color);

// Writes the colour of what needs no light, and takes it out of outlines, reflections, shadows and
// indirect light.
void WriteConstantLook(RibWriter& writer, ON_Color color);

}  // namespace orv
