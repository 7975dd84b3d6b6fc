#pragma once

#include <string>

#include "host/archive/model.h"

// The bytes of a .3dm document of version 4, 50 or 80 (m_3dm_file_version) that holds `model`;
// empty when the version is another one or a part is too large for it. The same model gives the
// same bytes.
//
// Written are the comments, properties, units, render settings, render mesh parameters, views and
// named views, the current layer, all tables, lights, objects with meshes, points, point clouds,
// clipping planes, curves, surfaces, breps, extrusions, SubDs, block references and annotations,
// user strings and the data of plug-ins. An object without geometry is written as an empty record
// of its class. Not written are texture mappings of objects, display modes of views, the page
// settings, what a dimension style has since version 6, and styles of annotations of their own but
// for the height of a text.
[[nodiscard]] std::string WriteModel(const ONX_Model& model);
