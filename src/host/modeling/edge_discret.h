#pragma once

#include <IMeshTools_ModelAlgo.hxx>

namespace host {

// Divides the edges of a model, each once for all its faces.
class EdgeDiscret : public IMeshTools_ModelAlgo {
 public:
  // `max_edge` is the length of the longest piece; 0 is no limit.
  explicit EdgeDiscret(double max_edge) : max_edge_(max_edge) {}

 protected:
  Standard_Boolean performInternal(const Handle(IMeshData_Model) & model,
                                   const IMeshTools_Parameters& parameters,
                                   const Message_ProgressRange& range) override;

 private:
  double max_edge_;
};

}  // namespace host
