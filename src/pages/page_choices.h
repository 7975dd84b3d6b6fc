#pragma once

#include <span>
#include <string_view>

// The choices that controls of several pages offer.
namespace orv {

using PageWords = std::span<const std::string_view>;

inline constexpr std::string_view kIntensityWords[] = {"0.1", "0.2", "0.3", "0.4", "0.5",
                                                       "0.6", "0.7", "0.8", "0.9", "1.0",
                                                       "1.1", "1.2", "1.5", "2.0"};
inline constexpr PageWords kIntensities{kIntensityWords};
inline constexpr PageWords kIntensitiesToOne = kIntensities.first(10);
inline constexpr std::string_view kTurnWords[] = {"0",   "45",  "90",  "135",
                                                  "180", "225", "270", "315"};
inline constexpr PageWords kTurns{kTurnWords};
inline constexpr std::string_view kLensWords[] = {"18", "20", "28",  "35",  "50",
                                                  "55", "90", "135", "200", "300"};
inline constexpr PageWords kLenses{kLensWords};
inline constexpr std::string_view kImageGammaWords[] = {"1.0", "1.7", "1.8", "2.2", "2.3"};
inline constexpr PageWords kImageGammas{kImageGammaWords};
inline constexpr std::string_view kThreadWords[] = {"1", "2", "3", "4", "5", "6", "7", "8"};
inline constexpr PageWords kThreads{kThreadWords};

// The types of image files that the renderer writes.
inline constexpr std::string_view kRenderedImageFilter =
    "Tagged Image File Format (*.tif);*.tif;Portable Network Graphics (*.png);*.png;"
    "JPEG File Interchange (*.jpg);*.jpg;Windows Bitmap (*.bmp);*.bmp;"
    "SGI Image Format (*.sgi);*.sgi;Targa Image Format (*.tga);*.tga;"
    "Rich Pixel Format (*.rpf);*.rpf;Radiance HDR (*.hdr);*.hdr;"
    "Photoshop Format (*.psd);*.psd;OpenEXR Format (*.exr);*.exr;";

}  // namespace orv
