#include "shading/shader_catalogue.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace {

std::string Text(std::span<const CatalogueRow> rows) {
  std::string text;
  for (const CatalogueRow& row : rows) {
    text += std::string(row.DisplayName) + "=" + std::string(row.ShaderName) + "\n";
  }
  return text;
}

TEST(ShaderCatalogue, Surfaces) {
  EXPECT_EQ(Text(SurfaceCatalogue()),
            "Rhino=Rhino\n2 Sided=V2SidedPlastic\nBrick=VBrick2D\nCar paint=VCarPaint\n"
            "Cartoon=VToon\nCeramic=VCeramic\nClay=VClay\nConstant=VTexturedConstant\n"
            "Constant, shadowed=VShadowedConstant\nDarkTree=DarkTreeSurface\nDecal 2D=VDecal2D\n"
            "Decal 3D=VDecal3D\nGlass=VGlass\nGlass, thin=VThinGlass\nGranite=VGranite\n"
            "Lines=VLines\nMarble=VMarble\nMetal=VMetal\nMetal, brushed=VBrushedMetal\n"
            "Planks=VPlanks\nPlastic=VPlastic\nPlastic, brushed=VBrushedPlastic\nRubber=VRubber\n"
            "Screen=VScreen\nTile=VShinyTile2D\nTone=VTone\nTranslucent=VTranslucent\n"
            "Velvet=Velvet\nWeave=VWeave\nWood=VWood\n");
}

TEST(ShaderCatalogue, Displacements) {
  EXPECT_EQ(Text(DisplacementCatalogue()),
            "Rhino=Rhino\nBump map=VTexturedBump\nBump regions=VBumpRegions\nCracks=VCracks\n"
            "DarkTree=DarkTreeDisplacement\nDents=VDents\nDimples=VDimples\nHammered=VHammered\n"
            "Nicks=VNicks\nPillows=VPillows\nRipples=VRipples\nStucco=VStuccoed\n");
}

TEST(ShaderCatalogue, Instancers) {
  EXPECT_EQ(Text(InstancerCatalogue()),
            "None=null\nArray along curve=VArrayOnCurve\nArray on surface=VArrayOnSurface\n"
            "Instance archive=VInstanceArchive\nInstance tree=VInstanceTree\n");
}

}  // namespace
}  // namespace orv
