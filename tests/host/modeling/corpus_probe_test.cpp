#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <filesystem>

#include "host/archive/model_reader.h"
#include "host/geometry/on_brep.h"
#include "host/modeling/mesh_quality.h"
#include "host/modeling/render_mesh.h"
#include "mesh_checks.h"
#include "support/model_corpus.h"
TEST(Probe, Corpus) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP();
  for (const char* folder : {"real", "made"})
    for (const auto& e : std::filesystem::directory_iterator(*corpus / folder)) {
      if (e.path().extension() != ".3dm") continue;
      ONX_Model model;
      if (!ON_ReadModel(e.path().string(), model).ok) continue;
      for (const auto& object : model.m_object_table) {
        if (!object.m_geometry || !object.m_geometry->HasBrepForm()) continue;
        const auto brep = object.m_geometry->BrepForm();
        if (!brep) {
          printf("%s no brep form\n", e.path().c_str());
          continue;
        }
        const auto t0 = std::chrono::steady_clock::now();
        const auto made = host::MakeRenderMeshes(*brep, model.m_settings.m_render_mesh);
        const double s =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        const auto box = host::TrimmedBox(*brep);
        const auto q =
            host::QualityOf(model.m_settings.m_render_mesh, box.m_min.DistanceTo(box.m_max));
        MeshFit all;
        int v = 0, f = 0;
        std::size_t next = 0, mk = 0;
        for (std::size_t i = 0; i < brep->m_F.size(); ++i) {
          if (next < made.failed_faces.size() && made.failed_faces[next] == (int)i) {
            ++next;
            continue;
          }
          const auto& m = *made.meshes[mk++];
          v += m.VertexCount();
          f += m.FaceCount();
          const MeshFit fit =
              FitOf(m, brep->SurfaceOf(brep->m_F[i]), brep->m_F[i].m_bRev, q.tolerance);
          if (getenv("FACES") && (fit.sag > 1.5 * q.tolerance || fit.vertex > q.tolerance ||
                                  fit.triangle_normal < 0.3))
            printf("   face %zu: V %d F %d vertex %g sag %g (tol %g) n %g %g  %s\n", i,
                   m.VertexCount(), m.FaceCount(), fit.vertex, fit.sag, q.tolerance,
                   fit.vertex_normal, fit.triangle_normal,
                   typeid(brep->SurfaceOf(brep->m_F[i])).name());
          all.vertex = std::max(all.vertex, fit.vertex);
          all.sag = std::max(all.sag, fit.sag);
          all.vertex_normal = std::min(all.vertex_normal, fit.vertex_normal);
          all.triangle_normal = std::min(all.triangle_normal, fit.triangle_normal);
        }
        int naked = 0, mated = 0;
        for (auto& ed : brep->m_E) {
          if (ed.m_ti.size() == 1)
            ++naked;
          else
            ++mated;
        }
        const EdgeUse use = EdgeUseOf(made.meshes);
        printf("%s %s faces %zu failed %zu [", e.path().filename().c_str(),
               object.m_attributes.m_name.c_str(), brep->m_F.size(), made.failed_faces.size());
        for (int x : made.failed_faces) printf("%d ", x);
        printf(
            "] %.3fs V %d F %d fit v %g sag %g tol %g n %g tn %g | edges naked %d mated %d solid "
            "%d | once %d twice %d more %d twisted %d\n",
            s, v, f, all.vertex, all.sag, q.tolerance, all.vertex_normal, all.triangle_normal,
            naked, mated, brep->m_is_solid, use.once, use.twice, use.more, use.twisted);
      }
    }
}
