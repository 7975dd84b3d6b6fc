#pragma once

#include <vector>

#include "host/archive/binary_archive.h"
#include "host/archive/chunk_writer.h"
#include "host/archive/model.h"
#include "host/archive/record_writers.h"
#include "host/geometry/on_annotation.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_curve.h"
#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_mesh.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_point_cloud.h"
#include "host/geometry/on_subd.h"

// One function per kind of record; each writes the whole record with its chunk.

namespace model_writer {

using host::ChunkWriter;
using host::WriteArray;
using host::WriteClass;
using host::WriteContent;
using host::WriteTable;

inline constexpr ON_UUID kMeshClass = "4ed7d4e4-e947-11d3-bfe5-0010830122f0"_uuid;

void WriteProperties(ON_BinaryArchive& archive, const ON_3dmProperties& properties);
void WriteSettings(ON_BinaryArchive& archive, const ON_3dmSettings& settings);
// The record of the settings that lists views: TCODE_SETTINGS_VIEW_LIST or the one of named views.
void WriteViewList(ON_BinaryArchive& archive, std::uint32_t typecode,
                   const std::vector<ON_3dmView>& views);

// `index` is the position in the table.
void WriteLinetype(ON_BinaryArchive& archive, const ON_Linetype& linetype, int index);
void WriteGroup(ON_BinaryArchive& archive, const ON_Group& group);
// A dimension style, and the text style with its font, which stands at the same position.
void WriteDimStyle(ON_BinaryArchive& archive, const ON_DimStyle& style, int index);
void WriteTextStyle(ON_BinaryArchive& archive, const ON_DimStyle& style, int index);
void WriteInstanceDefinition(ON_BinaryArchive& archive, const ON_InstanceDefinition& definition);

// Annotations name their style by its position among `styles`.
void WriteObject(ON_BinaryArchive& archive, const ONX_ModelObject& object,
                 const std::vector<ON_DimStyle>& styles);
// A geometry's data without a wrapper.
void WriteMeshData(ON_BinaryArchive& archive, const ON_Mesh& mesh);
void WriteClippingPlaneData(ON_BinaryArchive& archive, const ON_ClippingPlaneSurface& surface);
void WriteCurveData(ON_BinaryArchive& archive, const ON_Curve& curve);
// The id under which a curve's class is written.
ON_UUID CurveClass(const ON_Curve& curve);
void WriteSurfaceData(ON_BinaryArchive& archive, const ON_Surface& surface);
// The id under which a surface's class is written.
ON_UUID SurfaceClass(const ON_Surface& surface);
void WriteBrepData(ON_BinaryArchive& archive, const ON_Brep& brep);
// The profile must be there.
void WriteExtrusionData(ON_BinaryArchive& archive, const ON_Extrusion& extrusion);
void WriteSubDData(ON_BinaryArchive& archive, const ON_SubD& subd);
// What a clipping plane has of a plane surface's data.
void WritePlaneSurfaceData(ON_BinaryArchive& archive, const ON_PlaneSurface& surface);
// The class of versions 4 and 5 that an annotation is written in, and its data.
ON_UUID AnnotationClass(const ON_Annotation& annotation);
void WriteAnnotationData(ON_BinaryArchive& archive, const ON_Annotation& annotation,
                         const std::vector<ON_DimStyle>& styles);

}  // namespace model_writer
