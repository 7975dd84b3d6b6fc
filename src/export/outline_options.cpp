#include "export/outline_options.h"

#include <algorithm>
#include <array>

#include "export/rib_color.h"
#include "export/rib_text.h"
#include "host/system/text.h"
#include "shading/attribute_text.h"

namespace orv {
namespace {

// The object's own width, as ObjectAttributes has it; 0 when it has none. Only this much is read of
// each object, as there may be many.
double LineWidth(const ON_3dmObjectAttributes& attributes) {
  const auto use = attributes.GetUserString("OrvUseLineWidth");
  if (!use || host::EqualNoCase(*use, "no")) return 0;
  double width = 0;
  if (const auto text = attributes.GetUserString("OrvLineWidth")) {
    ReadAttributeText(*text, {.Bounds = {0, 100}}, width);
  }
  return width;
}

// Never below 1, which is the ink width of the scene itself.
double WidestLine(const ObjectList& objects) {
  double widest = 1;
  for (const CRhinoObject* object : objects) {
    widest = std::max(widest, LineWidth(object->Attributes()));
  }
  return widest;
}

// What stands for each ToonId: one outline for the scene, or a negative number for outlines round
// each object or surface (-1) or polygon (-2).
int OutlineId(int toonId) {
  constexpr std::array<int, 5> kIds = {0, 1, -1, -1, -2};
  return kIds[static_cast<std::size_t>(std::clamp(toonId, 0, 4))];
}

void WriteInkWidths(RibWriter& writer, const RenderSettings& settings, double widestLine) {
  RibPrintf(writer, "Option \"toon\" \"float maxinkwidth\" %g\n", widestLine * settings.InkWidth);
  RibPrintf(writer, "Option \"toon\" \"float fadethreshold\" %g\n", settings.FadeThreshold);
  RibPrintf(writer, "Option \"toon\" \"float mininkwidth\" %g\n",
            settings.MinInkWidth * settings.InkWidth);
  RibPrintf(writer, "Attribute \"toon\" \"float inkwidth\" %g\n", settings.InkWidth);
}

void WriteInkColor(RibWriter& writer, const RenderSettings& settings) {
  const RibColor ink = PlainColor(settings.InkColor);
  RibPrintf(writer, "Attribute \"toon\" \"color ink\" [%g %g %g]\n", ink.Red, ink.Green, ink.Blue);
}

void WriteEdges(RibWriter& writer, const RenderSettings& settings) {
  if (settings.FrontBack) RibPrintf(writer, "Attribute \"toon\" \"integer frontback\" 1\n");
  RibPrintf(writer, "Attribute \"toon\" \"float silhouette\" %g\n", settings.Silhouette);
  RibPrintf(writer, "Attribute \"toon\" \"float id\" %d\n", OutlineId(settings.ToonId));
  if (settings.UseMinEdgeAngle) {
    RibPrintf(writer, "Attribute \"toon\" \"faceangle\" [%g]\n", settings.MinEdgeAngle);
  }
  if (settings.IncludeNakedEdges) RibPrintf(writer, "Attribute \"toon\" \"nakededges\" [1]\n");
}

}  // namespace

void WriteOutlineOptions(RibWriter& writer, const RenderSettings& settings,
                         const ObjectList& objects) {
  if (!settings.Outline) return;
  WriteInkWidths(writer, settings, WidestLine(objects));
  WriteInkColor(writer, settings);
  WriteEdges(writer, settings);
  if (settings.ExportVectors) {
    RibPrintf(writer, "Option \"toon\" \"string vectorexportfile\" \"%s\"\n",
              RibPath(settings.VectorExportName).c_str());
  }
}

}  // namespace orv
