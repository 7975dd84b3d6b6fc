#include "host/modeling/render_mesh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "mesh_checks.h"
#include "support/brep_shapes.h"

namespace {
TEST(Probe, Shapes) {
  for (const auto& brep :
       {MakePlateBrep(10, 3), MakeBoxBrep({{0, 0, 0}, {1, 2, 3}}), MakeCylinderBrep(5, 10)}) {
    const auto made = host::MakeRenderMeshes(*brep, {});
    printf("meshes %zu failed %zu\n", made.meshes.size(), made.failed_faces.size());
    const EdgeUse use = EdgeUseOf(made.meshes);
    printf("area %g volume %g once %d twice %d more %d tw %d\n", AreaOf(made.meshes),
           VolumeOf(made.meshes), use.once, use.twice, use.more, use.twisted);
    for (std::size_t i = 0; i < made.meshes.size(); ++i) {
      const MeshFit fit = FitOf(*made.meshes[i], *brep->m_S[i], brep->m_F[i].m_bRev, 0);
      printf("  V %d F %d fit %g %g %g %g\n", made.meshes[i]->VertexCount(),
             made.meshes[i]->FaceCount(), fit.vertex, fit.sag, fit.vertex_normal,
             fit.triangle_normal);
    }
  }
}
}  // namespace
