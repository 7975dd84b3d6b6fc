#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include "host/archive/model_reader.h"
#include "host/geometry/on_brep.h"
#include "host/modeling/mesh_quality.h"
#include "host/modeling/render_mesh.h"
#include "mesh_checks.h"
#include "support/model_corpus.h"

// The breps of real documents, meshed anew whether or not the documents hold meshes of them.

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> Documents() {
  std::vector<fs::path> documents;
  const auto corpus = ModelCorpus();
  if (!corpus) return documents;
  for (const char* const folder : {"real", "made"}) {
    for (const auto& entry : fs::directory_iterator(*corpus / folder)) {
      const fs::path facts = *corpus / "facts" / (entry.path().stem().string() + ".json");
      if (entry.path().extension() == ".3dm" && fs::exists(facts)) {
        documents.push_back(entry.path());
      }
    }
  }
  std::sort(documents.begin(), documents.end());
  return documents;
}

class CorpusMeshes : public testing::TestWithParam<fs::path> {};

// Whether each edge belongs to two trims.
bool HasNoOpenEdges(const ON_Brep& brep) {
  return std::all_of(brep.m_E.begin(), brep.m_E.end(),
                     [](const ON_BrepEdge& edge) { return edge.m_ti.size() == 2; });
}

void ExpectMeshesFit(const ON_Brep& brep, const host::MadeMeshes& made, double tolerance) {
  for (std::size_t i = 0; i < made.meshes.size(); ++i) {
    const ON_BrepFace& face = brep.m_F[i];
    const MeshFit fit = FitOf(*made.meshes[i], brep.SurfaceOf(face), face.m_bRev, tolerance);
    // The edges of documents aren't exactly on their faces.
    EXPECT_LT(fit.vertex, tolerance) << i;
    EXPECT_LE(fit.sag, tolerance) << i;
    EXPECT_GT(fit.vertex_normal, 0.9999) << i;
    EXPECT_GT(fit.triangle_normal, 0.7) << i;
  }
}

TEST_P(CorpusMeshes, LieOnTheSurfacesAndMeetAtTheEdges) {
  ONX_Model model;
  ASSERT_TRUE(ON_ReadModel(GetParam().string(), model).ok);
  const ON_MeshParameters& parameters = model.m_settings.m_render_mesh;
  for (const ONX_ModelObject& object : model.m_object_table) {
    if (object.m_geometry == nullptr || !object.m_geometry->HasBrepForm()) continue;
    SCOPED_TRACE("object " + std::to_string(&object - model.m_object_table.data()));
    const std::unique_ptr<ON_Brep> brep = object.m_geometry->BrepForm();
    if (brep == nullptr) continue;
    const host::MadeMeshes made = host::MakeRenderMeshes(*brep, parameters);
    EXPECT_TRUE(made.failed_faces.empty());
    ASSERT_EQ(made.meshes.size(), brep->m_F.size());
    const ON_BoundingBox box = host::TrimmedBox(*brep);
    const double size = box.m_min.DistanceTo(box.m_max);
    ExpectMeshesFit(*brep, made, host::QualityOf(parameters, size).tolerance);
    const EdgeUse use = EdgeUseOf(made.meshes);
    EXPECT_EQ(use.more, 0);
    if (HasNoOpenEdges(*brep)) {
      EXPECT_EQ(use.once, 0);
    }
  }
}

std::string NameOf(const testing::TestParamInfo<fs::path>& info) {
  std::string name = info.param.stem().string();
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '-'; }, '_');
  return name;
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(CorpusMeshes);
INSTANTIATE_TEST_SUITE_P(Corpus, CorpusMeshes, testing::ValuesIn(Documents()), NameOf);

}  // namespace
