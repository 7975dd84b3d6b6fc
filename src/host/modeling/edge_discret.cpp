#include "host/modeling/edge_discret.h"

#include <BRepMesh_Deflection.hxx>
#include <BRep_Tool.hxx>
#include <IMeshData_Curve.hxx>
#include <IMeshData_Edge.hxx>
#include <IMeshData_Face.hxx>
#include <IMeshData_Model.hxx>
#include <IMeshData_PCurve.hxx>
#include <IMeshTools_Parameters.hxx>
#include <OSD_Parallel.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopoDS_Vertex.hxx>

#include "host/modeling/edge_points.h"

namespace host {
namespace {

std::vector<EdgeSide> SidesOf(const IMeshData_Edge& edge) {
  std::vector<EdgeSide> sides;
  for (int i = 0; i < edge.PCurvesNb(); ++i) {
    const IMeshData::IPCurveHandle& side = edge.GetPCurve(i);
    const TopoDS_Face& face = side->GetFace()->GetFace();
    double first = 0;
    double last = 0;
    sides.push_back(
        {BRep_Tool::Surface(face),
         BRep_Tool::CurveOnSurface(TopoDS::Edge(edge.GetEdge().Oriented(side->GetOrientation())),
                                   face, first, last)});
  }
  return sides;
}

void AddPoints(const EdgePoints& points, const Handle(Geom_Curve) & curve,
               const std::vector<EdgeSide>& sides, const IMeshData_Edge& edge) {
  const gp_Pnt start = BRep_Tool::Pnt(TopExp::FirstVertex(edge.GetEdge()));
  const gp_Pnt end = BRep_Tool::Pnt(TopExp::LastVertex(edge.GetEdge()));
  const std::size_t last = points.parameters.size() - 1;
  for (std::size_t i = 0; i <= last; ++i) {
    const double t = points.parameters[i];
    edge.GetCurve()->AddPoint(i == 0 ? start : i == last ? end : curve->Value(t), t);
    for (std::size_t s = 0; s < sides.size(); ++s) {
      const double side_t = points.side_parameters[s][i];
      edge.GetPCurve(static_cast<int>(s))->AddPoint(sides[s].curve->Value(side_t), side_t);
    }
  }
}

void Divide(const IMeshData_Edge& edge, const IMeshTools_Parameters& parameters, double max_edge) {
  double first = 0;
  double last = 0;
  const Handle(Geom_Curve) curve = BRep_Tool::Curve(edge.GetEdge(), first, last);
  const std::vector<EdgeSide> sides = SidesOf(edge);
  EdgePoints points;
  if (edge.GetDegenerated()) {
    BRep_Tool::Range(edge.GetEdge(), first, last);
    points.parameters = {first, last};
    points.side_parameters.assign(sides.size(), points.parameters);
  } else {
    points = DivideEdge(curve, first, last, sides,
                        {parameters.Deflection, parameters.Angle, parameters.MinSize, max_edge});
  }
  AddPoints(points, curve, sides, edge);
}

// What a thread does.
struct EdgeTask {
  const IMeshData_Model& model;
  const IMeshTools_Parameters& parameters;
  double max_edge;

  void operator()(int index) const {
    const IMeshData::IEdgeHandle& edge = model.GetEdge(index);
    try {
      BRepMesh_Deflection::ComputeDeflection(edge, model.GetMaxSize(), parameters);
      Divide(*edge, parameters, max_edge);
    } catch (const Standard_Failure&) {
      edge->SetStatus(IMeshData_Failure);
    }
  }
};

}  // namespace

Standard_Boolean EdgeDiscret::performInternal(const Handle(IMeshData_Model) & model,
                                              const IMeshTools_Parameters& parameters,
                                              const Message_ProgressRange&) {
  if (model.IsNull()) return false;
  OSD_Parallel::For(0, model->EdgesNb(), EdgeTask{*model, parameters, max_edge_},
                    !parameters.InParallel);
  return true;
}

}  // namespace host
