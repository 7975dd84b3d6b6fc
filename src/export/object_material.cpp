#include "export/object_material.h"

#include "export/rib_text.h"
#include "export/shader_statement.h"

namespace orv {
namespace {

void WriteIdentifier(RibWriter& writer, const CRhinoObject& object, bool useObjectNumber) {
  const std::string& name = object.Attributes().m_name;
  if (useObjectNumber) {
    RibPrintf(writer, "Attribute \"identifier\" \"name\" [\"Object_%d\"]\n",
              static_cast<int>(object.RuntimeSerialNumber()));
  } else if (!name.empty()) {
    RibPrintf(writer, "Attribute \"identifier\" \"name\" [\"%s\"]\n", RibString(name).c_str());
  }
}

void WriteMaterialStatement(RibWriter& writer, const MaterialStatement& statement) {
  switch (statement.Kind) {
    case MaterialStatementKind::Line:
      return RibPrintf(writer, "%s", statement.Text.c_str());
    case MaterialStatementKind::PointSetHandle:
      return RibPrintf(writer, "Attribute \"pointset\" \"handle\" [\"PointSet%d\"]\n",
                       writer.PointSetCount++);
    case MaterialStatementKind::Surface:
      return WriteShaderStatement(writer, "Surface", statement.Text);
    case MaterialStatementKind::Displacement:
      return WriteShaderStatement(writer, "Displacement", statement.Text);
    case MaterialStatementKind::Instancer:
      return WriteShaderStatement(writer, "Instancer", statement.Text);
  }
}

}  // namespace

const MaterialStatements& SceneMaterials::StatementsOf(const CRhinoObject& object) {
  const ON_Material& material = object.ObjectMaterial();
  const auto known = statements_.find(&material);
  if (known != statements_.end()) return known->second;
  return statements_.emplace(&material, MakeMaterialStatements(material, settings_, textures_))
      .first->second;
}

bool WriteObjectMaterial(RibWriter& writer, const CRhinoObject& object, SceneMaterials& materials,
                         bool useObjectNumber) {
  if (!materials.AreWritten()) return true;
  if (object.ObjectType() == ON_ObjectType::light) return materials.AreBakedIntoMaps();
  WriteIdentifier(writer, object, useObjectNumber);
  const MaterialStatements& material = materials.StatementsOf(object);
  for (const MaterialStatement& statement : material.Statements) {
    WriteMaterialStatement(writer, statement);
  }
  return material.WantsRenderMesh || materials.AreBakedIntoMaps();
}

}  // namespace orv
