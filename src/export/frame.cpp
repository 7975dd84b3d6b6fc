#include "export/frame.h"

#include <algorithm>
#include <string>

#include "host/system/text.h"

namespace orv {
namespace {

// The text on one line: each control character is a blank.
std::string OnOneLine(std::string text) {
  std::replace_if(text.begin(), text.end(), host::IsControl, ' ');
  return text;
}

}  // namespace

void WriteHeaderComments(RibWriter& writer) {
  RibPrintf(writer, "##RenderMan RIB-Structure 1.1\n");
  RibPrintf(writer, "##Scene %s\n", OnOneLine(writer.FileName).c_str());
  RibPrintf(writer, "##Creator RhinoOrv %s\n", __DATE__);
  RibPrintf(writer, "##Frames 1\n");
  RibPrintf(writer, "##CapabilitiesNeeded TrimCurves\n");
}

void BeginFrame(RibWriter& writer, const RenderSettings& settings) {
  if (settings.FrameNumber < 0) return;
  RibPrintf(writer, "\n");
  RibPrintf(writer, "FrameBegin %d\n", settings.FrameNumber);
  writer.Indent += 2;
}

void EndFrame(RibWriter& writer, const RenderSettings& settings) {
  if (settings.FrameNumber < 0) return;
  RibPrintf(writer, "\n");
  writer.Indent -= 2;
  RibPrintf(writer, "FrameEnd\n");
}

void BeginWorld(RibWriter& writer) {
  RibPrintf(writer, "\n");
  RibPrintf(writer, "WorldBegin\n");
  writer.Indent += 2;
  RibPrintf(writer, "Attribute \"render\" \"facevertex\" [1]\n");
}

void EndWorld(RibWriter& writer) {
  RibPrintf(writer, "\n");
  writer.Indent -= 2;
  RibPrintf(writer, "WorldEnd\n");
}

}  // namespace orv
