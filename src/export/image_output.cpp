#include "export/image_output.h"

#include <string>
#include <string_view>
#include <vector>

#include "export/rib_text.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace orv {
namespace {

// An extra output channel: the word that asks for it, the mode of its Display statement, and what
// is added to the base name of its file.
struct Channel {
  std::string word;
  std::string mode;
  std::string suffix;
};

std::vector<Channel> AllChannels(const LightChannelCounts& lightChannelCounts) {
  std::vector<Channel> channels = {
      {"Diffuse", "__diffuse", "_diffuse"},
      {"Unshadowed", "__diffuse_unshadowed", "_unshadowed"},
      {"Shadow", "__shadow", "_shadow"},
      {"Indirect", "__indirect", "_indirect"},
      {"Ambient", "__ambient", "_ambient"},
      {"Specular", "__specular", "_specular"},
      {"Reflect", "__reflect", "_reflect"},
      {"Refract", "__refract", "_refract"},
      {"Environment", "__environment", "_environment"},
      {"Incandescence", "__incandescence", "_incandescence"},
      {"Outline", "__toonline", "_outline"},
      {"Depth", "z", "_z"},
  };
  for (std::size_t slot = 0; slot < lightChannelCounts.size(); ++slot) {
    if (lightChannelCounts[slot] <= 0) continue;
    channels.push_back(
        {"Lights", host::Format("__lights[%zu]", slot), host::Format("_lights[%zu]", slot)});
  }
  return channels;
}

std::vector<Channel> ChannelsInUse(const RenderSettings& settings,
                                   const LightChannelCounts& lightChannelCounts) {
  std::vector<Channel> channels = AllChannels(lightChannelCounts);
  std::erase_if(channels, [&](const Channel& channel) {
    return !host::Contains(settings.ExtraChannels, channel.word);
  });
  return channels;
}

// The image's file, with the renderer's frame token when it is one of a sequence.
std::string ImageName(const RibWriter& writer, const RenderSettings& settings) {
  std::string name = settings.ImageName.empty() ? host::SplitPath(writer.FileName).Base + ".tif"
                                                : settings.ImageName;
  if (settings.AnimMode == 0 && settings.FrameNumber < 0) return name;
  host::PathParts parts = host::SplitPath(name);
  parts.Base += "_#4f";
  return host::JoinPath(parts);
}

void WriteChannelDeclarations(RibWriter& writer) {
  RibPrintf(writer, "Declare \"__diffuse\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__diffuse_unshadowed\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__shadow\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__indirect\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__ambient\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__specular\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__reflect\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__refract\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__environment\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__incandescence\" \"varying color\"\n");
  RibPrintf(writer, "Declare \"__lights\" \"varying color[10]\"\n");
}

// One image that holds all channels.
void WriteSingleImage(RibWriter& writer, const RenderSettings& settings,
                      const std::string& imageName, const std::vector<Channel>& channels,
                      const std::string& quantizeText) {
  std::string modeText = settings.DisplayMode;
  for (const Channel& channel : channels) modeText += ',' + channel.mode;
  WriteDisplayLines(writer, settings, ToRibPath(imageName), modeText, quantizeText);
}

// The image, and a file of its own for each channel.
void WriteImagePerChannel(RibWriter& writer, const RenderSettings& settings,
                          const std::string& imageName, const std::vector<Channel>& channels,
                          const std::string& quantizeText) {
  WriteDisplayLines(writer, settings, ToRibPath(imageName), settings.DisplayMode, quantizeText);
  for (const Channel& channel : channels) {
    host::PathParts parts = host::SplitPath(imageName);
    parts.Base += channel.suffix;
    const std::string name = ToRibPath(host::JoinPath(parts));
    if (settings.OrvShow) {
      RibPrintf(writer, "Display \"+%s\" \"framebuffer\" \"%s\" %s\n", name.c_str(),
                channel.mode.c_str(), quantizeText.c_str());
    }
    if (settings.RenderToFile) {
      RibPrintf(writer, "Display \"+%s\" \"file\" \"%s\" %s\n", name.c_str(), channel.mode.c_str(),
                quantizeText.c_str());
    }
  }
}

}  // namespace

std::string QuantizeText(int imagePrecision) {
  switch (imagePrecision) {
    case 1:
      return R"("float[4] quantize" [0 65535 0 65535])";
    case 2:
      return R"("float[4] quantize" [0 0 0 0])";
    default:
      return R"("float[4] quantize" [0 255 0 255])";
  }
}

void WriteImageOutput(RibWriter& writer, const RenderSettings& settings,
                      const LightChannelCounts& lightChannelCounts) {
  const std::string imageName = ImageName(writer, settings);
  const std::string quantizeText = QuantizeText(settings.ImagePrecision);
  if (settings.Zmin != settings.Zmax) {
    RibPrintf(writer, "Option \"render\" \"zrange\" [%g %g]\n", settings.Zmin, settings.Zmax);
  }
  if (!settings.UseExtraChannels) {
    WriteDisplayLines(writer, settings, ToRibPath(imageName), settings.DisplayMode, quantizeText);
    return;
  }
  WriteChannelDeclarations(writer);
  if (settings.ReflectChannels && host::Contains(settings.ExtraChannels, "Lights")) {
    RibPrintf(writer, "Option \"user\" \"float reflectlights\" [1]\n");
  }
  const std::vector<Channel> channels = ChannelsInUse(settings, lightChannelCounts);
  if (settings.SingleImageFile) {
    WriteSingleImage(writer, settings, imageName, channels, quantizeText);
  } else {
    WriteImagePerChannel(writer, settings, imageName, channels, quantizeText);
  }
}

void WriteDisplayLines(RibWriter& writer, const RenderSettings& settings,
                       const std::string& imageName, const std::string& modeText,
                       const std::string& quantizeText) {
  const char* name = imageName.c_str();
  const char* mode = modeText.c_str();
  const char* quantize = quantizeText.c_str();
  if (settings.OrvShow) {
    RibPrintf(writer, "Display \"%s\" \"framebuffer\" \"%s\" %s\n", name, mode, quantize);
    if (settings.StereoEnable) {
      RibPrintf(writer, "Display \"+%s\" \"framebuffer\" \"%s\" %s \"string camera\" \"right\"\n",
                name, mode, quantize);
    }
  }
  if (settings.RenderToFile) {
    RibPrintf(writer,
              settings.OrvShow ? "Display \"+%s\" \"file\" \"%s\" %s\n"
                               : "Display \"%s\" \"file\" \"%s\" %s\n",
              name, mode, quantize);
    if (settings.StereoEnable) {
      RibPrintf(writer, "Display \"+%s\" \"file\" \"%s\" %s \"string camera\" \"right\"\n", name,
                mode, quantize);
    }
  }
}

}  // namespace orv
