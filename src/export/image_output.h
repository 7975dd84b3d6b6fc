#pragma once

#include <array>
#include <string>

#include "export/rib_writer.h"
#include "settings/render_settings.h"

namespace orv {

// How many lights feed each slot of the __lights array. Slot 0 is environment and bounced light,
// slots 1 to 9 are the channels of the document's lights, and caustics share slot 9.
using LightChannelCounts = std::array<int, 10>;

// What the renderer is to produce: the range of depth, the extra channels, and the Display
// statements for the image and its channels.
void WriteImageOutput(RibWriter& writer, const RenderSettings& settings,
                      const LightChannelCounts& lightChannelCounts);

// How numbers are stored in an image: 0 8-bit, 1 16-bit, 2 float.
std::string QuantizeText(int imagePrecision);

// The Display statements of one image: into the viewer, into a file or both, and the same for the
// right eye of a stereo pair.
void WriteDisplayLines(RibWriter& writer, const RenderSettings& settings,
                       const std::string& imageName, const std::string& modeText,
                       const std::string& quantizeText);

}  // namespace orv
