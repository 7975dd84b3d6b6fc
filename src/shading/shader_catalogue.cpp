#include "shading/shader_catalogue.h"

namespace orv {
namespace {

constexpr CatalogueRow kSurfaces[] = {
    {"Rhino", "Rhino"},
    {"2 Sided", "V2SidedPlastic"},
    {"Brick", "VBrick2D"},
    {"Car paint", "VCarPaint"},
    {"Cartoon", "VToon"},
    {"Ceramic", "VCeramic"},
    {"Clay", "VClay"},
    {"Constant", "VTexturedConstant"},
    {"Constant, shadowed", "VShadowedConstant"},
    {"DarkTree", "DarkTreeSurface"},
    {"Decal 2D", "VDecal2D"},
    {"Decal 3D", "VDecal3D"},
    {"Glass", "VGlass"},
    {"Glass, thin", "VThinGlass"},
    {"Granite", "VGranite"},
    {"Lines", "VLines"},
    {"Marble", "VMarble"},
    {"Metal", "VMetal"},
    {"Metal, brushed", "VBrushedMetal"},
    {"Planks", "VPlanks"},
    {"Plastic", "VPlastic"},
    {"Plastic, brushed", "VBrushedPlastic"},
    {"Rubber", "VRubber"},
    {"Screen", "VScreen"},
    {"Tile", "VShinyTile2D"},
    {"Tone", "VTone"},
    {"Translucent", "VTranslucent"},
    {"Velvet", "Velvet"},
    {"Weave", "VWeave"},
    {"Wood", "VWood"},
};

constexpr CatalogueRow kDisplacements[] = {
    {"Rhino", "Rhino"},
    {"Bump map", "VTexturedBump"},
    {"Bump regions", "VBumpRegions"},
    {"Cracks", "VCracks"},
    {"DarkTree", "DarkTreeDisplacement"},
    {"Dents", "VDents"},
    {"Dimples", "VDimples"},
    {"Hammered", "VHammered"},
    {"Nicks", "VNicks"},
    {"Pillows", "VPillows"},
    {"Ripples", "VRipples"},
    {"Stucco", "VStuccoed"},
};

constexpr CatalogueRow kInstancers[] = {
    {"None", "null"},
    {"Array along curve", "VArrayOnCurve"},
    {"Array on surface", "VArrayOnSurface"},
    {"Instance archive", "VInstanceArchive"},
    {"Instance tree", "VInstanceTree"},
};

}  // namespace

std::span<const CatalogueRow> SurfaceCatalogue() {
  return kSurfaces;
}

std::span<const CatalogueRow> DisplacementCatalogue() {
  return kDisplacements;
}

std::span<const CatalogueRow> InstancerCatalogue() {
  return kInstancers;
}

}  // namespace orv
